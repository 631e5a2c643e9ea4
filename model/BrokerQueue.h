#pragma once

#include "model/QuorTypes.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quorpricedatacontrol {

/// Whether a broker shows as its four-digit ID or by its name in the user's language.
enum class TBrokerStyle { ID, Name };

inline TBrokerStyle Inverse(TBrokerStyle style) {
  return style == TBrokerStyle::ID ? TBrokerStyle::Name : TBrokerStyle::ID;
}

/// Where a column of the broker queue stands: its side, and its place (0 to 3) among the side's.
struct TQueueColumn {
  int Side = Side::Bid;
  int Place = 0;

  bool operator==(const TQueueColumn&) const = default;
};

/// Nothing for a column that is none of the broker queue's.
std::optional<TQueueColumn> QueueColumnOf(int column);

/// The queue entry in a row of a queue column: the queue runs down rows 1 to `rowCount` - 1 of the
/// side's first column, then of the next. Negative for rows 0 and below.
std::ptrdiff_t QueueIndex(TQueueColumn column, int row, int rowCount);

/// The brokers that stand at the best prices of each side, front of the queue first, interleaved
/// with markers of the price level that they stand at.
class TBrokerQueue {
public:
  TBrokerQueue() = default;
  TBrokerQueue(const TBrokerQueue&) = delete;
  TBrokerQueue& operator=(const TBrokerQueue&) = delete;

  /// Reads the comma-separated entries of both sides; a side whose text is as before is kept.
  void Update(std::string_view bidText, std::string_view askText);

  int Size(int side) const;

  /// The entry as the feed gave it; empty for an index or a side that does not exist. Valid until
  /// the next update.
  std::string_view Entry(std::ptrdiff_t index, int side) const;

  /// The entry as shown.
  std::string Text(std::ptrdiff_t index, int side, TBrokerStyle style) const;

  /// True for a marker of a price level.
  bool IsLevelMarker(std::ptrdiff_t index, int side) const;

private:
  struct TEntries {
    std::string Text;
    std::vector<std::string_view> Pieces; ///< of Text

    void Update(std::string_view text);
  };

  std::array<TEntries, 2> sides_;
};

} // namespace Quorpricedatacontrol
