#pragma once

#include "market/Auction.h"
#include "market/PriceFixing.h"
#include "market/VolatilityControl.h"

#include <string>

namespace Market {

class TInstrumentMarket;

/// Money in thousandths of the currency unit.
using TAmount = std::int64_t;

/// A price in continuous trading may go this many ticks beyond the best opposite one.
inline constexpr int ReachInTicks = 9;
/// Board lots in one order, at most.
inline constexpr TQuantity LargestOrderInLots = 3000;

struct TInstrumentSettings {
  std::string Symbol;
  TQuantity BoardLot = 1;
  std::optional<TPrice> PreviousClose; ///< empty when never traded: then the opening has no limits
  bool HasOpeningAuction = true;
  bool HasClosingAuction = false;
  int VolatilityPercent = 0;                 ///< 10, 15 or 20; 0: outside the volatility control
  bool IsSuspended = false;                  ///< takes no order all day
  std::optional<TPriceLimits> DailyLimits{}; ///< at all times, beside whatever else limits a price
};

/// An order on its way in.
struct TOrderEntry {
  TOrderId Id = 0; ///< above 0 and new to the instrument
  TSide Side = TSide::Bid;
  TOrderKind Kind = TOrderKind::Limit;
  TPrice Price = 0; ///< of no meaning in a market order
  TQuantity Quantity = 0;
  TBrokerId Broker = 0;
};

enum class TRejection {
  None,
  Suspended,
  PhaseRefuses,      ///< no order or no cancellation in this phase
  QuantityNotInLots, ///< not a whole number of board lots above 0
  QuantityTooLarge,  ///< more than LargestOrderInLots
  PriceOffTick,      ///< not a price of the spread table
  OutsideLimits,     ///< beyond the limits of the day or of the auction
  TooFarFromNominal, ///< nine times the nominal price or more, a ninth or less
  BeyondReach,       ///< more than ReachInTicks beyond the best opposite price
  NoOppositePrice,   ///< a market order in continuous trading with nobody to trade with
  VolatilityControl, ///< the trade would be outside its limits, or the price in a cooling-off is
  UnknownOrder       ///< not in the book, perhaps filled meanwhile
};

/// What became of an order at its entry. What is neither filled nor open was not accepted, or
/// cancelled at once: a market order's rest, or the rest that the volatility control refused (then
/// Rejection says so although something may be filled).
struct TEntryResult {
  TRejection Rejection = TRejection::None;
  TQuantity Filled = 0;
  TQuantity Open = 0;
};

struct TMatch {
  TTimeOfDay Time{};
  TPrice Price = 0;
  TQuantity Quantity = 0;
  TOrderId BuyOrder = 0;
  TOrderId SellOrder = 0;
  TBrokerId Buyer = 0;
  TBrokerId Seller = 0;
  std::optional<TSide> Aggressor; ///< whose order came last: Bid for a buyer; empty in an auction
};

/// Figures of the day; the prices are empty before the first trade.
struct TDayFigures {
  std::optional<TPrice> Open, High, Low, Last;
  TQuantity Volume = 0;
  TAmount Turnover = 0;

  void Add(const TMatch& trade);
  bool operator==(const TDayFigures&) const = default;
};

/// Hears what one or several instruments do. Called from within Enter, Change, Suspend and
/// AdvanceTo; must not call any of them, nor Cancel.
class TMarketListener {
public:
  virtual ~TMarketListener();
  virtual void Traded(const TInstrumentMarket& market, const TMatch& trade) = 0;
  /// The exchange took the order off the book: an at-auction order is left after the opening, the
  /// price is outside the closing auction's limits, a bid is above or an ask below the limits of
  /// the cooling-off that begins, or trading in the instrument is over for the day. Not called for
  /// what its owner cancels.
  virtual void Lapsed(const TInstrumentMarket& market, const TBookOrder& order) = 0;
};

/// One instrument at the exchange through one day: its book, auctions, volatility control and
/// figures. Limit orders that the opening auction leaves go on into the morning with their places
/// in the queue, and over lunch into the afternoon; at-auction orders lapse. At the close of the
/// afternoon an instrument without a closing auction is done; with one the book is kept while the
/// reference price is fixed, then what lies outside the auction's limits lapses and the rest takes
/// part with its places. At the end of the day every order lapses.
class TInstrumentMarket {
public:
  /// `grid`, `day` and `listener` outlive this. Begins at midnight.
  TInstrumentMarket(TInstrumentSettings settings, const TTickGrid& grid, const TTradingDay& day,
                    TMarketListener& listener);
  TInstrumentMarket(const TInstrumentMarket&) = delete;
  TInstrumentMarket& operator=(const TInstrumentMarket&) = delete;

