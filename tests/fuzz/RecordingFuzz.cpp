// Any text as a recording: each of its lines is used or refused, whatever stands in it; what is
// used, and written again, reads back as the same; and from every checkpoint of the index the
// market comes to the same end.

#include "feed/Conflator.h"
#include "feed/recording/RecordingIndex.h"
#include "feed/recording/RecordingWriter.h"
#include "fuzz/Fuzz.h"

#include <unistd.h>

#include <algorithm>
#include <iterator>

namespace {

using namespace Feed;

const std::filesystem::path& Folder() {
  static const auto folder =
      std::filesystem::temp_directory_path() / ("fuzzed-recording-" + std::to_string(::getpid()));
  return folder;
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TRecordingSource Opened(const std::filesystem::path& path) {
  TRecordingSource source;
  Fuzz::Expect(!source.Open(path), "The recording does not open");
  return source;
}

struct TRecording {
  TReferenceData Header;
  std::vector<TRecordedEvent> Events;
  std::uint64_t Malformed = 0;
  std::uint64_t LastMalformed = 0; ///< its number

  void operator()(TReferenceData& header) { Header = std::move(header); }
  void operator()(TRecordedEvent& event) { Events.push_back(std::move(event)); }
  void operator()(const TMalformedLine& line) {
    Fuzz::Expect(line.Number > LastMalformed, "A line is refused out of order");
    LastMalformed = line.Number;
    ++Malformed;
  }
};

/// What stands from the source's place on.
TRecording Read(TRecordingSource& source) {
  TRecording recording;
  while (auto line = source.Next())
    std::visit(recording, *line);
  return recording;
}

TRecording Read(const std::filesystem::path& path) {
  TRecordingSource source = Opened(path);
  TRecording recording = Read(source);
  const std::string text = ReadFile(path);
  const auto breaks = std::count(text.begin(), text.end(), '\n');
  const bool hasLast = !text.empty() && text.back() != '\n';
  Fuzz::Expect(source.Place().Offset == text.size(), "Some of the recording was not read");
  Fuzz::Expect(source.Place().Lines == static_cast<std::uint64_t>(breaks + hasLast),
               "Lines are miscounted");
  return recording;
}

std::string Written(const TRecording& recording) {
  const auto path = Folder() / "written";
  TRecordingWriter writer;
  writer.Open(path, recording.Header);
  for (const auto& event : recording.Events)
    writer.Write(event.Time, event.Change);
  Fuzz::Expect(!writer.Close(), "The recording could not be written");
  return ReadFile(path);
}

/// The market after `start` and then `events`, as text.
std::string MarketAfter(const std::vector<TRecordChange>& start,
                        const std::vector<TRecordedEvent>& events) {
  TConflator market;
  for (const auto& change : start)
    market.Merge(change);
  for (const auto& event : events)
    market.Merge(event.Change);
  TRecording state;
  for (const auto& change : market.Take())
    state.Events.push_back({{}, change});
  return Written(state);
}

void CheckIndex(const std::filesystem::path& path, const TRecording& whole) {
  TRecordingSource source = Opened(path);
  const auto index = IndexRecording(
      source, [](std::uint64_t) { return true; }, 1);
  Fuzz::Expect(index->Events == whole.Events.size() && index->MalformedCount == whole.Malformed,
               "The index miscounts");
  const std::string end = MarketAfter({}, whole.Events);
  for (const auto& checkpoint : index->Checkpoints) {
    source.MoveTo(checkpoint.Place);
    const std::string reached = MarketAfter(checkpoint.State, Read(source).Events);
    Fuzz::Expect(reached == end, "A checkpoint leads elsewhere", end, reached);
  }
}

/// The parser alone, for lines that a source never hands on.
void CheckLine(const std::string& text) {
  static TRecordingParser parser;
  const std::string padded = text + std::string(TRecordingParser::Padding, '"');
  const auto parsed = parser.Parse(std::string_view(padded).substr(0, text.size()));
  if (const auto* event = std::get_if<TRecordedEvent>(&parsed))
    Fuzz::Expect(!event->Change.Symbol.empty(), "An event names no symbol");
}

} // namespace

void Fuzz::Start(int&, char**) {
  std::filesystem::create_directory(Folder());
  std::atexit([] { std::filesystem::remove_all(Folder()); });
}

void Fuzz::Check(const std::string& text) {
  CheckLine(text);
  const auto path = Folder() / "given";
  std::ofstream(path, std::ios::binary) << text;
  const TRecording recording = Read(path);
  const auto isEarlier = [](const auto& a, const auto& b) { return a.Time < b.Time; };
  Expect(std::is_sorted(recording.Events.begin(), recording.Events.end(), isEarlier),
         "The time goes back");
  CheckIndex(path, recording);

  const std::string written = Written(recording);
  const TRecording read = Read(Folder() / "written");
  Expect(read.Malformed == 0, "What was written is refused", written);
  Expect(read.Header == recording.Header, "The header changes", written);
  const std::string again = Written(read);
  Expect(again == written, "What was written does not read as itself", written, again);
  Expect(MarketAfter({}, read.Events) == MarketAfter({}, recording.Events), "The market changes",
         written);
}
