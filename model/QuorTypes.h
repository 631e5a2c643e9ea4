#pragma once

#include "host/RecordFields.h"

#include <cstdint>

namespace Quorpricedatacontrol {

/// Layout of the depth grid. Saved in layout data as its ordinal.
enum TQuorMode : std::uint8_t {
  qm5Full,    ///< five levels under six header rows
  qm10Simple, ///< ten levels, no header rows
  qm10Full    ///< ten levels under six header rows, with further header cells
};

/// What a click on a depth cell copies into order entry beside the price.
enum TCopyPriceQtyMode : std::uint8_t {
  cpqmDefault, ///< the best size, when the best size was clicked
  cpqmOneLot,  ///< one board lot
  cpqmNone,    ///< no quantity
  cpqmSummary  ///< the size from the best level down to the clicked one
};

/// What a click on the value of a row copies into order entry.
enum class TRowCopies : std::uint8_t {
  SymbolAlone,
  Price ///< and in the one-lot style a board lot
};

/// How the levels beyond the best one are published for a symbol.
enum TMarketDataType : std::uint8_t {
  mdtUnknown,   ///< nothing seen yet
  mdtPriced,    ///< each level with its price
  mdtOrderCount ///< each level, one price step apart, with its number of orders
};

/// The fields of the record, and the numbers that rows have beside them.
namespace Field {
using namespace Host::Field;
inline constexpr int None = -1;       ///< of a row that shows nothing
inline constexpr int Category = 3000; ///< of a CBBC, worked out from its name
} // namespace Field

/// Sides of the book.
namespace Side {
enum : int { Bid = 0, Ask = 1 };
} // namespace Side

/// Identifiers by which the grids' columns ask for their texts.
namespace Column {
enum : int {
  // The depth grid; the best-price grid has its price and size columns.
  BidPrice = 1,
  AskPrice = 2,
  HeaderValue = 3,
  BidSize = 16,
  AskSize = 19,
  HeaderCaption = 21,
  BidQueue1 = 55,
  BidQueue2 = 56,
  BidQueue3 = 57,
  BidQueue4 = 58,
  AskQueue1 = 65,
  AskQueue2 = 66,
  AskQueue3 = 67,
  AskQueue4 = 68,
  // The summary grid, named by what heads the column.
  InfoOpen = 10000,
  InfoHigh = 10001,
  InfoLow = 10002,
  InfoPreviousClose = 10003,
  InfoCurrency = 10004
};
} // namespace Column

/// Rows of the best-price grid.
namespace BestPriceRow {
enum : int { Price, Step, Size, Count };
} // namespace BestPriceRow

/// Rows of the summary grid: labels over values.
namespace InfoRow {
enum : int { UpperLabel, UpperValue, LowerLabel, LowerValue, Count };
} // namespace InfoRow

/// Columns of the detail list.
namespace DetailColumn {
enum : int { Label = 0, Value = 1 };
} // namespace DetailColumn

} // namespace Quorpricedatacontrol
