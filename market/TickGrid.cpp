#include "market/TickGrid.h"

#include <algorithm>

namespace Market {

TTickGrid::TTickGrid(const std::vector<TTickBand>& bands) {
  for (const TTickBand& band : bands) {
    bands_.push_back({band, count_});
    count_ += static_cast<int>((band.To - band.From) / band.Step);
  }
}

bool TTickGrid::IsValid(TPrice price) const {
  const int tick = TickAtOrBelow(price);
  return tick >= 0 && PriceAt(tick) == price;
}

TPrice TTickGrid::PriceAt(int tick) const {
  const auto after =
      std::upper_bound(bands_.begin(), bands_.end(), tick,
                       [](int number, const TNumberedBand& band) { return number < band.First; });
  const TNumberedBand& band = *std::prev(after);
  return band.From + band.Step * (tick - band.First + 1);
}

int TTickGrid::TickAtOrBelow(TPrice price) const {
  const auto band =
      std::lower_bound(bands_.begin(), bands_.end(), price,
                       [](const TNumberedBand& each, TPrice wanted) { return each.To < wanted; });
  if (band == bands_.end())
    return count_ - 1;
  if (price < band->From)
    return -1;
  return band->First + static_cast<int>((price - band->From) / band->Step) - 1;
}

int TTickGrid::TickAtOrAbove(TPrice price) const { return TickAtOrBelow(price - 1) + 1; }

TPrice TTickGrid::Moved(TPrice price, int ticks) const {
  return PriceAt(std::clamp(TickAtOrBelow(price) + ticks, 0, count_ - 1));
}

TPrice TTickGrid::StepAbove(TPrice price) const {
  const int tick = std::clamp(TickAtOrBelow(price), 0, count_ - 2);
  return PriceAt(tick + 1) - PriceAt(tick);
}

} // namespace Market
