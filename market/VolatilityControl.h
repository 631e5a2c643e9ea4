#pragma once

#include "market/PriceLimits.h"
#include "market/TradingDay.h"

#include <deque>
#include <optional>

namespace Market {

/// Five minutes in which an instrument trades within limits only.
struct TCoolingOff {
  TTimeOfDay Start{};
  TTimeOfDay End{};
  TPrice Reference = 0;
  TPriceLimits Limits;
  bool operator==(const TCoolingOff&) const = default;
};

/// The volatility control of one instrument. It watches in continuous trading, from 15 minutes
/// after the start of each session, in the afternoon until 20 minutes before its end. A cooling-off
/// that begins late in the morning ends with it. After one the control watches again, so that
/// there may be several a session.
class TVolatilityControl {
public:
  /// A price may move by `percent` of the reference, 1 to 99. `day` and `grid` outlive this.
  TVolatilityControl(const TTradingDay& day, const TTickGrid& grid, int percent);

  /// Every trade of the day in order, those of the auctions too.
  void AddTrade(TTimeOfDay time, TPrice price);

  /// Price of the last trade at or before five minutes ago; empty when the day had none yet, and
  /// then there is nothing to measure a move against. Times do not go back.
  std::optional<TPrice> Reference(TTimeOfDay now);
  /// Within what a trade may be: the limits of the cooling-off in force, else those whose breach
  /// would start one; empty when any price may trade.
  std::optional<TPriceLimits> Limits(TTimeOfDay now);
  /// Empty when none is in force.
  std::optional<TCoolingOff> CoolingOff(TTimeOfDay now) const;
  /// A trade would have broken Limits(now), which are not empty, and none is in force: the
  /// cooling-off begins.
  void Trigger(TTimeOfDay now);

private:
  struct TLastPrice {
    TTimeOfDay Since{};
    TPrice Price = 0;
  };

  bool IsWatching(TTimeOfDay now) const;

  const TTradingDay& day_;
  const TTickGrid& grid_;
  int percent_;
  /// The last price five minutes ago, first, and its changes since.
  std::deque<TLastPrice> prices_;
  std::optional<TCoolingOff> coolingOff_; ///< the latest, over or not
};

} // namespace Market
