#pragma once

#include "data/ReferenceData.h"
#include "host/BaseMarketAdapter.h"

#include <optional>
#include <vector>

namespace Terminal {

using Data::TReferenceData;

/// A spread table. Works in exact hundred-millionths of a currency unit, so that a walk of any
/// length ends on the decimal price and not beside it.
class TSpreadTable : public Basemarketadapter::TCustomSpreadTable {
public:
  /// Bands in any order; those without a positive step or with no price in them are left out.
  void Define(int state, const std::vector<TReferenceData::TSpreadBand>& bands);

  int State() const override { return state_; }
  double PriceStep(double price) const override;
  double PriceStepsAway(double price, int steps) const override;

  /// Decimals of the step at `price`; nothing outside the bands.
  std::optional<int> Decimals(double price) const;

private:
  using TUnits = long long;

  struct TUnitBand {
    TUnits From;
    TUnits To;
    TUnits Step;
    int Decimals; ///< of the step
  };

  const TUnitBand* BandBelow(TUnits price) const; ///< whose steps lead down to `price`'s neighbour
  const TUnitBand* BandAbove(TUnits price) const; ///< whose steps lead up from `price`

  int state_ = 0;
  std::vector<TUnitBand> bands_; ///< ascending
};

} // namespace Terminal
