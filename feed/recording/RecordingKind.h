#pragma once

#include "feed/SourceKind.h"

// Recordings, as the table of sources has them.
namespace Feed {

inline constexpr const char* ReplayOption = "--replay"; ///< the recording's file

TOpenedSource OpenRecording(const TSourceOptions& options, std::function<void()> wake);
TOpenedStream ReadRecording(const TSourceOptions& options);

} // namespace Feed
