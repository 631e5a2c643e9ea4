#include "feed/Conflator.h"

#include <algorithm>
#include <utility>

namespace Feed {

namespace {

using TFields = decltype(TRecordChange::Fields);

void MergeFields(TFields& into, TFields&& from) {
  for (auto& [number, value] : from) {
    const auto found =
        std::ranges::find_if(into, [n = number](const auto& field) { return field.first == n; });
    if (found == into.end())
      into.emplace_back(number, std::move(value));
    else
      found->second = std::move(value);
  }
}

} // namespace

void TConflator::Merge(TRecordChange change) {
  ++mergedCount_;
  const auto [entry, isNew] = indexBySymbol_.try_emplace(change.Symbol, changes_.size());
  if (isNew)
    changes_.emplace_back().Symbol = std::move(change.Symbol);
  TRecordChange& into = changes_[entry->second];
  if (change.State)
    into.State = change.State;
  if (change.Status)
    into.Status = std::move(change.Status);
  MergeFields(into.Fields, std::move(change.Fields));
  MergeTrades(into, change);
}

/// The earliest go many at a time, so that a trade costs the same however many are kept.
void TConflator::MergeTrades(TRecordChange& into, TRecordChange& from) const {
  std::ranges::move(from.Trades, std::back_inserter(into.Trades));
  if (into.Trades.size() >= 2 * maximumTrades_)
    KeepLatestTrades(into);
}

void TConflator::KeepLatestTrades(TRecordChange& change) const {
  auto& trades = change.Trades;
  if (trades.size() > maximumTrades_)
    trades.erase(trades.begin(), trades.end() - static_cast<std::ptrdiff_t>(maximumTrades_));
}

std::vector<TRecordChange> TConflator::Take() {
  indexBySymbol_.clear();
  mergedCount_ = 0;
  for (auto& change : changes_)
    KeepLatestTrades(change);
  return std::exchange(changes_, {});
}

} // namespace Feed
