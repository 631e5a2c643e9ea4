#include "market/PriceFixing.h"

#include <algorithm>

namespace Market {

namespace {

constexpr TTimeOfDay Interval = std::chrono::seconds(15);

} // namespace

std::optional<TTimeOfDay> TPriceFixing::NextSample() const {
  if (asked_ == Samples)
    return std::nullopt;
  return end_ - (Samples - 1 - asked_) * Interval;
}

void TPriceFixing::Observe(std::optional<TPrice> nominal) {
  ++asked_;
  if (nominal)
    prices_.insert(std::upper_bound(prices_.begin(), prices_.end(), *nominal), *nominal);
}

std::optional<TPrice> TPriceFixing::Price() const {
  if (asked_ < Samples || prices_.empty())
    return std::nullopt;
  return prices_[(prices_.size() - 1) / 2];
}

} // namespace Market
