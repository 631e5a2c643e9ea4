#pragma once

#include "fakes/ViewFakes.h"
#include "model/QuorPriceDataControl.h"
#include "platform/Grid.h"
#include "view/QuorPriceForm.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// A host, the form of a price view without its frame, and the depth control that the pieces of
/// the view are filled from.
class TFormTest : public testing::Test {
protected:
  TFormTest() {
    host.editors.listed = {"700", "5", "10001"};
    // A control reads what somebody listens for.
    control.OnChange = [](System::TObject*) {};
    control.OnFreeTextChange = [](System::TObject*) {};
    control.OnRelatedChange = [](System::TObject*) {};
  }

  Fakes::TFakeRecord& Record() { return host.Record("700"); }

  static std::string Text(const Platform::TcxLabel* label) { return label->text().toStdString(); }

  static Platform::TcxGridColumn* ColumnOf(const Platform::TcxGridTableView* view, int tag) {
    for (const auto& column : view->Columns())
      if (column->Tag == tag)
        return column.get();
    return nullptr;
  }

  static std::vector<int> VisibleTags(const Platform::TcxGridTableView* view) {
    std::vector<int> tags;
    for (const auto& column : view->Columns())
      if (column->Visible)
        tags.push_back(column->Tag);
    return tags;
  }

  Fakes::TViewFakes host;
  Quorpricedatacontrol::TCustomQuorMarketDataControl control{nullptr};
  Quorpriceview::TQuorPriceForm form;
};
