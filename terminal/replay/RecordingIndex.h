#pragma once

#include "terminal/replay/RecordingSource.h"

#include <functional>

namespace Terminal {

/// What a first pass over a recording finds.
struct TRecordingIndex {
  static constexpr std::size_t MaximumMalformed = 1000;

  /// The whole market as all lines before a place have made it: one change per symbol, removals
  /// included.
  struct TCheckpoint {
    RecordingSource::TPlace Place;
    std::vector<TRecordChange> State;
  };

  TRecordingHeader Header; ///< empty when the recording has none
  TTimeOfDay Start{};      ///< of the first event; zero when there is none
  TTimeOfDay End{};        ///< of the last
  std::uint64_t Events = 0;
  std::uint64_t Lines = 0; ///< blank ones and the header included
  std::uint64_t MalformedCount = 0;
  std::vector<TMalformedLine> Malformed; ///< the first MaximumMalformed of them
  /// Sparse, in order; the first is the beginning of the recording.
  std::vector<TCheckpoint> Checkpoints;
};

/// The last checkpoint that holds no event later than `time`.
const TRecordingIndex::TCheckpoint& CheckpointFor(const TRecordingIndex& index, TTimeOfDay time);

/// Reads `source` from its place to the end. `goOn` is called with the bytes read so far after each
/// line; when it answers false, the result is empty. Checkpoints lie at least `spacing` bytes and a
/// sixteenth of the file apart.
std::optional<TRecordingIndex> IndexRecording(RecordingSource& source,
                                              const std::function<bool(std::uint64_t)>& goOn,
                                              std::uint64_t spacing = 4u << 20);

} // namespace Terminal
