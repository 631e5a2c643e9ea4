#pragma once

#include "terminal/data/RecordChange.h"
#include "terminal/data/RecordingHeader.h"
#include "terminal/data/TimeOfDay.h"

#include <cstdint>

namespace Terminal {

/// One line of a recording after the header.
struct TRecordedEvent {
  TTimeOfDay Time{};
  TRecordChange Change;
};

/// A line that was skipped.
struct TMalformedLine {
  std::uint64_t Number = 0; ///< from 1
  std::string Sentence;     ///< what is wrong with it
};

} // namespace Terminal