  /// Lets the day go on to `time`; what the phases bring on the way happens at its own moment.
  /// An earlier time than Now() changes nothing.
  void AdvanceTo(TTimeOfDay time);

  /// All three act at Now().
  TEntryResult Enter(const TOrderEntry& entry);
  TRejection Cancel(TOrderId id);
  /// The order's price and open quantity become these. A smaller quantity alone keeps the place in
  /// the queue; everything else re-enters the order, under the same number, behind the others. A
  /// change that is rejected leaves the order as it was, unless the volatility control stops it
  /// halfway.
  TEntryResult Change(TOrderId id, TPrice price, TQuantity quantity);
  /// Ends trading in the instrument for the rest of the day: every order lapses, and none is
  /// accepted from now on.
  void Suspend();

  const TInstrumentSettings& Settings() const { return settings_; }
  const TOrderBook& Book() const { return book_; }
  const TDayFigures& Figures() const { return figures_; }
  TTimeOfDay Now() const { return now_; }
  /// Closed instead of an auction phase in which this instrument does not take part.
  TPhase Phase() const;

  /// In an auction the equilibrium price, else the reference price; while a book is published the
  /// best bid when it is above the last price, the best ask when it is below it; else the last
  /// price, and before the first trade the previous close; after the day the closing price. Empty
  /// when there is none of these.
  std::optional<TPrice> NominalPrice() const;
  /// Of the session with an auction that is on: in the opening the previous close, in the closing
  /// the median of the nominal prices of the last minute before it. Empty otherwise.
  std::optional<TPrice> ReferencePrice() const;
  /// Within which the auction that is on accepts prices: while orders are entered and withdrawn 15
  /// per cent (opening) or 5 (closing) around the reference price; later between the lowest ask and
  /// the highest bid of limit orders when that phase ended, whichever is higher, the former limit
  /// standing in for one that there was not. Never wider than the daily limits. Empty outside the
  /// auctions and without a reference.
  std::optional<TPriceLimits> AuctionLimits() const;
  /// Empty outside the auctions and when nothing would trade.
  std::optional<TEquilibrium> Equilibrium() const;
  /// Empty when none is in force.
  std::optional<TCoolingOff> CoolingOff() const;
  /// Once the day is over: the closing auction's price, else the reference price. An auction whose
  /// limit orders do not cross has no equilibrium; the closing one then matches at-auction orders
  /// at the reference price.
  std::optional<TPrice> ClosingPrice() const { return closingPrice_; }

private:
  TRejection CheckEntry(TQuantity quantity) const;
  TRejection CheckPrice(TSide side, TPrice price) const;
  std::optional<TPrice> FurthestPrice(TSide side) const;
  TEntryResult Place(const TOrderEntry& entry, TPrice price);
  TEntryResult Trade(const TOrderEntry& entry, TPrice price);
  void StartCoolingOff();
  void Report(const TMatch& trade);

  void Leave(TPhase phase);
  TPriceLimits LimitsAfterInput() const;
  void MatchAuction(TPrice price);
  void LapseAll();
  template <class TWhich> void LapseIf(const TWhich& which);
  void Close(std::optional<TPrice> price);
  void Lapse(TOrderId id);

  TInstrumentSettings settings_;
  const TTradingDay& day_;
  TMarketListener& listener_;
  TOrderBook book_;
  std::optional<TVolatilityControl> volatility_;
  TDayFigures figures_;
  TPriceFixing fixing_;
  TTimeOfDay now_{};
  const TPhaseSpan* span_;                 ///< at now_; where it has just ended, not yet left
  std::optional<TPriceLimits> lateLimits_; ///< of an auction once its input phase is over
  std::optional<TPrice> closingPrice_;
};

} // namespace Market
