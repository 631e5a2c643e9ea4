#include "terminal/start/SimulationRecording.h"

#include "feed/recording/RecordingWriter.h"

namespace Terminal {

std::string RecordSimulation(const Feed::TSimulation& simulation, Text::TTimeOfDay length,
                             const std::filesystem::path& file) {
  Market::TSimulatedMarket market(simulation.Seed);
  Feed::TRecordingWriter writer;
  if (auto error = writer.Open(file, market.Header()); !error.empty())
    return error;
  const Text::TTimeOfDay end = std::min(simulation.Start + length, Market::DayEnd);
  for (Text::TTimeOfDay moment = simulation.Start; moment <= end; moment = market.NextMoment()) {
    market.AdvanceTo(moment);
    for (const Data::TRecordChange& change : market.TakeChanges())
      writer.Write(moment, change);
  }
  return writer.Close();
}

} // namespace Terminal
