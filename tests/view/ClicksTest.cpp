// Clicks on cells: what reaches order entry, and from which row.

#include "host/RecordFields.h"
#include "view/PaintingFixture.h"

#include <QMenu>
#include <QTimer>

using namespace PaintingExpectations;
using Platform::TcxGrid;

namespace {

namespace Field = Host::Field;

class TClicksTest : public TPaintingTest {
protected:
  TClicksTest() {
    FillBook(host.Record("700"))
        .Set({{Field::Open, "300"},
              {Field::High, "315"},
              {Field::Low, "299"},
              {Field::High52Weeks, "400"},
              {Field::Low52Weeks, "200"},
              {Field::BoardLot, "100"}});
  }

  void Press(const char* grid, int row, int tag, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(&Grid(grid), button, {}, Middle(grid, row, tag));
  }
  void Release(const char* grid, int row, int tag, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseRelease(&Grid(grid), button, {}, Middle(grid, row, tag));
  }
  void Click(const char* grid, int row, int tag, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&Grid(grid), button, {}, Middle(grid, row, tag));
  }

  std::vector<Fakes::TSentOrder> TakeOrders() {
    return std::exchange(host.channels.sentOrders, {});
  }
};

/// What a click on a cell copies.
struct TClick {
  int row, column;
  std::optional<double> price;
  std::optional<double> quantity;
  bool bid = false;
};

void ExpectOrder(const std::vector<Fakes::TSentOrder>& orders, const TClick& click) {
  ASSERT_EQ(orders.size(), 1u) << click.row << ' ' << click.column;
  EXPECT_EQ(orders[0].symbol, "700");
  EXPECT_EQ(orders[0].price, click.price) << click.row << ' ' << click.column;
  EXPECT_EQ(orders[0].quantity, click.quantity) << click.row << ' ' << click.column;
  EXPECT_EQ(orders[0].values.contains("OrderFlags"), click.bid) << click.row << ' ' << click.column;
}

TEST_F(TClicksTest, EveryKindOfCellOfTheFullLayout) {
  Show();
  constexpr TClick clicks[] = {{6, 1, 310, 0, true},
                               {6, 16, 310, 1000, true},
                               {6, 2, 311, 0},
                               {6, 19, 311, 2000},
                               {8, 1, 310, 0, true},
                               {9, 16, 309, 0, true},
                               {12, 1, 306, 0, true},
                               {9, 2, 312, 0},
                               {12, 19, 315, 0},
                               {0, 3, 300, std::nullopt},
                               {1, 3, 315, std::nullopt},
                               {6, 3, 310.5, std::nullopt},
                               {7, 3, std::nullopt, std::nullopt}};
  for (const auto& click : clicks) {
    Click("PriceGrid", click.row, click.column);
    ExpectOrder(TakeOrders(), click);
  }
}

TEST_F(TClicksTest, AClickThatEntersAnotherSymbolCopiesNothing) {
  host.config.Set(Constdef::Section_QtyButtonCaption,
                  std::string(Constdef::KeyPrefix_QtyButton) + "1", "1K");
  FillBook(host.Record("5"));
  Show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(frame.get()));
  auto& box = Find<Platform::TcxPopupEdit>("edtSymbol");
  auto& button = Find<Platform::TcxButton>("btnQty1");
  const auto leaveWith = [&](const char* text) {
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, QLatin1String(text));
  };
  leaveWith("5");
  Click("PriceGrid", 6, 2);
  EXPECT_EQ(box.Hint(), "5");
  EXPECT_TRUE(TakeOrders().empty()) << "it was meant for the price of the symbol before";
  leaveWith("700");
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(box.Hint(), "700");
  EXPECT_TRUE(TakeOrders().empty());
  Click("PriceGrid", 6, 2);
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(TakeOrders().size(), 2u) << "the next ones copy";
  leaveWith("700");
  Click("PriceGrid", 6, 2);
  EXPECT_EQ(TakeOrders().size(), 1u) << "it enters no other symbol";
}

TEST_F(TClicksTest, EveryKindOfCellOfTheSimpleLayout) {
  Show();
  SetMode(qm10Simple);
  constexpr TClick clicks[] = {{1, 1, 310, 0, true}, {1, 19, 311, 2000},    {3, 1, 310, 0, true},
                               {4, 1, 309, 0, true}, {12, 1, 301, 0, true}, {12, 2, 320, 0}};
  for (const auto& click : clicks) {
    Click("PriceGrid", click.row, click.column);
    ExpectOrder(TakeOrders(), click);
  }
}

TEST_F(TClicksTest, LabelsQueueAndRowsWithoutPriceCopyNothing) {
  Show();
  for (const int column : {21, 55, 58, 65, 68})
    for (const int row : {0, 1, 6, 12})
      Click("PriceGrid", row, column);
  for (const int column : SideColumns)
    for (const int row : {0, 5, 7})
      Click("PriceGrid", row, column);
  EXPECT_TRUE(TakeOrders().empty());
}

TEST_F(TClicksTest, ThePerclickGridsCopyBySameRule) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Show();
  constexpr TClick prices[] = {
      {0, 1, 310, 0, true}, {0, 16, 310, 1000, true}, {1, 2, 311, 0}, {2, 19, 311, 2000}};
  for (const auto& click : prices) {
    Click("PerclickPriceGrid", click.row, click.column);
    ExpectOrder(TakeOrders(), click);
  }
  constexpr TClick figures[] = {{0, 10000, 300, std::nullopt},
                                {1, 10001, 315, std::nullopt},
                                {2, 10003, 400, std::nullopt},
                                {3, 10004, 200, std::nullopt},
                                {3, 10001, 310.5, std::nullopt}};
  for (const auto& click : figures) {
    Click("PerclickInfoGrid", click.row, click.column);
    ExpectOrder(TakeOrders(), click);
  }
}

