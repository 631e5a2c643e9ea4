#include "market/SimulatedMarket.h"

#include <benchmark/benchmark.h>

// The whole simulated market through its liveliest hour, at the pace of a clock at 200 times speed
// that publishes 50 times a second, and beside it the same hour without anything published. At that
// speed the market takes 200 / times_real_time of one core.

namespace Market {

namespace {

using namespace std::chrono_literals;

constexpr std::uint64_t Seed = 700;
constexpr int Speed = 200;
constexpr TTimeOfDay Publication = 20ms * Speed;
constexpr TTimeOfDay From = 9h + 30min;
constexpr TTimeOfDay To = From + 1h;

enum class TPublishing { None, EveryChange };

void Run(benchmark::State& state, TPublishing publishing) {
  std::size_t texts = 0;
  for (auto _ : state) {
    state.PauseTiming();
    TSimulatedMarket market(Seed);
    market.AdvanceTo(From);
    market.TakeChanges();
    state.ResumeTiming();
    for (TTimeOfDay time = From; time <= To; time += Publication) {
      market.AdvanceTo(time);
      if (publishing == TPublishing::EveryChange)
        for (const auto& change : market.TakeChanges())
          texts += change.Fields.size();
    }
  }
  const double simulated =
      std::chrono::duration<double>(To - From).count() * static_cast<double>(state.iterations());
  state.SetItemsProcessed(static_cast<std::int64_t>(texts));
  state.counters["times_real_time"] = benchmark::Counter(simulated, benchmark::Counter::kIsRate);
}

void MarketUnpublished(benchmark::State& state) { Run(state, TPublishing::None); }
void MarketPublished(benchmark::State& state) { Run(state, TPublishing::EveryChange); }

/// How many orders, cancellations and phase changes that hour has.
void MarketMomentByMoment(benchmark::State& state) {
  std::int64_t moments = 0;
  for (auto _ : state) {
    state.PauseTiming();
    TSimulatedMarket market(Seed);
    market.AdvanceTo(From);
    state.ResumeTiming();
    for (; market.NextMoment() <= To; ++moments)
      market.AdvanceTo(market.NextMoment());
  }
  state.SetItemsProcessed(moments);
}

BENCHMARK(MarketUnpublished)->Unit(benchmark::kMillisecond);
BENCHMARK(MarketPublished)->Unit(benchmark::kMillisecond);
BENCHMARK(MarketMomentByMoment)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Market
