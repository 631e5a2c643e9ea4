#pragma once

#include "market/TickGrid.h"

namespace Market {

/// The lowest and the highest price allowed, both included.
struct TPriceLimits {
  TPrice Lower = 0;
  TPrice Upper = 0;

  bool Hold(TPrice price) const { return Lower <= price && price <= Upper; }
  bool operator==(const TPriceLimits&) const = default;
};

/// `reference` less and plus `percent` of it, each brought inward to the next valid price.
TPriceLimits LimitsAround(TPrice reference, int percent, const TTickGrid& grid);

} // namespace Market
