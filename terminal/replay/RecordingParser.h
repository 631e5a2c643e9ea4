#pragma once

#include "terminal/replay/Recording.h"

#include <memory>
#include <variant>

namespace simdjson::dom {
class parser;
}

namespace Terminal {

/// Why a line cannot be used, in one sentence.
struct TParseError {
  std::string Sentence;
};

using TParsedLine = std::variant<TRecordingHeader, TRecordedEvent, TParseError>;

/// Decodes single lines of a recording. A line is used as a whole or not at all; members that are
/// not known are ignored. Keeps its buffers from line to line; moveable, not copyable.
class RecordingParser {
public:
  /// Bytes that must be readable behind a line given to Parse.
  static constexpr std::size_t Padding = 64;
  static constexpr int Version = 1;

  RecordingParser();
  RecordingParser(RecordingParser&&) noexcept;
  RecordingParser& operator=(RecordingParser&&) noexcept;
  ~RecordingParser();

  /// `line` without its line break, with Padding readable bytes of any content behind it.
  TParsedLine Parse(std::string_view line);

private:
  std::unique_ptr<simdjson::dom::parser> parser_;
};

} // namespace Terminal
