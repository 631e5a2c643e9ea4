#include "feed/recording/RecordingKind.h"

#include "feed/recording/RecordingReader.h"

#include <utility>

namespace Feed {

TOpenedSource OpenRecording(const TSourceOptions& options, std::function<void()> wake) {
  TRecordingSource source;
  if (auto problem = source.Open(ValueOf(options, ReplayOption)))
    return *std::move(problem);
  return std::make_unique<TRecordingReader>(std::move(source), std::move(wake));
}

/// One event is one moment.
TOpenedStream ReadRecording(const TSourceOptions& options) {
  const auto source = std::make_shared<TRecordingSource>();
  if (auto problem = source->Open(ValueOf(options, ReplayOption)))
    return *std::move(problem);
  auto line = source->Next();
  auto* const header = line ? std::get_if<TReferenceData>(&*line) : nullptr;
  const auto next = [source, line]() mutable -> std::optional<TChangeStream::TMoment> {
    while (auto now = std::exchange(line, source->Next()))
      if (auto* const event = std::get_if<TRecordedEvent>(&*now))
        return TChangeStream::TMoment{event->Time, {std::move(event->Change)}};
    return std::nullopt;
  };
  return TChangeStream{header ? std::move(*header) : TReferenceData(), next};
}

} // namespace Feed
