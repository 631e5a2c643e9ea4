#include "market/OrderBook.h"

namespace Market {

TOrderBook::TSideLevels::TSideLevels(int ticks)
    : Pages(static_cast<std::size_t>(ticks / PageSize + 1)), Occupied(ticks) {}

TOrderBook::TLevel& TOrderBook::TSideLevels::At(int tick) {
  auto& page = Pages[static_cast<std::size_t>(tick / PageSize)];
  if (!page)
    page = std::make_unique<TPage>();
  return (*page)[static_cast<std::size_t>(tick % PageSize)];
}

const TOrderBook::TLevel* TOrderBook::TSideLevels::Find(int tick) const {
  const auto& page = Pages[static_cast<std::size_t>(tick / PageSize)];
  return page ? &(*page)[static_cast<std::size_t>(tick % PageSize)] : nullptr;
}

TOrderBook::TOrderBook(const TTickGrid& grid)
    : grid_(grid), bids_(grid.Count()), asks_(grid.Count()) {}

int TOrderBook::BestFrom(const TSideLevels& levels, TSide side, int tick) {
  return side == TSide::Bid ? levels.Occupied.AtOrBelow(tick) : levels.Occupied.AtOrAbove(tick);
}

void TOrderBook::Add(const TBookOrder& order) {
  TQueuedOrder& added = pool_.Add(order);
  added.Tick = grid_.TickAtOrBelow(order.Price);
  TSideLevels& side = SideOf(order.Side);
  TLevel& level = side.At(added.Tick);
  if (level.Orders == 0)
    side.Occupied.Insert(added.Tick);
  added.Ahead = level.Back;
  (level.Back ? level.Back->Behind : level.Front) = &added;
  level.Back = &added;
  level.Quantity += order.Quantity;
  ++level.Orders;
  if (side.Best == TTickSet::None || (order.Side == TSide::Bid) == (added.Tick > side.Best))
    side.Best = added.Tick;
}

TBookOrder TOrderBook::Fill(TSide side, TQuantity quantity) {
  TSideLevels& levels = SideOf(side);
  TQueuedOrder& order = *levels.At(levels.Best).Front;
  Withdraw(order, quantity);
  const TBookOrder filled = order;
  if (filled.Quantity == 0)
    Unlink(order);
  return filled;
}

std::optional<TBookOrder> TOrderBook::Cancel(TOrderId id) {
  TQueuedOrder* order = pool_.Find(id);
  if (!order)
    return std::nullopt;
  const TBookOrder cancelled = *order;
  Withdraw(*order, order->Quantity);
  Unlink(*order);
  return cancelled;
}

bool TOrderBook::Reduce(TOrderId id, TQuantity quantity) {
  TQueuedOrder* order = pool_.Find(id);
  if (!order || order->Quantity <= quantity)
    return false;
  Withdraw(*order, order->Quantity - quantity);
  return true;
}

void TOrderBook::Withdraw(TQueuedOrder& order, TQuantity quantity) {
  order.Quantity -= quantity;
  SideOf(order.Side).At(order.Tick).Quantity -= quantity;
}

/// Of an order with nothing left.
void TOrderBook::Unlink(TQueuedOrder& order) {
  TSideLevels& side = SideOf(order.Side);
  TLevel& level = side.At(order.Tick);
  (order.Ahead ? order.Ahead->Behind : level.Front) = order.Behind;
  (order.Behind ? order.Behind->Ahead : level.Back) = order.Ahead;
  if (--level.Orders == 0) {
    side.Occupied.Erase(order.Tick);
    if (order.Tick == side.Best)
      side.Best = BestFrom(side, order.Side, order.Tick);
  }
  pool_.Release(order);
}

const TBookOrder* TOrderBook::Front(TSide side) const {
  const TSideLevels& levels = SideOf(side);
  return levels.Best == TTickSet::None ? nullptr : levels.Find(levels.Best)->Front;
}

std::optional<TPrice> TOrderBook::BestPrice(TSide side) const {
  const TBookOrder* front = Front(side);
  return front ? std::optional(front->Price) : std::nullopt;
}

bool TOrderBook::Crosses(TSide side, TPrice price) const {
  const TBookOrder* front = Front(Opposite(side));
  return front && (side == TSide::Bid ? front->Price <= price : front->Price >= price);
}

TBookLevel TOrderBook::LevelAt(TSide side, TPrice price) const {
  const int tick = grid_.TickAtOrBelow(price);
  const TLevel* level = tick < 0 ? nullptr : SideOf(side).Find(tick);
  return level ? TBookLevel{price, level->Quantity, level->Orders} : TBookLevel{price, 0, 0};
}

std::size_t TOrderBook::ReadLevels(TSide side, std::span<TBookLevel> levels) const {
  std::size_t count = 0;
  VisitLevels(side, [&](const TBookLevel& level) {
    if (count == levels.size())
      return false;
    levels[count++] = level;
    return true;
  });
  return count;
}

} // namespace Market
