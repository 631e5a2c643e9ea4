#pragma once

#include "host/BaseMarketAdapter.h"
#include "model/QuorTypes.h"
#include "model/RecordText.h"

#include <algorithm>
#include <optional>
#include <string>

/// The price levels of the book: which record fields hold them, in which grid rows they stand and
/// how they read. Everything that does not exist has an empty text.
namespace Quorpricedatacontrol {

/// Null for anything but a side.
const Field::TSideFields* FieldsOf(int side);

/// A level of one side, counted from 0, the best.
struct TLevelPosition {
  int Side;
  int Level;
};

/// The level whose price a field holds; nothing for any other field.
std::optional<TLevelPosition> LevelOfPriceField(int field);

/// Where a price or size column of the depth grid stands.
struct TDepthColumn {
  enum TFigure { Price, Size };
  int Side = Side::Bid;
  TFigure Figure = Price;

  bool operator==(const TDepthColumn&) const = default;
};

/// Nothing for a column that shows neither prices nor sizes of the book.
std::optional<TDepthColumn> DepthColumnOf(int column);

/// Grid rows of a layout's depth part. What stands above the best price is header.
struct TDepthRows {
  int BestPrice, PriceStep, FirstLevel;
  int Levels; ///< that show

  constexpr int Count() const { return FirstLevel + Levels; }
};

constexpr TDepthRows DepthRowsOf(TQuorMode mode) {
  if (mode == qm10Simple)
    return {1, 2, 3, Field::DepthLevels};
  return {6, 7, 8, mode == qm5Full ? 5 : Field::DepthLevels};
}

/// Grid rows of a layout, of which all header rows and all levels show. Ten levels under header
/// rows have room for the most header rows that there can be, whatever number there is.
constexpr int RowCountOf(TQuorMode mode, int headerRows, int mostHeaderRows) {
  return std::max(DepthRowsOf(mode).Count(), mode == qm10Full ? mostHeaderRows : headerRows);
}

/// What a grid row shows of the book.
struct TDepthRow {
  enum TContent { Nothing, BestPrice, PriceStep, Level };
  TContent Content = Nothing;
  int LevelIndex = 0; ///< from 0, the best level; only for Level

  bool operator==(const TDepthRow&) const = default;
};

/// In the five-level layout, levels 6 to 10 have rows too: rows that can be clicked, though they
/// show nothing.
TDepthRow DepthRowAt(TQuorMode mode, int row);

/// The same, without the rows that show nothing.
TDepthRow ShownDepthRowAt(TQuorMode mode, int row);

/// What stands in a size column beside the best price or the price step.
std::string SizeLabel(TDepthRow::TContent content, int side);

/// mdtUnknown while the record publishes no level beyond the best one.
TMarketDataType DetectMarketDataType(const TCustomSubItem& record);

std::string BestPriceText(const TCustomSubItem* record, int side);

/// The price step at the side's best price.
std::string BestPriceStepText(const TCustomSubItem* record, int side);

/// Price of a level, or its number of orders in parentheses. Levels count from 0.
std::string LevelPriceText(const TCustomSubItem* record, TMarketDataType type, int level, int side);

/// Size of a level, as formatted: a size of zero is "0".
std::string LevelSizeText(const TCustomSubItem* record, int level, int side);

/// The spread table that the record names; null when it is unknown or holds no bands.
const Basemarketadapter::TCustomSpreadTable* ReadySpreadTable(const TCustomSubItem& record);

} // namespace Quorpricedatacontrol
