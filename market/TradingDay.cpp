#include "market/TradingDay.h"

#include <algorithm>
#include <random>

namespace Market {

using namespace std::chrono_literals;

namespace {

constexpr TTimeOfDay RandomPeriod = 2min;

/// A moment of the two minutes from `start`, never the very start: it ends a phase that has begun.
TTimeOfDay RandomEnd(TTimeOfDay start, std::mt19937_64& random) {
  const auto moments = static_cast<std::uint64_t>(RandomPeriod.count());
  return start + TTimeOfDay(1 + random() % moments);
}

} // namespace

TTradingDay::TTradingDay(std::uint64_t seed) {
  std::mt19937_64 random(seed);
  const TTimeOfDay opening = RandomEnd(9h + 20min, random);
  const TTimeOfDay closing = RandomEnd(16h + 8min, random);
  spans_ = {{
      {TPhase::Closed, 0h, 9h},
      {TPhase::OpeningInput, 9h, 9h + 15min},
      {TPhase::OpeningNoCancel, 9h + 15min, 9h + 20min},
      {TPhase::OpeningMatching, 9h + 20min, opening},
      {TPhase::Blocking, opening, 9h + 30min},
      {TPhase::Morning, 9h + 30min, 12h},
      {TPhase::Lunch, 12h, 13h},
      {TPhase::Afternoon, 13h, 16h},
      {TPhase::ReferenceFixing, 16h, 16h + 1min},
      {TPhase::ClosingInput, 16h + 1min, 16h + 6min},
      {TPhase::ClosingNoCancel, 16h + 6min, 16h + 8min},
      {TPhase::ClosingMatching, 16h + 8min, closing},
      {TPhase::Closed, closing, TTimeOfDay::max()},
  }};
}

const TPhaseSpan& TTradingDay::At(TTimeOfDay time) const {
  const auto next = std::upper_bound(
      spans_.begin() + 1, spans_.end(), time,
      [](TTimeOfDay moment, const TPhaseSpan& span) { return moment < span.Start; });
  return *std::prev(next);
}

const TPhaseSpan& TTradingDay::SpanOf(TPhase phase) const {
  return *std::find_if(spans_.begin(), spans_.end(),
                       [phase](const TPhaseSpan& span) { return span.Phase == phase; });
}

std::optional<TTimeOfDay> TTradingDay::NextStart(TPhase phase, TTimeOfDay time) const {
  for (const TPhaseSpan& span : spans_)
    if (span.Phase == phase && span.Start > time)
      return span.Start;
  return std::nullopt;
}

} // namespace Market
