#pragma once

#include "data/Problem.h"
#include "feed/SourceKind.h"

#include <filesystem>
#include <fstream>
#include <optional>

namespace Feed {

/// Writes a recording. A change with several trades becomes several lines of the same time, since
/// a line holds one.
class TRecordingWriter {
public:
  /// Creates the file, or empties it, and writes the header. Empty when that worked.
  std::optional<Data::TProblem> Open(const std::filesystem::path& path,
                                     const TReferenceData& header);

  /// A time before the last one, as after a clock was set back, is written as the last one: a
  /// recording is in order of time. A change without a symbol is not written.
  void Write(TTimeOfDay time, const TRecordChange& change);

  /// Empty when every line reached the file.
  std::optional<Data::TProblem> Close();

private:
  std::ofstream file_;
  TTimeOfDay lastTime_{};
};

/// Records `length` of a market from its first moment on. Empty when everything is in the file.
std::optional<Data::TProblem> WriteRecording(const TChangeStream& market, TTimeOfDay length,
                                             const std::filesystem::path& path);

} // namespace Feed
