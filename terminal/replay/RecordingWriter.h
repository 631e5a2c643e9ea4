#pragma once

#include "terminal/replay/Recording.h"

#include <filesystem>
#include <fstream>

namespace Terminal {

/// Writes a recording. A change with several trades becomes several lines of the same time, since
/// a line holds one.
class RecordingWriter {
public:
  /// Creates the file, or empties it, and writes the header. Empty when that worked; otherwise what
  /// is wrong, in one sentence.
  std::string Open(const std::filesystem::path& path, const TRecordingHeader& header);

  /// A time before the last one, as after a clock was set back, is written as the last one: a
  /// recording is in order of time. A change without a symbol is not written.
  void Write(TTimeOfDay time, const TRecordChange& change);

  /// Empty when every line reached the file; otherwise what is wrong, in one sentence.
  std::string Close();

private:
  std::ofstream file_;
  TTimeOfDay lastTime_{};
};

} // namespace Terminal
