#pragma once

#include "feed/recording/RecordingSource.h"

#include <functional>

namespace Feed {

/// What a first pass over a recording finds.
struct TRecordingIndex : TMarketIndex {
  /// The whole market as all lines before a place have made it: one change per symbol, removals
  /// included.
  struct TCheckpoint {
    TRecordingSource::TPlace Place;
    std::vector<TRecordChange> State;
  };

  /// Sparse, in order; the first is the beginning of the recording.
  std::vector<TCheckpoint> Checkpoints;
};

/// The last checkpoint that holds no event later than `time`.
const TRecordingIndex::TCheckpoint& CheckpointFor(const TRecordingIndex& index, TTimeOfDay time);

/// Reads `source` from its place to the end. `goOn` is called with the bytes read so far after each
/// line; when it answers false, the result is empty. Checkpoints lie at least `spacing` bytes and a
/// sixteenth of the file apart.
std::optional<TRecordingIndex> IndexRecording(TRecordingSource& source,
                                              const std::function<bool(std::uint64_t)>& goOn,
                                              std::uint64_t spacing = 4u << 20);

} // namespace Feed
