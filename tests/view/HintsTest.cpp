// The broker hint that follows the mouse over the queue, and how it goes away.

#include "host/RecordFields.h"
#include "platform/HintController.h"
#include "view/PaintingFixture.h"

#include <QAction>
#include <QApplication>

using namespace PaintingExpectations;

namespace {

namespace Field = Host::Field;

class THintsTest : public TPaintingTest {
protected:
  THintsTest() {
    FillBook(host.Record("700"));
    host.market.SetBroker("1234", "First");
    host.market.SetBroker("5678", "Fifth");
    host.market.SetBroker("0007", "Seventh");
    host.market.SetBroker("0008", "Eighth");
  }

  std::string Hint() {
    return Find<Platform::TcxHintStyleController>("HintCtrl").VisibleCaption().toStdString();
  }

  QLabel& HintWindow() {
    for (auto* label : frame->findChildren<QLabel*>())
      if (label->windowType() == Qt::ToolTip)
        return *label;
    throw std::runtime_error("no hint window");
  }

  void Tick(int times) {
    for (int i = 0; i < times; ++i)
      host.timers.Tick();
  }
};

TEST_F(THintsTest, EveryQueueColumnNamesItsBroker) {
  std::string queue = "1"; // and First at the head of each further column
  for (int entry = 1; entry < 48; ++entry)
    queue += entry % 12 == 0 ? ",1234" : ",7";
  host.Record("700").Set(Field::BidQueue, queue).Set(Field::AskQueue, queue);
  Show();
  for (const int column : QueueColumns) {
    MoveTo(2, column);
    EXPECT_EQ(Hint(), "Seventh") << column;
    MoveTo(1, column);
    EXPECT_EQ(Hint(), column == 55 || column == 65 ? "0001" : "First") << column;
  }
}

TEST_F(THintsTest, TheHintIsTheNameAloneOnOneLine) {
  host.market.SetBroker("1234", "First & <b>Second</b> Securities (Hong Kong) Limited");
  Show();
  MoveTo(1, 55);
  EXPECT_EQ(HintWindow().text(), "First & <b>Second</b> Securities (Hong Kong) Limited");
  EXPECT_EQ(HintWindow().textFormat(), Qt::PlainText);
  EXPECT_FALSE(HintWindow().wordWrap()) << "no limit to its width";
}

TEST_F(THintsTest, TheHintStandsBesideThePointerWhereverTheViewIs) {
  Show();
  const auto offsetAt = [this](const QPoint& position) {
    MoveTo(position);
    return HintWindow().pos() - Grid("PriceGrid").mapToGlobal(position);
  };
  frame->move(10, 10);
  const auto offset = offsetAt(Middle("PriceGrid", 1, 55));
  frame->move(50, 40);
  EXPECT_EQ(offsetAt(Middle("PriceGrid", 2, 56)), offset);
  EXPECT_LT(offset.manhattanLength(), 60);
}

TEST_F(THintsTest, AlongARowTheHintStaysAndInAnotherRowItChanges) {
  Show();
  MoveTo(2, 56);
  EXPECT_EQ(Hint(), "First");
  MoveTo(2, 55);
  EXPECT_EQ(Hint(), "First") << "the level marker of the same row";
  MoveTo(2, 65);
  EXPECT_EQ(Hint(), "First") << "and the other side's broker";
  MoveTo(1, 65);
  EXPECT_EQ(Hint(), "Fifth");
  MoveTo(2, 65);
  EXPECT_EQ(Hint(), "First") << "of the ask side now";
}

TEST_F(THintsTest, OtherColumnsChangeNothing) {
  Show();
  for (const int column : {21, 3, 16, 1, 19, 2})
    MoveTo(1, column);
  EXPECT_EQ(Hint(), "");
  MoveTo(1, 55);
  for (const int column : {21, 3, 16, 1, 19, 2})
    MoveTo(8, column);
  EXPECT_EQ(Hint(), "First");
  Tick(10);
  MoveTo(1, 55);
  EXPECT_EQ(Hint(), "") << "the row of the last hint is still that one";
}

TEST_F(THintsTest, RightOfTheColumnsTheLastRowIsForgotten) {
  Show();
  MoveTo(1, 55);
  Tick(10);
  MoveTo({Grid("PriceGrid").width() - 3, Middle("PriceGrid", 4, 55).y()});
  MoveTo(1, 55);
  EXPECT_EQ(Hint(), "First");
}

TEST_F(THintsTest, BelowTheRowsNothingIsForgotten) {
  Show();
  MoveTo(1, 55);
  Tick(10);
  MoveTo({Middle("PriceGrid", 1, 55).x(), Grid("PriceGrid").height() - 1});
  MoveTo({Grid("PriceGrid").width() - 3, Grid("PriceGrid").height() - 1});
  MoveTo(1, 55);
  EXPECT_EQ(Hint(), "");
}

TEST_F(THintsTest, TheTenthTickHidesTheHint) {
  Show();
  Tick(25);
  MoveTo(1, 55);
  Tick(9);
  EXPECT_EQ(Hint(), "First");
  Tick(1);
  EXPECT_EQ(Hint(), "");
  Tick(25);
  MoveTo(2, 56);
  Tick(9);
  EXPECT_EQ(Hint(), "First") << "the count began anew";
  Tick(1);
  EXPECT_EQ(Hint(), "");
}

TEST_F(THintsTest, AnotherHintStartsTheCountAgain) {
  Show();
  MoveTo(1, 55);
  Tick(9);
  MoveTo(1, 65);
  Tick(1);
  EXPECT_EQ(Hint(), "") << "the same row is no other hint";
  MoveTo(2, 65);
  Tick(9);
  MoveTo(1, 65);
  Tick(9);
  EXPECT_EQ(Hint(), "Fifth");
  Tick(1);
  EXPECT_EQ(Hint(), "");
}

TEST_F(THintsTest, AnEmptyPlaceShowsNoHintButCountsAsTheLastRow) {
  Show();
  MoveTo(12, 65);
  EXPECT_EQ(Hint(), "");
  MoveTo(12, 55);
  EXPECT_EQ(Hint(), "") << "its row was recorded, though a broker stands here";
  MoveTo(1, 55);
  Tick(9);
  MoveTo(3, 55);
  EXPECT_EQ(Hint(), "First") << "an empty place leaves the hint that is shown";
  Tick(9);
  EXPECT_EQ(Hint(), "First") << "and starts its count again";
  Tick(1);
  EXPECT_EQ(Hint(), "");
}

TEST_F(THintsTest, TheHeadOfTheQueueHasNoHint) {
  Show();
  MoveTo(0, 55);
  MoveTo(0, 65);
  EXPECT_EQ(Hint(), "");
}

TEST_F(THintsTest, ABrokerThatNobodyKnowsAndALevelMarkerShowAsTheyAre) {
  Show();
  MoveTo(4, 55);
  EXPECT_EQ(Hint(), "0056");
  MoveTo(2, 55);
  EXPECT_EQ(Hint(), "+1");
}

TEST_F(THintsTest, WhereNamesAreShownTheHintIsTheId) {
  Show();
  Find<QAction>("mBrokerName").trigger();
  EXPECT_EQ(Cell(1, 55).Text, "First");
  MoveTo(1, 55);
  EXPECT_EQ(Hint(), "1234");
}

TEST_F(THintsTest, AnotherSymbolForgetsTheLastRow) {
  host.Record("5").Set(Field::BidQueue, "5678");
  Show();
  MoveTo(1, 55);
  Tick(10);
  frame->SetSymbol("5");
  MoveTo(1, 55);
  EXPECT_EQ(Hint(), "Fifth");
  frame->SetSymbol("5");
  Tick(10);
  MoveTo(1, 55);
  EXPECT_EQ(Hint(), "") << "the same symbol forgets nothing";
}

TEST_F(THintsTest, TheQueueOfTheMomentIsNamedAlsoBeforeTheRefresh) {
  frameInterval = 2000; // long enough for a busy machine to come before the refresh
  host.config.SetCurrent("QuorPriceUpdateInterval", std::to_string(frameInterval).c_str());
  Show();
  host.Record("700").Set(Field::BidQueue, "5678").Update();
  MoveTo(1, 55);
  EXPECT_EQ(Cell(1, 55).Text, "1234");
  EXPECT_EQ(Hint(), "Fifth");
}

TEST_F(THintsTest, AViewThatIsHiddenTakesItsHintAway) {
  Show();
  MoveTo(1, 55);
  ASSERT_TRUE(HintWindow().isVisible());
  frame->hide();
  EXPECT_FALSE(HintWindow().isVisible());
  Tick(12);
  frame->show();
  MoveTo(2, 56);
  Tick(9);
  EXPECT_EQ(Hint(), "First") << "the count of the next hint is its own";
}

TEST_F(THintsTest, AViewInAHiddenPaneTakesItsHintAway) {
  auto* pane = new QWidget;
  Open().setParent(pane);
  Type("700");
  pane->resize(900, 700);
  pane->show();
  frame->show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(pane));
  TickRefresh();
  const auto at = Grid("PriceGrid").mapTo(pane, Middle("PriceGrid", 1, 55));
  QTest::mouseMove(pane->windowHandle(), {0, 0});
  QTest::mouseMove(pane->windowHandle(), at);
  QCoreApplication::processEvents();
  EXPECT_EQ(Hint(), "First");
  pane->hide();
  EXPECT_EQ(Hint(), "");
  frame.reset();
  delete pane;
}

TEST_F(THintsTest, AViewThatIsClosedLeavesNoHintOnTheScreen) {
  Show();
  MoveTo(1, 55);
  ASSERT_EQ(Hint(), "First");
  frame.reset();
  for (const auto* window : QApplication::topLevelWidgets())
    EXPECT_FALSE(window->isVisible() && window->windowType() == Qt::ToolTip);
  Tick(12);
}

} // namespace
