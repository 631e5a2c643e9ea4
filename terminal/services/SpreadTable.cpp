#include "terminal/services/SpreadTable.h"

#include <algorithm>
#include <cmath>

namespace Terminal {

namespace {

constexpr double UnitsPerCurrencyUnit = 1e8;
constexpr double HighestPrice = 1e9; ///< beyond it units would overflow

long long ToUnits(double price) {
  const double bounded = std::isnan(price) ? 0 : std::clamp(price, -HighestPrice, HighestPrice);
  return std::llround(bounded * UnitsPerCurrencyUnit);
}

// One correctly rounded division of whole numbers: exactly the double that the decimal text gives.
double ToPrice(long long units) { return static_cast<double>(units) / UnitsPerCurrencyUnit; }

int DecimalsOf(long long units) {
  int decimals = 8;
  for (; decimals > 0 && units % 10 == 0; --decimals)
    units /= 10;
  return decimals;
}

long long StepsToPass(long long distance, long long step) { return (distance + step - 1) / step; }

} // namespace

void TSpreadTable::Define(int state, const std::vector<TReferenceData::TSpreadBand>& bands) {
  state_ = state;
  bands_.clear();
  for (const auto& band : bands) {
    const auto step = ToUnits(band.Step);
    if (step > 0 && band.From < band.To)
      bands_.push_back({ToUnits(band.From), ToUnits(band.To), step, DecimalsOf(step)});
  }
  std::sort(bands_.begin(), bands_.end(),
            [](const TUnitBand& a, const TUnitBand& b) { return a.From < b.From; });
}

const TSpreadTable::TUnitBand* TSpreadTable::BandBelow(TUnits price) const {
  const auto band = std::lower_bound(bands_.begin(), bands_.end(), price,
                                     [](const TUnitBand& b, TUnits p) { return b.To < p; });
  return band != bands_.end() && band->From < price ? &*band : nullptr;
}

const TSpreadTable::TUnitBand* TSpreadTable::BandAbove(TUnits price) const {
  const auto band = std::upper_bound(bands_.begin(), bands_.end(), price,
                                     [](TUnits p, const TUnitBand& b) { return p < b.To; });
  return band != bands_.end() && band->From <= price ? &*band : nullptr;
}

double TSpreadTable::PriceStep(double price) const {
  const auto* band = BandBelow(ToUnits(price));
  return band ? ToPrice(band->Step) : 0;
}

std::optional<int> TSpreadTable::Decimals(double price) const {
  const auto* band = BandBelow(ToUnits(price));
  return band ? std::optional(band->Decimals) : std::nullopt;
}

double TSpreadTable::PriceStepsAway(double price, int steps) const {
  auto units = ToUnits(price);
  long long left = std::abs(static_cast<long long>(steps));
  // Band by band: as many steps as the band still has, or as are left.
  while (left > 0) {
    const auto* band = steps > 0 ? BandAbove(units) : BandBelow(units);
    if (!band)
      return 0;
    const auto toEdge = steps > 0 ? band->To - units : units - band->From;
    const auto taken = std::min(left, StepsToPass(toEdge, band->Step));
    units += steps > 0 ? taken * band->Step : -taken * band->Step;
    left -= taken;
  }
  return std::max(ToPrice(units), 0.);
}

} // namespace Terminal
