#include "market/PublishedQueue.h"

namespace Market {

std::vector<TQueueEntry> BrokerQueueOf(const TOrderBook& book, TSide side) {
  std::vector<TQueueEntry> queue;
  int level = 0;
  book.VisitOrders(side, [&](const TBookOrder& order, int ticks) {
    const bool needsMarker = ticks != level;
    if (queue.size() + (needsMarker ? 2 : 1) > MaximumQueueEntries)
      return false;
    if (needsMarker)
      queue.push_back({TQueueEntry::TContent::Spread, side == TSide::Bid ? -ticks : ticks});
    queue.push_back({TQueueEntry::TContent::Broker, order.Broker});
    level = ticks;
    return true;
  });
  return queue;
}

} // namespace Market
