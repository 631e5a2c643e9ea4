#include "market/Activity.h"

#include "market/Mathematics.h"

#include <algorithm>
#include <chrono>

namespace Market {
namespace {

double Seconds(TTimeOfDay time) { return static_cast<double>(time.count()) / 1e6; }

/// Falls from 1 to nothing within some minutes.
double Fading(double seconds, double minutes) { return Exp(-seconds / (60 * minutes)); }

/// DayProfile() is never above this.
constexpr double HighestProfile = 3.2;

} // namespace

double DayProfile(const TPhaseSpan& phase, TTimeOfDay time) {
  switch (phase.Phase) {
  case TPhase::OpeningInput:
    return 0.15 + 0.35 * Fading(Seconds(phase.End - time), 4);
  case TPhase::OpeningNoCancel:
  case TPhase::OpeningMatching:
    return 0.05;
  case TPhase::Morning:
    return 0.85 + 2.2 * Fading(Seconds(time - phase.Start), 15);
  case TPhase::Afternoon:
    return 0.8 + 0.4 * Fading(Seconds(time - phase.Start), 10) +
           1.4 * Fading(Seconds(phase.End - time), 15);
  case TPhase::ClosingInput:
    return 0.9;
  case TPhase::ClosingNoCancel:
  case TPhase::ClosingMatching:
    return 0.3;
  case TPhase::Closed:
  case TPhase::Blocking:
  case TPhase::Lunch:
  case TPhase::ReferenceFixing:
    break;
  }
  return 0;
}

TActivity::TActivity(double rate, const TTradingDay& day) : rate_(rate), day_(day) {}

void TActivity::Decay(double seconds) {
  for (std::size_t echo = 0; echo < std::size(Echoes); ++echo)
    excitation_[echo] *= Exp(-std::min(seconds / Echoes[echo].Seconds, 500.0));
}

double TActivity::Intensity(double profile) const {
  double spontaneous = 1;
  double intensity = 0;
  for (std::size_t echo = 0; echo < std::size(Echoes); ++echo) {
    spontaneous -= Echoes[echo].Children;
    intensity += excitation_[echo];
  }
  return intensity + spontaneous * rate_ * profile;
}

std::optional<TTimeOfDay> TActivity::Next(TTimeOfDay time, double liveliness, TRandom& random) {
  for (;;) {
    const TPhaseSpan& phase = day_.At(time);
    if (DayProfile(phase, time) == 0) {
      if (phase.End == time || day_.At(phase.End).Start == phase.Start)
        return std::nullopt;
      Decay(Seconds(phase.End - time));
      time = phase.End;
      continue;
    }
    const double bound = Intensity(HighestProfile * liveliness);
    const double wait = random.Exponential() / bound;
    const auto micros = TTimeOfDay(1 + static_cast<TTimeOfDay::rep>(wait * 1e6));
    if (time + micros >= phase.End) {
      Decay(Seconds(phase.End - time));
      time = phase.End;
      continue;
    }
    time += micros;
    Decay(Seconds(micros));
    if (random.Chance(Intensity(DayProfile(phase, time) * liveliness) / bound)) {
      for (std::size_t echo = 0; echo < std::size(Echoes); ++echo)
        excitation_[echo] += Echoes[echo].Children / Echoes[echo].Seconds;
      return time;
    }
  }
}

} // namespace Market
