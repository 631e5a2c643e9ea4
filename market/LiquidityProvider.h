#pragma once

#include "market/InstrumentMarket.h"
#include "market/Listing.h"
#include "market/Random.h"

#include <functional>

namespace Market {

/// Value of a warrant or contract in thousandths of its currency unit, when its underlying stands
/// at `spot` (the same unit, above 0) on `date`. Warrant: F. Black, M. Scholes, Journal of
/// Political Economy 81 (1973), with the terms' volatility and a fixed rate. Contract: what lies
/// between spot and strike plus the cost of funding the strike until expiry, of which less is paid
/// the closer the call is; never below 0.
double FairValue(const TTerms& terms, double spot, std::chrono::year_month_day date);

/// Whether the underlying has traded at or beyond the call level, which ends the contract. Never
/// of a warrant.
bool IsCalled(const TTerms& terms, const TDayFigures& underlying);

/// Who keeps a market in one warrant or contract: in continuous trading quotes of large size on
/// both sides of the fair value, which are moved when the fair value has moved by a tick and
/// filled up when they have been traded. Quotes stand at several prices, the largest at the best.
/// Withdraws while the underlying has no two prices.
class TLiquidityProvider {
public:
  static constexpr int Levels = 5; ///< a side

  /// `instrument` is structured; it, `date`'s listing and `day` outlive this.
  TLiquidityProvider(const TInstrument& instrument, std::chrono::year_month_day date,
                     const TTradingDay& day, TRandom random);

  /// When it next looks; empty when it does not on this day.
  std::optional<TTimeOfDay> Due() const { return due_; }

  /// Looks at the underlying and puts the quotes in order. `market` has been advanced to Due().
  /// `newId` gives numbers for orders.
  void Act(TInstrumentMarket& market, const TInstrumentMarket& underlying,
           const std::function<TOrderId()>& newId);

  /// Of the last look, in thousandths; 0 before the first and while withdrawn.
  double Fair() const { return fair_; }

  /// Ticks between the best quotes.
  int Width() const { return instrument_.Kind == TInstrumentKind::Warrant ? 3 : 2; }

private:
  struct TQuote {
    TSide Side;
    TPrice Price;
    TQuantity Quantity;
    TOrderId Order; ///< 0: not entered yet
  };

  std::optional<TTimeOfDay> NextLook(TTimeOfDay time);
  std::vector<TQuote> QuotesAround(const TTickGrid& grid, double centre);
  void Replace(TInstrumentMarket& market, std::vector<TQuote> quotes);
  void PutInOrder(TInstrumentMarket& market, TQuote& quote, const std::function<TOrderId()>& newId);
  TPrice WithinReach(const TOrderBook& book, const TQuote& quote) const;

  const TInstrument& instrument_;
  std::chrono::year_month_day date_;
  const TTradingDay& day_;
  TRandom random_;
  std::optional<TTimeOfDay> due_;
  double fair_ = 0;
  double quotedAt_ = 0; ///< tick position of the fair value that the quotes stand around
  std::vector<TQuote> quotes_;
};

} // namespace Market
