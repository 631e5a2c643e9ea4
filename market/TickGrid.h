#pragma once

#include "market/MarketTypes.h"

#include <vector>

namespace Market {

/// The valid prices of a spread table, numbered from 0 (the lowest) without a gap, so that one
/// tick up or down is one number on, whatever the step there.
class TTickGrid {
public:
  /// The valid prices From + Step, From + 2 Step, ... To.
  struct TTickBand {
    TPrice From = 0;
    TPrice To = 0;
    TPrice Step = 1;
  };

  /// The bands ascend, each beginning where the last ended; steps divide them evenly.
  explicit TTickGrid(const std::vector<TTickBand>& bands);

  int Count() const { return count_; }
  bool IsValid(TPrice price) const;
  /// 0 to Count() - 1.
  TPrice PriceAt(int tick) const;
  /// Number of the highest valid price that is not above `price`; -1 below the lowest.
  int TickAtOrBelow(TPrice price) const;
  /// Number of the lowest valid price that is not below `price`; Count() above the highest.
  int TickAtOrAbove(TPrice price) const;
  /// `price` moved by `ticks` (negative: down) and kept within the grid; a price off the grid
  /// moves from the next valid one below.
  TPrice Moved(TPrice price, int ticks) const;
  /// The step above `price`; as in the tables, a price on a boundary steps up by the band above.
  TPrice StepAbove(TPrice price) const;

private:
  struct TNumberedBand : TTickBand {
    int First = 0; ///< number of From + Step
  };

  std::vector<TNumberedBand> bands_;
  int count_ = 0;
};

} // namespace Market
