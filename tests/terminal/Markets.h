#pragma once

#include "feed/sources/Sources.h"
#include "terminal/services/MarketPlayer.h"

// Markets for a player to play, as the command line would ask for them.
namespace Markets {

/// The kind that the option asks for.
inline const Feed::TSourceKind& KindOf(const std::string& option) {
  for (const auto& kind : Feed::SourceKinds())
    if (kind.Options.front().Name == option)
      return kind;
  throw std::invalid_argument(option);
}

inline std::optional<Data::TProblem> Open(Terminal::TMarketPlayer& player,
                                          const QString& recording) {
  return player.Open(KindOf("--replay"), {{"--replay", recording.toStdString()}});
}

inline Feed::TSourceOptions Simulation(std::uint64_t seed, Text::TTimeOfDay start) {
  return {{"--seed", std::to_string(seed)}, {"--start", Text::TimeOfDayText(start)}};
}

inline void Simulate(Terminal::TMarketPlayer& player, std::uint64_t seed, Text::TTimeOfDay start) {
  player.Open(Feed::DefaultSource(), Simulation(seed, start));
}

} // namespace Markets
