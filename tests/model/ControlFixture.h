#pragma once

#include "model/QuorPriceDataControl.h"
#include "model/RecordFixture.h"

#include <string>
#include <vector>

namespace Quorpricedatacontrol {

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

/// A listened-to control of the kind under test.
template <typename TControl> class TControlTest : public TRecordTest {
protected:
  TControlTest() { ListenToAll(control, events); }

  void ShowSymbol() { control.SetSymbol("700"); }

  /// The texts of a column, row by row.
  std::vector<std::string> ColumnTexts(int column) const {
    std::vector<std::string> texts;
    for (int row = 0; row < control.GetCount(); ++row)
      texts.push_back(control.GetDisplayValue(row, column));
    return texts;
  }

  TControl control{nullptr};
  TEventCounts events;
};

using TDepthControlTest = TControlTest<TCustomQuorMarketDataControl>;

} // namespace Quorpricedatacontrol
