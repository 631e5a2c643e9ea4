#pragma once

#include "market/Listing.h"
#include "market/Random.h"

#include <span>

namespace Market {

/// News that moves one share beyond what its volatility control lets pass.
struct TShock {
  TTimeOfDay Time{};          ///< when the fair value begins to move
  std::size_t Instrument = 0; ///< position in the listing
  double LogMove = 0;         ///< of the fair value
  TTimeOfDay Length{};        ///< until it has moved so far
  double Lasting = 1;         ///< part of the move that stays when second thoughts have come
};

/// The shocks of the day in order of time: one or two, on shares under volatility control, most
/// of them middling companies, and each share at most once, while the control watches.
std::vector<TShock> PlanShocks(const TListing& listing, std::uint64_t seed);

/// What the instruments that are no derivatives of others are worth: logarithms walk at random,
/// partly together, with a volatility that itself comes and goes in seconds and in hours and is
/// highest after the open. A shock of a share moves the funds that hold it, too. The market only
/// sees what its participants make of it. The path follows from listing, seed and shocks; nobody's
/// orders change it.
class TFairValues {
public:
  TFairValues(const TListing& listing, std::span<const TShock> shocks, std::uint64_t seed);

  /// Lets the values go on to `time`; an earlier one changes nothing.
  void AdvanceTo(TTimeOfDay time);

  /// Of the instrument at this position of the listing, in thousandths of its currency unit.
  double Of(std::size_t instrument) const { return values_[instrument]; }
  /// How lively the instrument is made by the day, its volatility and by news; 1 on average.
  double Liveliness(std::size_t instrument) const { return liveliness_[instrument]; }

private:
  /// A logarithm that walks with a volatility of its own.
  struct TWalk {
    double Log = 0;
    double Fast = 0, Slow = 0; ///< parts of the logarithm of the volatility
    double Scale = 1;          ///< of the volatility; its square is 1 on average

    void Step(TRandom& random, double deviation);
  };

  void Step();
  double ShockedBy(std::size_t instrument, TTimeOfDay time) const;
  double Excitement(std::size_t instrument, TTimeOfDay time) const;

  const TListing& listing_;
  std::vector<TShock> shocks_;
  TRandom random_;
  TTimeOfDay now_;
  TWalk mood_;                   ///< of the whole market
  std::vector<TWalk> walks_;     ///< by position in the listing
  std::vector<double> start_;    ///< fair value as the day begins
  std::vector<double> interest_; ///< how lively this day is for each, 1 on average
  std::vector<double> values_;
  std::vector<double> liveliness_;
};

} // namespace Market
