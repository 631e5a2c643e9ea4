#pragma once

#include "feed/simulation/SimulationReader.h"

#include <filesystem>

namespace Terminal {

/// Writes `length` of a simulated day from its start on into a recording: first everything as it
/// stands, then every change at its moment. Empty when that worked; otherwise what is wrong, in one
/// sentence.
std::string RecordSimulation(const Feed::TSimulation& simulation, Text::TTimeOfDay length,
                             const std::filesystem::path& file);

} // namespace Terminal
