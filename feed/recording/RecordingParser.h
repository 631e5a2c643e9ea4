#pragma once

#include "data/Problem.h"
#include "feed/recording/RecordedEvent.h"

#include <memory>
#include <variant>

namespace simdjson::dom {
class parser;
}

namespace Feed {

/// What a line says, or why it cannot be used.
using TParsedLine = std::variant<TReferenceData, TRecordedEvent, Data::TProblem>;

/// Decodes single lines of a recording. A line is used as a whole or not at all; members that are
/// not known are ignored. Keeps its buffers from line to line; moveable, not copyable.
class TRecordingParser {
public:
  /// Bytes that must be readable behind a line given to Parse.
  static constexpr std::size_t Padding = 64;
  static constexpr int Version = 1;

  TRecordingParser();
  TRecordingParser(TRecordingParser&&) noexcept;
  TRecordingParser& operator=(TRecordingParser&&) noexcept;
  ~TRecordingParser();

  /// `line` without its line break, with Padding readable bytes of any content behind it.
  TParsedLine Parse(std::string_view line);

private:
  std::unique_ptr<simdjson::dom::parser> parser_;
};

} // namespace Feed