TEST_F(TClicksTest, TheClickedRowHasTheFocusByThen) {
  Show();
  Click("PriceGrid", 6, 1);
  Click("PriceGrid", 9, 1);
  EXPECT_EQ(PriceGridView().FocusedRecordIndex(), 9);
  EXPECT_EQ(TakeOrders().back().price, 309);
}

TEST_F(TClicksTest, TheFocusedRowIsCopiedAndNotTheOneUnderTheMouse) {
  Show();
  Press("PriceGrid", 9, 2);
  PriceGridView().SetFocusedRecordIndex(6);
  Release("PriceGrid", 9, 2);
  ExpectOrder(TakeOrders(), {6, 2, 311, 0});

  host.SetFeedType(Constdef::FeedType_PerClick);
  Show();
  Press("PerclickInfoGrid", 0, 10003);
  Grid("PerclickInfoGrid").View()->SetFocusedRecordIndex(3);
  Release("PerclickInfoGrid", 0, 10003);
  ExpectOrder(TakeOrders(), {3, 10003, 400, std::nullopt});
}

TEST_F(TClicksTest, ABookThatMovesWhileTheButtonIsDownCopiesWhatItHoldsAtTheClick) {
  Show();
  Press("PriceGrid", 6, 16);
  host.Record("700").Set({{Field::BestBid, "310.8"}, {Field::BestBidSize, "44"}}).Update();
  Release("PriceGrid", 6, 16);
  EXPECT_EQ(Cell(6, 1).Text, "310.000") << "the refresh is still to come";
  ExpectOrder(TakeOrders(), {6, 16, 310.8, 44, true});

  TickRefresh();
  EXPECT_EQ(Cell(6, 1).Text, "310.800");
  Press("PriceGrid", 9, 1);
  host.Record("700").Set(Field::Bid.Price[1], "310.6").Update();
  TickRefresh();
  EXPECT_EQ(Cell(9, 1).Text, "310.600");
  Release("PriceGrid", 9, 1);
  ExpectOrder(TakeOrders(), {9, 1, 310.6, 0, true});
}

TEST_F(TClicksTest, ALevelThatIsGoneAtTheClickCopiesNoPrice) {
  Show();
  Press("PriceGrid", 9, 1);
  host.Record("700").Remove(81).Update();
  Release("PriceGrid", 9, 1);
  ExpectOrder(TakeOrders(), {9, 1, std::nullopt, 0, true});
}

TEST_F(TClicksTest, ARowThatIsGoneAtTheReleaseIsNoClick) {
  Show();
  SetMode(qm10Full);
  Press("PriceGrid", 17, 1);
  SetMode(qm5Full);
  QTest::mouseRelease(&Grid("PriceGrid"), Qt::LeftButton, {},
                      {Middle("PriceGrid", 12, 1).x(), 17 * PriceGridView().DataRowHeight() + 3});
  EXPECT_TRUE(TakeOrders().empty());
}

TEST_F(TClicksTest, ADragFromCellToCellIsNoClick) {
  Show();
  Press("PriceGrid", 6, 1);
  Release("PriceGrid", 9, 1);
  Press("PriceGrid", 6, 1);
  Release("PriceGrid", 6, 2);
  EXPECT_TRUE(TakeOrders().empty());
}

TEST_F(TClicksTest, OutsideTheCellsNothingIsCopied) {
  Show();
  auto& grid = Grid("PriceGrid");
  QTest::mouseClick(&grid, Qt::LeftButton, {}, {grid.width() - 3, 10});
  QTest::mouseClick(&grid, Qt::LeftButton, {}, {10, grid.height() - 1});
  EXPECT_TRUE(TakeOrders().empty());
}

TEST_F(TClicksTest, WithoutSymbolNothingIsCopied) {
  Show("");
  Click("PriceGrid", 6, 1);
  Click("PriceGrid", 6, 3);
  EXPECT_TRUE(TakeOrders().empty());
}

TEST_F(TClicksTest, OnlyTheLeftButtonCopies) {
  Show();
  for (const auto button : {Qt::RightButton, Qt::MiddleButton})
    Click("PriceGrid", 6, 1, button);
  EXPECT_TRUE(TakeOrders().empty());
  Click("PriceGrid", 6, 1);
  EXPECT_EQ(TakeOrders().size(), 1u);
}

TEST_F(TClicksTest, TheRightButtonOffersTheMenu) {
  Show();
  auto& menu = Find<QMenu>("PopUpMenu");
  const auto at = Middle("PriceGrid", 6, 1);
  QContextMenuEvent ask(QContextMenuEvent::Mouse, at, Grid("PriceGrid").mapToGlobal(at));
  QCoreApplication::sendEvent(&Grid("PriceGrid"), &ask);
  EXPECT_TRUE(menu.isVisible());
  menu.hide();
  EXPECT_TRUE(TakeOrders().empty());
}

TEST_F(TClicksTest, TheCopyStyleIsThatOfTheMoment) {
  Show();
  host.config.SetCurrent("CopyPriceStyle", "L");
  host.config.Announce();
  Click("PriceGrid", 6, 3);
  ExpectOrder(TakeOrders(), {6, 3, 310.5, 100});
  host.config.SetCurrent("CopyPriceStyle", "S");
  host.config.Announce();
  Click("PriceGrid", 10, 2);
  ExpectOrder(TakeOrders(), {10, 2, 313, 2000 + 2001 + 2002});
}

TEST_F(TClicksTest, ALockedViewStillCopies) {
  Show();
  frame->SetLayoutData("LockState=1");
  Click("PriceGrid", 6, 1);
  EXPECT_EQ(TakeOrders().size(), 1u);
}

} // namespace
