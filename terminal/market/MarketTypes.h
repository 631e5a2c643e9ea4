#pragma once

#include "terminal/data/RecordChange.h"
#include "terminal/data/TimeOfDay.h"

#include <cstdint>

// The words that every part of the simulated market shares.
namespace Terminal::Market {

/// A price in thousandths of the currency unit, which every spread table divides evenly.
using TPrice = std::int64_t;
/// Shares, units or warrants; never lots.
using TQuantity = std::int64_t;
/// Exchange participant's broker number, at most four digits.
using TBrokerId = int;
/// Unique within one market, in the order of entry; 0 is no order.
using TOrderId = std::uint64_t;

inline constexpr TPrice PriceUnit = 1000;

enum class TSide { Bid, Ask };

constexpr TSide Opposite(TSide side) { return side == TSide::Bid ? TSide::Ask : TSide::Bid; }
constexpr double ToUnits(TPrice price) { return static_cast<double>(price) / PriceUnit; }

} // namespace Terminal::Market
