#include "feed/recording/RecordingIndex.h"

#include "feed/Conflator.h"

#include <algorithm>

namespace Feed {

namespace {

constexpr std::uint64_t MaximumCheckpoints = 16;

/// Builds the index line by line.
class TIndexBuilder {
public:
  explicit TIndexBuilder(std::uint64_t spacing) : spacing_(spacing) {
    index_.Checkpoints.emplace_back();
  }

  void operator()(TReferenceData& header) { index_.Header = std::move(header); }

  void operator()(TRecordedEvent& event) {
    if (index_.Events++ == 0)
      index_.Start = event.Time;
    index_.End = event.Time;
    market_.Merge(std::move(event.Change));
  }

  void operator()(TMalformedLine& line) {
    ++index_.MalformedCount;
    if (index_.Malformed.size() < TRecordingIndex::MaximumMalformed)
      index_.Malformed.push_back(std::move(line));
  }

  void EndLine(const TRecordingSource::TPlace& place) {
    if (place.Offset - index_.Checkpoints.back().Place.Offset >= spacing_)
      index_.Checkpoints.push_back({place, market_.Changes()});
  }

  TRecordingIndex Result(std::uint64_t lines) {
    index_.Lines = lines;
    return std::move(index_);
  }

private:
  std::uint64_t spacing_;
  TRecordingIndex index_;
  TConflator market_;
};

} // namespace

std::optional<TRecordingIndex> IndexRecording(TRecordingSource& source,
                                              const std::function<bool(std::uint64_t)>& goOn,
                                              std::uint64_t spacing) {
  TIndexBuilder builder(std::max(spacing, source.Size() / MaximumCheckpoints));
  while (auto line = source.Next()) {
    std::visit(builder, *line);
    builder.EndLine(source.Place());
    if (!goOn(source.Place().Offset))
      return std::nullopt;
  }
  return builder.Result(source.Place().Lines);
}

const TRecordingIndex::TCheckpoint& CheckpointFor(const TRecordingIndex& index, TTimeOfDay time) {
  const auto later = [](TTimeOfDay moment, const TRecordingIndex::TCheckpoint& checkpoint) {
    return moment < checkpoint.Place.Time;
  };
  const auto after =
      std::upper_bound(index.Checkpoints.begin() + 1, index.Checkpoints.end(), time, later);
  return *std::prev(after);
}

} // namespace Feed
