#pragma once

#include "market/OrderBook.h"

#include <vector>

namespace Market {

/// One place in a published broker queue.
struct TQueueEntry {
  enum class TContent {
    Broker, ///< Number is the broker of an order
    Spread  ///< the orders after it lie Number ticks from the best: above 0 for asks, below 0 for
            ///< bids
  };

  TContent Kind = TContent::Broker;
  int Number = 0;
  bool operator==(const TQueueEntry&) const = default;
};

/// Entries a side at most, markers counted.
inline constexpr std::size_t MaximumQueueEntries = 40;

/// The brokers of a side's orders, best level first and front to back in each; a marker stands
/// before the orders of every level but the best, and never last.
std::vector<TQueueEntry> BrokerQueueOf(const TOrderBook& book, TSide side);

} // namespace Market
