#include "market/PriceLimits.h"

namespace Market {

TPriceLimits LimitsAround(TPrice reference, int percent, const TTickGrid& grid) {
  const TPrice least = reference * (100 - percent);
  const TPrice most = reference * (100 + percent);
  return {grid.PriceAt(grid.TickAtOrAbove((least + 99) / 100)),
          grid.PriceAt(grid.TickAtOrBelow(most / 100))};
}

} // namespace Market
