#pragma once

#include "feed/MarketIndex.h"
#include "feed/recording/RecordingParser.h"

#include <filesystem>
#include <fstream>
#include <optional>

namespace Feed {

/// One line of a recording that is not blank.
using TRecordingLine = std::variant<TReferenceData, TRecordedEvent, TMalformedLine>;

/// Reads a recording's lines from front to back in bounded memory. Moveable, not copyable.
///
/// Malformed are, beside what the parser says: a header after the first line, a line longer than
/// MaximumLine, and an event earlier than the one before.
class TRecordingSource {
public:
  static constexpr std::size_t MaximumLine = 4u << 20; ///< bytes

  /// A place between two lines, to come back to.
  struct TPlace {
    std::uint64_t Offset = 0; ///< bytes
    std::uint64_t Lines = 0;  ///< before this place
    TTimeOfDay Time{};        ///< of the last event before this place
    bool HasContent = false;  ///< there was a line before this place that is not blank
  };

  /// Empty when the file could be opened.
  std::optional<Data::TProblem> Open(const std::filesystem::path& path);

  /// The next line; empty at the end of the file.
  std::optional<TRecordingLine> Next();

  TPlace Place() const { return place_; }
  void MoveTo(const TPlace& place);
  std::uint64_t Size() const { return size_; } ///< of the file when it was opened, in bytes

private:
  std::optional<std::string_view> NextText();
  void SkipLongLine();
  bool Fill();
  void Consume(std::size_t bytes);
  TRecordingLine Judge(TParsedLine parsed);

  std::ifstream file_;
  std::uint64_t size_ = 0;
  TPlace place_;
  std::vector<char> buffer_; ///< with the padding that the parser asks for
  std::size_t begin_ = 0;    ///< unread bytes of the buffer
  std::size_t end_ = 0;
  TRecordingParser parser_;
};

} // namespace Feed
