#pragma once

#include "terminal/market/OrderBook.h"

#include <vector>

namespace Terminal::Market {

/// One place in a published broker queue.
struct TQueueEntry {
  enum class TKind {
    Broker, ///< Number is the broker of an order
    Spread  ///< the orders after it lie Number ticks from the best: above 0 for asks, below 0 for
            ///< bids
  };

  TKind Kind = TKind::Broker;
  int Number = 0;
  bool operator==(const TQueueEntry&) const = default;
};

/// Entries a side at most, markers counted.
inline constexpr std::size_t MaximumQueueEntries = 40;

/// The brokers of a side's orders, best level first and front to back in each; a marker stands
/// before the orders of every level but the best, and never last.
std::vector<TQueueEntry> BrokerQueueOf(const TOrderBook& book, TSide side);

} // namespace Terminal::Market
