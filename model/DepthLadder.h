#pragma once

#include "host/BaseMarketAdapter.h"
#include "model/QuorTypes.h"
#include "model/RecordText.h"

#include <array>
#include <optional>
#include <string>

/// The price levels of the book: which record fields hold them, in which grid rows they stand and
/// how they read. Everything that does not exist has an empty text.
namespace Quorpricedatacontrol {

inline constexpr int DepthLevels = 10;

/// Record fields of one side's levels, best level first.
struct TLevelFields {
  std::array<int, DepthLevels> Price;
  std::array<int, DepthLevels> Size;
  std::array<int, DepthLevels> Count; ///< numbers of orders
};

inline constexpr TLevelFields BidFields = {
    {1, 81, 82, 83, 84, 3180, 3181, 3182, 3183, 3184},
    {16, 51, 52, 53, 54, 3155, 3156, 3157, 3158, 3159},
    {55, 56, 57, 58, 59, 3136, 3137, 3138, 3139, 3140},
};
inline constexpr TLevelFields AskFields = {
    {2, 91, 92, 93, 94, 3190, 3191, 3192, 3193, 3194},
    {19, 61, 62, 63, 64, 3165, 3166, 3167, 3168, 3169},
    {65, 66, 67, 68, 69, 3146, 3147, 3148, 3149, 3150},
};

/// Null for anything but a side.
const TLevelFields* FieldsOf(int side);

/// A level of one side, counted from 0, the best.
struct TLevelPosition {
  int Side;
  int Level;
};

/// The level whose price a field holds; nothing for any other field.
std::optional<TLevelPosition> LevelOfPriceField(int field);

/// What a grid row shows of the book.
struct TDepthRow {
  enum TKind { Nothing, BestPrice, PriceStep, Level };
  TKind Kind = Nothing;
  int LevelIndex = 0; ///< from 0, the best level; only for Level

  bool operator==(const TDepthRow&) const = default;
};

/// In the five-level layout, levels 6 to 10 have rows too: rows that can be clicked, though they
/// show nothing.
TDepthRow DepthRowAt(TQuorMode mode, int row);

/// The same, without the rows that show nothing.
TDepthRow ShownDepthRowAt(TQuorMode mode, int row);

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
