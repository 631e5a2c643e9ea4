// The price view under a user's own mouse and keyboard.

#include "view/PaintingFixture.h"
#include "x11/Mouse.h"

#include <QMenu>

using Platform::TcxComboBox;
using Platform::TcxGrid;
using Platform::TcxPopupEdit;

namespace {

namespace Field = Host::Field;

class TPriceViewTest : public TPaintingTest {
protected:
  TPriceViewTest() {
    for (const char* symbol : {"700", "5"})
      PaintingExpectations::FillBook(host.Record(symbol));
  }

  void Open() {
    TPaintingTest::Open();
    TViewTest::Type("700");
    frame->resize(frame->GetWidth(), frame->GetHeight());
    X11::Show(*frame);
  }

  QWidget& Prices() { return Find<TcxGrid>("PriceGrid"); }
  QPoint Cell(int row, int column) {
    return PriceGridView().CellBounds(row, ColumnOf("PriceGrid", column)).center();
  }
  std::vector<Fakes::TSentOrder> TakeOrders() {
    return std::exchange(host.channels.sentOrders, {});
  }
  TcxPopupEdit& Box() { return Find<TcxPopupEdit>("edtSymbol"); }
};

TEST_F(TPriceViewTest, AClickOnAPriceUnderTheBrokerHintCopies) {
  Open();
  auto& hints = Find<Platform::TcxHintStyleController>("HintCtrl");
  const QPoint price = Prices().mapToGlobal(Cell(6, 2));
  hints.ShowHint(price.x() - 60, price.y() - 30, QString(60, u'W'), "", 0);
  QTest::qWait(200);
  const auto windows = QApplication::topLevelWidgets();
  ASSERT_TRUE(std::ranges::any_of(windows, [&](const QWidget* window) {
    return window->windowType() == Qt::ToolTip && window->geometry().contains(price);
  })) << "it lies over the price";
  X11::Click(Prices(), Cell(6, 2));
  const auto orders = TakeOrders();
  ASSERT_EQ(orders.size(), 1u);
  EXPECT_EQ(orders[0].price, 311);
}

TEST_F(TPriceViewTest, AClickThatLeavesAnUnfinishedSymbolCopiesNothing) {
  Open();
  X11::Click(Box(), Box().rect().center());
  EXPECT_EQ(Box().selectedText(), "700");
  X11::Type("5");
  X11::Click(Prices(), Cell(6, 2));
  EXPECT_EQ(Box().Hint(), "5");
  EXPECT_TRUE(TakeOrders().empty());
  X11::Click(Prices(), Cell(6, 2));
  const auto orders = TakeOrders();
  ASSERT_EQ(orders.size(), 1u);
  EXPECT_EQ(orders[0].symbol, "5");
}

TEST_F(TPriceViewTest, EscapeShowsTheSymbolAgain) {
  Open();
  X11::Click(Box(), Box().rect().center());
  X11::Type("12");
  X11::Press("Escape");
  EXPECT_EQ(Box().text(), "700");
  X11::Click(Prices(), Cell(6, 2));
  EXPECT_EQ(TakeOrders().size(), 1u) << "nothing was entered";
}

TEST_F(TPriceViewTest, TheWheelOverAClosedListChangesNothing) {
  host.Record("700").Set(Field::WarrantList, "5 10001");
  Open();
  auto& list = Find<TcxComboBox>("cmbWarrant");
  ASSERT_TRUE(list.isVisible());
  X11::Turn(list, -2);
  list.setFocus();
  X11::Turn(list, -2);
  EXPECT_EQ(list.currentIndex(), -1);
  EXPECT_EQ(Box().Hint(), "700");
}

TEST_F(TPriceViewTest, AnEmptyMenuDoesNotTakeTheNextClick) {
  host.SetFeedType(Constdef::FeedType_Delayed);
  host.Record("700").Set(Field::ProductType, "2"); // without details
  Open();
  X11::Click(Prices(), Cell(6, 2), 3);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  X11::Click(Prices(), Cell(6, 2));
  EXPECT_EQ(TakeOrders().size(), 1u);
}

} // namespace
