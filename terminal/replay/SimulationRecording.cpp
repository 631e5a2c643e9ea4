#include "terminal/replay/SimulationRecording.h"

#include "terminal/replay/RecordingWriter.h"

namespace Terminal {

std::string RecordSimulation(const TSimulation& simulation, TTimeOfDay length,
                             const std::filesystem::path& file) {
  Market::TSimulatedMarket market(simulation.Seed);
  RecordingWriter writer;
  if (auto error = writer.Open(file, market.Header()); !error.empty())
    return error;
  const TTimeOfDay end = std::min(simulation.Start + length, Market::DayEnd);
  for (TTimeOfDay moment = simulation.Start; moment <= end; moment = market.NextMoment()) {
    market.AdvanceTo(moment);
    for (const TRecordChange& change : market.TakeChanges())
      writer.Write(moment, change);
  }
  return writer.Close();
}

} // namespace Terminal
