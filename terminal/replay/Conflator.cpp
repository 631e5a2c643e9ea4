#include "terminal/replay/Conflator.h"

#include <algorithm>
#include <utility>

namespace Terminal {

namespace {

using TFields = decltype(TRecordChange::Fields);
using TTrades = decltype(TRecordChange::Trades);

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

void MergeTrades(TTrades& into, TTrades&& from) {
  std::ranges::move(from, std::back_inserter(into));
  if (into.size() > Conflator::MaximumTrades)
    into.erase(into.begin(), into.end() - Conflator::MaximumTrades);
}

} // namespace

void Conflator::Merge(TRecordChange change) {
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
  MergeTrades(into.Trades, std::move(change.Trades));
}

std::vector<TRecordChange> Conflator::Take() {
  indexBySymbol_.clear();
  mergedCount_ = 0;
  return std::exchange(changes_, {});
}

} // namespace Terminal
