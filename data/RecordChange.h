#pragma once

#include "host/MarketTradeSideDetector.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Data {

/// What a feed says of one symbol at one moment. Merged into the symbol's record; everything that
/// it does not name stays as it was.
struct TRecordChange {
  std::string Symbol;       ///< listed symbol, such as "700"; a change without one is ignored
  std::optional<int> State; ///< Constdef::RecordState_...; a new record has Ready unless told
  std::optional<std::string> Status;
  /// By field number, in the order given. No text removes the field; an empty text keeps the
  /// field present.
  std::vector<std::pair<int, std::optional<std::string>>> Fields;
  std::vector<Markettradesidedetector::TTrade> Trades; ///< new trades, oldest first
};

} // namespace Data
