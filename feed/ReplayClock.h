#pragma once

#include "feed/FeedTypes.h"

namespace Feed {

/// Recorded time as a function of real time. Plain arithmetic: the caller brings the moment.
struct TReplayClock {
  using TMoment = std::chrono::steady_clock::time_point;

  TTimeOfDay Position{}; ///< at Moment
  TMoment Moment{};
  double Speed = 1; ///< above 0; may be infinite
  bool IsRunning = false;

  /// TTimeOfDay::max() when running at infinite speed.
  TTimeOfDay At(TMoment now) const;
  /// When `time` will be or was reached; empty when a stopped clock will not reach it.
  std::optional<TMoment> Due(TTimeOfDay time) const;
};

} // namespace Feed
