#include "market/Auction.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace Market {

namespace {

/// A price that may become the equilibrium, with what is bid there or higher and asked there or
/// lower.
struct TCandidate {
  TPrice Price = 0;
  TQuantity Bid = 0;
  TQuantity Asked = 0;

  TQuantity Volume() const { return std::min(Bid, Asked); }
  TQuantity Surplus() const { return std::abs(Bid - Asked); }
};

/// The levels of the side from the best to `last`, best first.
std::vector<TBookLevel> LevelsTo(const TOrderBook& book, TSide side, TPrice last) {
  std::vector<TBookLevel> levels;
  book.VisitLevels(side, [&](const TBookLevel& level) {
    if (side == TSide::Bid ? level.Price < last : level.Price > last)
      return false;
    levels.push_back(level);
    return true;
  });
  return levels;
}

/// Those from `lowest` to `highest`, ascending; both lists are as LevelsTo gives them.
std::vector<TCandidate> Candidates(const std::vector<TBookLevel>& bids,
                                   const std::vector<TBookLevel>& asks, TPrice lowest,
                                   TPrice highest) {
  std::vector<TCandidate> candidates;
  for (const auto* levels : {&bids, &asks})
    for (const TBookLevel& level : *levels)
      if (lowest <= level.Price && level.Price <= highest)
        candidates.push_back({level.Price, 0, 0});
  std::ranges::sort(candidates, {}, &TCandidate::Price);
  candidates.erase(std::unique(candidates.begin(), candidates.end(),
                               [](const TCandidate& one, const TCandidate& next) {
                                 return one.Price == next.Price;
                               }),
                   candidates.end());

  TQuantity asked = 0;
  auto ask = asks.begin();
  for (TCandidate& candidate : candidates) {
    for (; ask != asks.end() && ask->Price <= candidate.Price; ++ask)
      asked += ask->Quantity;
    candidate.Asked = asked;
  }
  TQuantity bidden = 0;
  auto bid = bids.begin();
  for (auto candidate = candidates.rbegin(); candidate != candidates.rend(); ++candidate) {
    for (; bid != bids.end() && bid->Price >= candidate->Price; ++bid)
      bidden += bid->Quantity;
    candidate->Bid = bidden;
  }
  return candidates;
}

template <class TMeasure>
void KeepLeast(std::vector<TCandidate>& candidates, const TMeasure& measure) {
  const auto least = measure(*std::ranges::min_element(candidates, {}, measure));
  std::erase_if(candidates, [&](const TCandidate& each) { return measure(each) > least; });
}

TCandidate Choose(std::vector<TCandidate> candidates, std::optional<TPrice> reference) {
  KeepLeast(candidates, [](const TCandidate& each) { return -each.Volume(); });
  KeepLeast(candidates, [](const TCandidate& each) { return each.Surplus(); });
  if (std::ranges::all_of(candidates, [](const auto& each) { return each.Bid > each.Asked; }))
    return candidates.back();
  if (std::ranges::all_of(candidates, [](const auto& each) { return each.Bid < each.Asked; }))
    return candidates.front();
  if (reference)
    KeepLeast(candidates,
              [&](const TCandidate& each) { return std::abs(each.Price - *reference); });
  return candidates.back();
}

TImbalance ImbalanceOf(const TCandidate& at) {
  if (at.Bid == at.Asked)
    return TImbalance::None;
  return at.Bid > at.Asked ? TImbalance::BuySurplus : TImbalance::SellSurplus;
}

} // namespace

std::optional<TPrice> BestLimitPrice(const TOrderBook& book, TSide side) {
  std::optional<TPrice> best;
  book.VisitOrders(side, [&](const TBookOrder& order, int) {
    if (order.Kind == TOrderKind::Limit)
      best = order.Price;
    return !best;
  });
  return best;
}

std::optional<TEquilibrium> FindEquilibrium(const TOrderBook& book,
                                            std::optional<TPrice> reference) {
  const auto lowest = BestLimitPrice(book, TSide::Ask);
  const auto highest = BestLimitPrice(book, TSide::Bid);
  if (!lowest || !highest || *lowest > *highest)
    return std::nullopt;
  const auto bids = LevelsTo(book, TSide::Bid, *lowest);
  const auto asks = LevelsTo(book, TSide::Ask, *highest);
  const TCandidate at = Choose(Candidates(bids, asks, *lowest, *highest), reference);
  return TEquilibrium{at.Price, at.Volume(), ImbalanceOf(at), at.Surplus()};
}

} // namespace Market
