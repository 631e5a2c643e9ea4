#pragma once

#include "data/Problem.h"
#include "feed/FeedTypes.h"

#include <cstdint>
#include <vector>

namespace Feed {

/// A line that was skipped.
struct TMalformedLine {
  std::uint64_t Number = 0; ///< from 1
  Data::TProblem Problem;
};

/// What is known of a market before it is played.
struct TMarketIndex {
  static constexpr std::size_t MaximumMalformed = 1000;

  TReferenceData Header; ///< empty when the market has none
  TTimeOfDay Start{};    ///< of the first event; zero when there is none
  TTimeOfDay End{};      ///< of the last
  // Of a recording; nothing of a market that is not read line by line.
  std::uint64_t Events = 0;
  std::uint64_t Lines = 0; ///< blank ones and the header included
  std::uint64_t MalformedCount = 0;
  std::vector<TMalformedLine> Malformed; ///< the first MaximumMalformed of them
};

} // namespace Feed
