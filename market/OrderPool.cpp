#include "market/OrderPool.h"

namespace Market {

namespace {

constexpr std::size_t FirstSlots = 256; // slots are a power of two

} // namespace

TOrderPool::TOrderPool() : slots_(FirstSlots) {}

std::size_t TOrderPool::HomeOf(TOrderId id) const {
  // Fibonacci hashing: the upper half of the product spreads consecutive numbers, and numbers a
  // power of two apart, over all slots.
  return static_cast<std::size_t>((id * 0x9E3779B97F4A7C15ULL) >> 32) & (slots_.size() - 1);
}

/// Where the order stands, or the free slot where it would.
std::size_t TOrderPool::SlotOf(TOrderId id) const {
  std::size_t slot = HomeOf(id);
  while (slots_[slot] && slots_[slot]->Id != id)
    slot = (slot + 1) & (slots_.size() - 1);
  return slot;
}

TQueuedOrder& TOrderPool::Add(const TBookOrder& order) {
  if (2 * (count_ + 1) > slots_.size())
    Grow();
  if (free_.empty())
    free_.push_back(&orders_.emplace_back());
  TQueuedOrder& added = *free_.back();
  free_.pop_back();
  added = {order};
  slots_[SlotOf(order.Id)] = &added;
  ++count_;
  return added;
}

TQueuedOrder* TOrderPool::Find(TOrderId id) const { return slots_[SlotOf(id)]; }

void TOrderPool::Release(TQueuedOrder& order) {
  // Orders behind the gap move up when they may: when their home is not past the gap.
  const std::size_t mask = slots_.size() - 1;
  std::size_t gap = SlotOf(order.Id);
  for (std::size_t slot = (gap + 1) & mask; slots_[slot]; slot = (slot + 1) & mask)
    if (((slot - HomeOf(slots_[slot]->Id)) & mask) >= ((slot - gap) & mask)) {
      slots_[gap] = slots_[slot];
      gap = slot;
    }
  slots_[gap] = nullptr;
  free_.push_back(&order);
  --count_;
}

void TOrderPool::Grow() {
  const std::vector<TQueuedOrder*> former =
      std::exchange(slots_, std::vector<TQueuedOrder*>(2 * slots_.size()));
  for (TQueuedOrder* order : former)
    if (order)
      slots_[SlotOf(order->Id)] = order;
}

} // namespace Market
