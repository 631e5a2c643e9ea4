#include "feed/exchange/Books.h"

#include <algorithm>
#include <cstddef>

namespace Feed::Exchange {

namespace {

bool IsSide(int side) { return side == 0 || side == 1; }

} // namespace

bool TAggregateBook::Apply(TBookAction action, int side, std::size_t level,
                           const TBookLevel& what) {
  if (action == baClear) {
    Clear();
    return true;
  }
  if (!IsSide(side) || level < 1 || level > ShownLevels)
    return false;
  auto& levels = sides_[side];
  const auto at = levels.begin() + static_cast<std::ptrdiff_t>(std::min(level - 1, levels.size()));
  if (action == baNew && level <= levels.size() + 1) {
    levels.insert(at, what);
    levels.resize(std::min(levels.size(), ShownLevels));
    return true;
  }
  if (level > levels.size() || (action != baChange && action != baDelete))
    return false;
  if (action == baChange)
    *at = what;
  else
    levels.erase(at);
  return true;
}

void TAggregateBook::Clear() {
  for (auto& levels : sides_)
    levels.clear();
}

std::span<const TBookLevel> TAggregateBook::Levels(int side) const {
  return IsSide(side) ? std::span<const TBookLevel>(sides_[side]) : std::span<const TBookLevel>();
}

TOrderedBook::TOrder* TOrderedBook::Find(std::uint64_t id, int side) {
  const auto found = orders_.find(id);
  return found != orders_.end() && found->second.Side == side ? &found->second : nullptr;
}

bool TOrderedBook::Add(std::uint64_t id, int side, std::int32_t price, std::uint64_t quantity) {
  if (!IsSide(side))
    return false;
  const auto [added, isNew] = orders_.try_emplace(id, TOrder{side, price, quantity});
  if (isNew)
    Place(added->second);
  return isNew;
}

bool TOrderedBook::Modify(std::uint64_t id, int side, std::uint64_t quantity) {
  TOrder* order = Find(id, side);
  if (!order)
    return false;
  Withdraw(*order);
  order->Quantity = quantity;
  Place(*order);
  return true;
}

bool TOrderedBook::Delete(std::uint64_t id, int side) {
  const TOrder* order = Find(id, side);
  if (!order)
    return false;
  Withdraw(*order);
  orders_.erase(id);
  return true;
}

void TOrderedBook::Clear() {
  orders_.clear();
  for (auto& levels : sides_)
    levels.clear();
}

void TOrderedBook::Place(const TOrder& order) {
  if (order.Price == NoPrice)
    return;
  TLevel& level = sides_[order.Side][KeyOf(order)];
  level.Quantity += order.Quantity;
  ++level.Orders;
}

void TOrderedBook::Withdraw(const TOrder& order) {
  if (order.Price == NoPrice)
    return;
  const auto found = sides_[order.Side].find(KeyOf(order));
  found->second.Quantity -= order.Quantity;
  if (--found->second.Orders == 0)
    sides_[order.Side].erase(found);
}

std::vector<TBookLevel> TOrderedBook::Levels(int side) const {
  std::vector<TBookLevel> best;
  if (!IsSide(side))
    return best;
  for (const auto& [key, level] : sides_[side]) {
    if (best.size() == ShownLevels)
      break;
    best.push_back({side == 0 ? -key : key, level.Quantity, level.Orders});
  }
  return best;
}

} // namespace Feed::Exchange
