#pragma once

#include "market/MarketTypes.h"

#include <deque>
#include <vector>

namespace Market {

enum class TOrderKind {
  /// Trades up to its price, then rests there. In continuous trading the exchange's enhanced limit
  /// order, at most nine ticks beyond the best opposite price; in an auction its at-auction limit
  /// order.
  Limit,
  /// No price is given. In continuous trading it reaches nine ticks beyond the best opposite price
  /// and what is left is cancelled; in an auction it is the exchange's at-auction order, which
  /// trades at whatever price and before every limit order.
  Market
};

/// An order as it stands in a book.
struct TBookOrder {
  TOrderId Id = 0;
  TSide Side = TSide::Bid;
  TPrice Price = 0;       ///< of an at-auction order the end of the grid that no limit can pass
  TQuantity Quantity = 0; ///< still open
  TBrokerId Broker = 0;
  TTimeOfDay Entered{}; ///< when it took its place in the queue
  TOrderKind Kind = TOrderKind::Limit;
};

/// An order in the queue of its price level.
struct TQueuedOrder : TBookOrder {
  int Tick = 0;                   ///< number of the price
  TQueuedOrder* Ahead = nullptr;  ///< null: first of its level
  TQueuedOrder* Behind = nullptr; ///< null: last of its level
};

/// The orders of a book by their numbers. Keeps the room of orders that are gone for later ones,
/// so that a book of steady size allocates nothing.
class TOrderPool {
public:
  TOrderPool();

  /// A copy of `order` outside every queue; stays where it is until it is released. The number
  /// must be above 0 and not in the pool.
  TQueuedOrder& Add(const TBookOrder& order);
  /// Null when there is no such order.
  TQueuedOrder* Find(TOrderId id) const;
  void Release(TQueuedOrder& order);
  std::size_t Count() const { return count_; }

private:
  std::size_t HomeOf(TOrderId id) const;
  std::size_t SlotOf(TOrderId id) const;
  void Grow();

  std::deque<TQueuedOrder> orders_;
  std::vector<TQueuedOrder*> free_;
  /// Open addressing, at most half full: an order stands at the home of its number or in the
  /// run of orders that begins there.
  std::vector<TQueuedOrder*> slots_;
  std::size_t count_ = 0;
};

} // namespace Market
