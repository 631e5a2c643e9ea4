#pragma once

#include "fakes/HostFakes.h"
#include "model/QuorPriceDataControl.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Quorpricedatacontrol {

/// Columns of the book in the depth grid.
inline constexpr int PriceAndSizeColumns[] = {Column::BidPrice, Column::AskPrice, Column::BidSize,
                                              Column::AskSize};

/// How often each event of a control was fired.
struct TEventCounts {
  int change = 0, freeText = 0, related = 0, field22 = 0, count = 0;
};

/// Listens to every event of `control` with `counts`.
inline void ListenToAll(TCustomQuorMarketDataControl& control, TEventCounts& counts) {
  control.OnChange = [&counts](System::TObject*) { ++counts.change; };
  control.OnFreeTextChange = [&counts](System::TObject*) { ++counts.freeText; };
  control.OnRelatedChange = [&counts](System::TObject*) { ++counts.related; };
  control.OnField22Known = [&counts](System::TObject*) { ++counts.field22; };
  control.OnCountChange = [&counts](System::TObject*) { ++counts.count; };
}

/// A host, and a listened-to control of the kind under test.
template <typename TControl> class TControlTest : public testing::Test {
protected:
  TControlTest() { ListenToAll(control, events); }

  /// The record of the symbol that the tests use.
  Fakes::TFakeRecord& Record() { return host.Record("700"); }

  void ShowSymbol() { control.SetSymbol("700"); }

  /// The texts of a column, row by row.
  std::vector<std::string> ColumnTexts(int column) const {
    std::vector<std::string> texts;
    for (int row = 0; row < control.GetCount(); ++row)
      texts.push_back(control.GetDisplayValue(row, column));
    return texts;
  }

  Fakes::THostFakes host;
  TControl control{nullptr};
  TEventCounts events;
};

using DepthControlTest = TControlTest<TCustomQuorMarketDataControl>;

/// Ten priced levels a side: bids 99, 98, ..., asks 101, 102, ...; sizes 1000, 2000, ... and
/// 1100, 2100, ...; order counts 1, 2, ... and 11, 12, ...
inline void FillDepth(Fakes::TFakeRecord& record) {
  for (int level = 0; level < Field::DepthLevels; ++level) {
    const auto at = static_cast<std::size_t>(level);
    record.Set(Field::Bid.Price[at], std::to_string(99 - level));
    record.Set(Field::Ask.Price[at], std::to_string(101 + level));
    record.Set(Field::Bid.Size[at], std::to_string(1000 * (level + 1)));
    record.Set(Field::Ask.Size[at], std::to_string(1000 * (level + 1) + 100));
    record.Set(Field::Bid.Count[at], std::to_string(1 + level));
    record.Set(Field::Ask.Count[at], std::to_string(11 + level));
  }
}

/// The same levels as an order-count feed gives them: no prices beyond the best.
inline void FillOrderCountDepth(Fakes::TFakeRecord& record) {
  FillDepth(record);
  for (std::size_t level = 1; level < Field::DepthLevels; ++level)
    record.Remove(Field::Bid.Price[level]).Remove(Field::Ask.Price[level]);
}

} // namespace Quorpricedatacontrol
