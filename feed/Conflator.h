#pragma once

#include "feed/FeedTypes.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace Feed {

/// Merges changes into one per symbol, so that what is waiting to be taken is bounded by the
/// number of symbols and fields and not by the number of changes. The last value of a field, of
/// the state and of the status wins; a removal counts as a value, so that it is not lost.
class TConflator {
public:
  /// Trades kept per symbol, the latest, unless more are asked for.
  static constexpr std::size_t MaximumTrades = 100;

  explicit TConflator(std::size_t maximumTrades = MaximumTrades) : maximumTrades_(maximumTrades) {}

  void Merge(TRecordChange change);

  /// How many changes have been merged since the last Take or Clear.
  std::size_t MergedCount() const { return mergedCount_; }

  /// One change per symbol, in the order in which the symbols first changed; not yet trimmed to
  /// the trades that are kept, but never with twice as many.
  const std::vector<TRecordChange>& Changes() const { return changes_; }
  /// The same, leaving none behind.
  std::vector<TRecordChange> Take();
  void Clear() { Take(); }

private:
  void MergeTrades(TRecordChange& into, TRecordChange& from) const;
  void KeepLatestTrades(TRecordChange& change) const;

  std::size_t maximumTrades_;
  std::unordered_map<std::string, std::size_t> indexBySymbol_;
  std::vector<TRecordChange> changes_;
  std::size_t mergedCount_ = 0;
};

} // namespace Feed
