#pragma once

#include "market/Random.h"
#include "market/TradingDay.h"

namespace Market {

/// How much livelier than on average the market is at this moment; 0 when it takes no orders. More
/// happens at the open and towards the close than at midday.
double DayProfile(const TPhaseSpan& phase, TTimeOfDay time);

/// The moments at which the participants in one instrument act: a Hawkes process (A. G. Hawkes,
/// Biometrika 58, 1971), in which every act makes more acts likely for some seconds, so that they
/// come in bursts with quiet spells between. Moments are drawn by thinning (Y. Ogata, IEEE
/// Transactions on Information Theory 27, 1981).
class TActivity {
public:
  /// `rate`: acts a second where DayProfile() is 1; `day` outlives this.
  TActivity(double rate, const TTradingDay& day);

  /// The moment after `time` at which somebody next acts, with `liveliness` times the rate; empty
  /// when nobody does on this day.
  std::optional<TTimeOfDay> Next(TTimeOfDay time, double liveliness, TRandom& random);

private:
  /// Acts that acts bring about, and how long it takes.
  struct TEcho {
    double Children; ///< of one act, on average
    double Seconds;  ///< mean delay
  };
  static constexpr TEcho Echoes[] = {{0.35, 0.3}, {0.35, 20}};

  void Decay(double seconds);
  double Intensity(double profile) const; ///< in acts a second

  double rate_;
  const TTradingDay& day_;
  double excitation_[2] = {}; ///< by echo, in acts a second
};

} // namespace Market
