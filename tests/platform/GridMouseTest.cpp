#include "platform/GridFixture.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QSignalSpy>

using namespace Platform;

namespace {

struct TClick {
  int Focused;
  const TcxGridColumn* Column;
  Qt::MouseButton Button;

  bool operator==(const TClick&) const = default;
};

class TGridMouseTest : public TGridTest {
protected:
  std::vector<TClick> Clicks;

  void SetUp() override {
    QObject::connect(View, &TcxGridTableView::CellClick, View,
                     [this](const TcxGridColumn* column, Qt::MouseButton button) {
                       Clicks.push_back({View->FocusedRecordIndex(), column, button});
                     });
    Show();
  }
};

} // namespace

TEST_F(TGridMouseTest, AClickFocusesItsRecordFirst) {
  QTest::mouseClick(&Grid, Qt::LeftButton, {}, Middle(2, 1));
  EXPECT_EQ(Clicks, (std::vector<TClick>{{2, Columns[1], Qt::LeftButton}}));
  EXPECT_EQ(View->FocusedRecordIndex(), 2);
}

TEST_F(TGridMouseTest, EveryButtonClicks) {
  QTest::mouseClick(&Grid, Qt::MiddleButton, {}, Middle(1, 0));
  QTest::mouseClick(&Grid, Qt::RightButton, {}, Middle(3, 2));
  EXPECT_EQ(Clicks, (std::vector<TClick>{{1, Columns[0], Qt::MiddleButton},
                                         {3, Columns[2], Qt::RightButton}}));
}

TEST_F(TGridMouseTest, ADoubleClickIsTwoClicks) {
  QTest::mouseClick(&Grid, Qt::LeftButton, {}, Middle(1, 0));
  QTest::mouseDClick(&Grid, Qt::LeftButton, {}, Middle(1, 0)); // the second press only
  QTest::mouseRelease(&Grid, Qt::LeftButton, {}, Middle(1, 0));
  EXPECT_EQ(Clicks, (std::vector<TClick>(2, {1, Columns[0], Qt::LeftButton})));
}

TEST_F(TGridMouseTest, PressAloneFocuses) {
  QTest::mousePress(&Grid, Qt::LeftButton, {}, Middle(3, 0));
  EXPECT_EQ(View->FocusedRecordIndex(), 3);
  EXPECT_TRUE(Clicks.empty());
  QTest::mouseRelease(&Grid, Qt::LeftButton, {}, Middle(3, 0));
  EXPECT_EQ(Clicks.size(), 1u);
}

TEST_F(TGridMouseTest, ReleasingOverAnotherCellIsNoClick) {
  QTest::mousePress(&Grid, Qt::LeftButton, {}, Middle(1, 1));
  QTest::mouseRelease(&Grid, Qt::LeftButton, {}, Middle(2, 1));
  QTest::mousePress(&Grid, Qt::LeftButton, {}, Middle(1, 1));
  QTest::mouseRelease(&Grid, Qt::LeftButton, {}, Middle(1, 2));
  QTest::mousePress(&Grid, Qt::LeftButton, {}, Middle(1, 1));
  QTest::mouseRelease(&Grid, Qt::LeftButton, {}, {160, 95});
  EXPECT_TRUE(Clicks.empty());
  EXPECT_EQ(View->FocusedRecordIndex(), 1);
}

TEST_F(TGridMouseTest, AnotherButtonDoesNotEndAClick) {
  QTest::mousePress(&Grid, Qt::LeftButton, {}, Middle(1, 1));
  QTest::mouseRelease(&Grid, Qt::RightButton, {}, Middle(1, 1));
  EXPECT_TRUE(Clicks.empty());
  QTest::mouseRelease(&Grid, Qt::LeftButton, {}, Middle(1, 1));
  EXPECT_EQ(Clicks.size(), 1u);
}

TEST_F(TGridMouseTest, OutsideTheCellsNothingIsClicked) {
  QTest::mouseClick(&Grid, Qt::LeftButton, {}, {160, 30});
  EXPECT_EQ(View->FocusedRecordIndex(), 1); // a record, though no column
  QTest::mouseClick(&Grid, Qt::LeftButton, {}, {10, 90});
  EXPECT_EQ(View->FocusedRecordIndex(), 1);
  EXPECT_TRUE(Clicks.empty());
}

TEST_F(TGridMouseTest, ARecordThatGoesUnderThePressIsNotClicked) {
  QTest::mousePress(&Grid, Qt::LeftButton, {}, Middle(3, 1));
  const QPoint where = Middle(3, 1);
  Source.Rows.pop_back();
  View->Refresh();
  QTest::mouseRelease(&Grid, Qt::LeftButton, {}, where);
  EXPECT_TRUE(Clicks.empty());
  EXPECT_EQ(View->FocusedRecordIndex(), 2);
}

TEST_F(TGridMouseTest, TheMouseIsFollowedWithoutAButton) {
  QSignalSpy moved(View, &TcxGridTableView::MouseMove);
  EXPECT_TRUE(Grid.hasMouseTracking());
  QTest::mouseMove(&Grid, {33, 44});
  QApplication::processEvents();
  ASSERT_FALSE(moved.isEmpty());
  EXPECT_EQ(moved.last().at(0).toPoint(), QPoint(33, 44));
}

TEST_F(TGridMouseTest, AClickTakesTheFocusFromABox) {
  EXPECT_EQ(Grid.focusPolicy(), Qt::ClickFocus);
}

TEST_F(TGridMouseTest, ARightClickShowsThePopupMenu) {
  QMenu menu;
  menu.addAction("Detail");
  const QPoint global = Grid.mapToGlobal(Middle(1, 1));
  QContextMenuEvent without(QContextMenuEvent::Mouse, Middle(1, 1), global);
  QApplication::sendEvent(&Grid, &without);
  EXPECT_FALSE(menu.isVisible());
  View->SetPopupMenu(&menu);
  QContextMenuEvent with(QContextMenuEvent::Mouse, Middle(1, 1), global);
  QApplication::sendEvent(&Grid, &with);
  EXPECT_TRUE(menu.isVisible());
  EXPECT_EQ(menu.pos(), global);
  menu.hide();
  View->SetPopupMenu(nullptr);
}

TEST_F(TGridMouseTest, AMenuWithoutAVisibleEntryIsNotShown) {
  QMenu menu;
  menu.addAction("Detail")->setVisible(false);
  menu.addAction("Names")->setVisible(false);
  View->SetPopupMenu(&menu);
  QContextMenuEvent event(QContextMenuEvent::Mouse, Middle(1, 1), Grid.mapToGlobal(Middle(1, 1)));
  QApplication::sendEvent(&Grid, &event);
  EXPECT_FALSE(menu.isVisible());
  menu.actions().last()->setVisible(true);
  QApplication::sendEvent(&Grid, &event);
  EXPECT_TRUE(menu.isVisible());
  menu.hide();
  View->SetPopupMenu(nullptr);
}

TEST_F(TGridMouseTest, AResizeIsTold) {
  QSignalSpy resized(&Grid, &TcxGrid::Resized);
  Grid.resize(180, 120);
  QApplication::processEvents();
  EXPECT_GE(resized.size(), 1);
}
