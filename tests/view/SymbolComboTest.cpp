// What the open list of related instruments says of them.

#include "view/SymbolCombo.h"
#include "fakes/ViewFakes.h"

#include <QAbstractItemView>
#include <QStyledItemDelegate>
#include <QTest>
#include <gtest/gtest.h>

using namespace Quorpriceview;

namespace {

class TSymbolComboTest : public testing::Test {
protected:
  TSymbolComboTest() {
    host.market.SetDescription("5", "HARBOUR BANK");
    host.market.SetDescription("13001", "HB@EC2712A  Call  320  2027-12-20");
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

TEST_F(TSymbolComboTest, TheOpenListDescribesAndTheSymbolAloneIsChosen) {
  TSymbolCombo box;
  box.setFixedWidth(100);
  box.addItems({"5", "13001", "99999"});
  box.show();
  box.showPopup();
  EXPECT_EQ(Entry(box, 0), "5   HARBOUR BANK");
  EXPECT_EQ(Entry(box, 1), "13001   HB@EC2712A  Call  320  2027-12-20");
  EXPECT_EQ(Entry(box, 2), "99999");
  EXPECT_EQ(host.Registrations().records, 0) << "nothing is asked of the records";
  EXPECT_GT(box.view()->width(), 200) << "the list is as wide as it needs";
  EXPECT_EQ(box.itemText(1), "13001");
  box.hidePopup();
}

} // namespace
