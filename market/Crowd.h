#pragma once

#include "market/FairValues.h"
#include "market/LiquidityProvider.h"
#include "market/OrderFlow.h"

#include <functional>

namespace Market {

/// How the instrument is to be traded.
TInstrumentSettings SettingsOf(const TListing& listing, const TInstrument& instrument);

/// Everybody but the user: order flow and liquidity providers of all instruments, in one order of
/// time. The same listing, day and seed bring the same orders as long as nobody else trades.
///
///   while (crowd.NextDue() <= until)
///     crowd.Act();
class TCrowd {
public:
  /// `markets` stand in the listing's order; null where an instrument does not trade at all. All
  /// arguments outlive this.
  TCrowd(const TListing& listing, const TTradingDay& day,
         std::span<TInstrumentMarket* const> markets, std::uint64_t seed);

  /// TTimeOfDay::max() when nobody will act again on this day.
  TTimeOfDay NextDue() const;
  /// What is done at NextDue(). Advances the one market that it is done in to that moment.
  /// Returns the instrument's position in the listing.
  std::size_t Act();

  /// Ends trading in the contracts on the instrument at this position that are called by what it
  /// has traded at until `now`; nobody acts in them again. Returns their positions.
  std::vector<std::size_t> SuspendCalled(std::size_t underlying, TTimeOfDay now);

  /// The news of the day in order of time: each brings about a cooling-off within a minute or so.
  std::span<const TShock> Shocks() const { return shocks_; }

  /// A number for an order that no other order of this day has; for the user's orders too.
  TOrderId NewOrderId() { return ++lastOrder_; }

private:
  struct TTurn {
    TTimeOfDay Due{};
    std::size_t Actor; ///< instrument position; beyond the listing's size: its liquidity provider
    bool operator>(const TTurn& other) const;
  };

  void Schedule(std::size_t actor, std::optional<TTimeOfDay> due);
  double FairOf(std::size_t instrument) const;

  const TListing& listing_;
  std::vector<TInstrumentMarket*> markets_;
  std::vector<TShock> shocks_;
  TFairValues fairValues_;
  TBrokerDraw brokers_;
  std::vector<std::optional<TOrderFlow>> flows_;             ///< by position
  std::vector<std::optional<TLiquidityProvider>> providers_; ///< by position
  std::vector<std::size_t> references_; ///< position of underlying or counterpart, or own
  std::vector<TTurn> turns_;            ///< a heap, earliest first
  TOrderId lastOrder_ = 0;
};

} // namespace Market
