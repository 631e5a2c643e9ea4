#include "feed/sources/Sources.h"

#include "feed/recording/RecordingKind.h"
#include "feed/simulation/SimulationKind.h"

#include <algorithm>

namespace Feed {

const std::vector<TSourceKind>& SourceKinds() {
  static const std::vector<TSourceKind> kinds{
      {.Options = {{ReplayOption, "FILE", "plays a recorded market instead of the simulated one"}},
       .MenuText = "Term_OpenRecording",
       .MenuKeys = "Ctrl+O",
       .Files = "*.jsonl",
       .Open = OpenRecording,
       .Read = ReadRecording},
      {.Options = {{SeedOption, "N", "which simulated day: the same number, the same day", IsSeed},
                   {StartOption, "HH:MM:SS",
                    "where in the simulated day to begin, 09:00:00 to 16:10:00", IsStart}},
       .MenuText = "Term_SimulatedMarket",
       .Open = OpenSimulation,
       .Read = ReadSimulation,
       .IsDefault = true},
  };
  return kinds;
}

const TSourceKind& DefaultSource() {
  return *std::ranges::find_if(SourceKinds(), &TSourceKind::IsDefault);
}

} // namespace Feed
