#pragma once

#include "market/MarketTypes.h"

#include <optional>
#include <vector>

namespace Market {

/// The median of the five nominal prices taken every 15 seconds of the last minute of continuous
/// trading, the last at its end.
class TPriceFixing {
public:
  /// `end`: of continuous trading.
  explicit TPriceFixing(TTimeOfDay end) : end_(end) {}

  /// When the next price is to be taken; empty when all were.
  std::optional<TTimeOfDay> NextSample() const;
  /// The nominal price at NextSample(), empty when there is none.
  void Observe(std::optional<TPrice> nominal);
  /// The median of the prices taken, of an even number the lower middle one. Empty until all were
  /// asked for, and when there was none.
  std::optional<TPrice> Price() const;

private:
  static constexpr int Samples = 5;

  TTimeOfDay end_;
  int asked_ = 0;
  std::vector<TPrice> prices_; ///< ascending
};

} // namespace Market
