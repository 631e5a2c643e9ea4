// What the open list of related instruments says of them.

#include "view/SymbolCombo.h"
#include "fakes/ViewFakes.h"
#include "host/RecordFields.h"

#include <QAbstractItemView>
#include <QTest>
#include <gtest/gtest.h>

using namespace Quorpriceview;

namespace {

namespace Field = Host::Field;

class TSymbolComboTest : public testing::Test {
protected:
  TSymbolComboTest() {
    host.Record("5").Set({{Field::Name, "HARBOUR BANK "}, {Field::ProductType, "1"}});
    host.Record("13001").Set({{Field::Name, "HB@EC2712A"},
                              {Field::ProductType, "4"},
                              {Field::CallPut, "C"},
                              {Field::StrikePrice, "320"},
                              {Field::ExpiryDate, "2027-12-20"}});
  }

  /// The text of an entry of the open list.
  static QString Entry(TSymbolCombo& box, int item) {
    QStyleOptionViewItem option;
    const auto* delegate = box.view()->itemDelegate();
    struct TOpen : QStyledItemDelegate {
      using QStyledItemDelegate::initStyleOption;
    };
    (static_cast<const QStyledItemDelegate*>(delegate)->*&TOpen::initStyleOption)(
        &option, box.model()->index(item, 0));
    return option.text;
  }

  Fakes::TViewFakes host;
};

TEST_F(TSymbolComboTest, AnInstrumentIsDescribedByWhatTheHostKnows) {
  EXPECT_EQ(InstrumentDescription("5"), "HARBOUR BANK");
  EXPECT_EQ(InstrumentDescription("13001"), "HB@EC2712A  Res_Call  13001@320/8  2027-12-20");
  EXPECT_EQ(InstrumentDescription("99999"), "");
  EXPECT_EQ(InstrumentDescription(""), "");
}

TEST_F(TSymbolComboTest, NothingStaysSubscribed) {
  const auto before = host.Registrations();
  InstrumentDescription("13001");
  EXPECT_EQ(host.Registrations(), before);
}

TEST_F(TSymbolComboTest, TheOpenListDescribesAndTheSymbolAloneIsChosen) {
  TSymbolCombo box;
  box.setFixedWidth(100);
  box.addItems({"5", "13001"});
  box.show();
  box.showPopup();
  EXPECT_EQ(Entry(box, 0), "5   HARBOUR BANK");
  EXPECT_TRUE(Entry(box, 1).startsWith("13001   HB@EC2712A"));
  EXPECT_GT(box.view()->width(), 200) << "the list is as wide as it needs";
  EXPECT_EQ(box.itemText(1), "13001");
  box.hidePopup();
}

} // namespace
