#pragma once

#include "feed/SourceKind.h"

// Simulated markets, as the table of sources has them.
namespace Feed {

inline constexpr const char* SeedOption = "--seed";
inline constexpr const char* StartOption = "--start";

bool IsSeed(const std::string& value);
/// A moment of the simulated day.
bool IsStart(const std::string& value);
/// What is not given is as TSimulation has it.
TOpenedSource OpenSimulation(const TSourceOptions& options, std::function<void()> wake);
/// From the simulation's start on.
TOpenedStream ReadSimulation(const TSourceOptions& options);

} // namespace Feed
