#pragma once

#include "market/Activity.h"
#include "market/InstrumentMarket.h"
#include "market/Listing.h"

namespace Market {

/// The order flow of one instrument from participants without intelligence: limit orders, orders
/// that trade at once and cancellations come at random at given rates, as in E. Smith,
/// J. D. Farmer, L. Gillemot, S. Krishnamurthy, "Statistical theory of the continuous double
/// auction", Quantitative Finance 3 (2003). Limit orders are placed by a power law of the distance
/// from the opposite best price (J.-P. Bouchaud, M. Mezard, M. Potters, Quantitative Finance 2,
/// 2002); cancellations by distance too (R. Cont, S. Stoikov, R. Talreja, Operations Research 58,
/// 2010). Sizes have a Pareto tail. Buyers and sellers lean a little to a fair value, so that the
/// price follows it; in a cooling-off they go on within its limits and queue at the one that keeps
/// the price from it. No order hides a part of its quantity.
class TOrderFlow {
public:
  /// `instrument`, `day` and `brokers` outlive this.
  TOrderFlow(const TInstrument& instrument, const TTradingDay& day, const TBrokerDraw& brokers,
             TRandom random);

  /// When it next acts; empty when it does not on this day.
  std::optional<TTimeOfDay> Due() const { return due_; }

  /// What somebody does at Due(), to which `market` has been advanced: at most one order or
  /// cancellation. `fair` is the fair value in thousandths, `liveliness` a multiple of the
  /// ordinary rate, `id` a number for an order that is new to the market.
  void Act(TInstrumentMarket& market, double fair, double liveliness, TOrderId id);

private:
  struct TPlace {
    TSide Side;
    int Tick;
  };

  void ActInAuction(TInstrumentMarket& market, double fairTick, TOrderId id);
  void ActInContinuous(TInstrumentMarket& market, double trueFairTick, TOrderId id);
  // `buyers`: how likely it is a buyer.
  void SendTakingOrder(TInstrumentMarket& market, double fairTick, double buyers, TOrderId id);
  void Quote(TInstrumentMarket& market, double fairTick, double buyers, TOrderId id);
  void CancelOne(TInstrumentMarket& market, double fairTick);
  void Enter(TInstrumentMarket& market, TPlace place, TQuantity quantity, TOrderId id);
  void Note(const TEntryResult& result, TOrderId id);
  void ForgetOneThatIsGone(const TOrderBook& book);
  double Crowding() const;
  int Distance(const TTickGrid& grid, double fairTick);
  TQuantity Quantity(double size = 1);

  const TInstrument& instrument_;
  const TBrokerDraw& brokers_;
  TRandom random_;
  TActivity activity_;
  std::optional<TTimeOfDay> due_;
  std::vector<TOrderId> orders_; ///< entered; some may be gone from the book
};

/// Where `price`, in thousandths, lies on the grid as a tick number with a fraction.
double TickPosition(const TTickGrid& grid, double price);

} // namespace Market
