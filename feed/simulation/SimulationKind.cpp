#include "feed/simulation/SimulationKind.h"

#include "feed/simulation/SimulationReader.h"
#include "market/SimulatedMarket.h"
#include "text/Numbers.h"

namespace Feed {

namespace {

std::optional<std::uint64_t> Seed(const std::string& text) {
  return Text::ParseWhole<std::uint64_t>(text);
}

std::optional<TTimeOfDay> Start(const std::string& text) {
  const auto time = Text::ParseTimeOfDay(text);
  return time && *time >= Market::DayStart && *time <= Market::DayEnd ? time : std::nullopt;
}

TSimulation SimulationOf(const TSourceOptions& options) {
  return {Seed(ValueOf(options, SeedOption)).value_or(TSimulation::DefaultSeed),
          Start(ValueOf(options, StartOption)).value_or(TSimulation::DefaultStart)};
}

} // namespace

bool IsSeed(const std::string& value) { return Seed(value).has_value(); }
bool IsStart(const std::string& value) { return Start(value).has_value(); }

TOpenedSource OpenSimulation(const TSourceOptions& options, std::function<void()> wake) {
  return std::make_unique<TSimulationReader>(SimulationOf(options), std::move(wake));
}

TOpenedStream ReadSimulation(const TSourceOptions& options) {
  const auto [seed, start] = SimulationOf(options);
  const auto market = std::make_shared<Market::TSimulatedMarket>(seed);
  const auto next = [market, at = start]() mutable -> std::optional<TChangeStream::TMoment> {
    if (at > Market::DayEnd)
      return std::nullopt;
    market->AdvanceTo(at);
    TChangeStream::TMoment moment{at, market->TakeChanges()};
    at = market->NextMoment();
    return moment;
  };
  return TChangeStream{market->Header(), next};
}

} // namespace Feed
