#include "feed/ReplayClock.h"

#include <cmath>

namespace Feed {

TTimeOfDay TReplayClock::At(TMoment now) const {
  if (!IsRunning)
    return Position;
  if (std::isinf(Speed))
    return TTimeOfDay::max();
  const std::chrono::duration<double, std::micro> elapsed = now - Moment;
  return Position + std::chrono::duration_cast<TTimeOfDay>(elapsed * Speed);
}

std::optional<TReplayClock::TMoment> TReplayClock::Due(TTimeOfDay time) const {
  if (!IsRunning)
    return time <= Position ? std::optional(Moment) : std::nullopt;
  const std::chrono::duration<double, std::micro> distance = time - Position;
  // Rounded up, so that At() of the result has reached the time.
  return Moment + std::chrono::ceil<TMoment::duration>(distance / Speed);
}

} // namespace Feed
