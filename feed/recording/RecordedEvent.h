#pragma once

#include "feed/FeedTypes.h"

namespace Feed {

/// One line of a recording after the header.
struct TRecordedEvent {
  TTimeOfDay Time{};
  TRecordChange Change;
};

} // namespace Feed
