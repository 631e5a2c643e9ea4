#include "terminal/windows/PopupWindow.h"

#include "platform/Grid.h"
#include "terminal/script/input/Input.h"

#include <QPointer>
#include <QScreen>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

const QRect Screen(0, 0, 1366, 768);
const QSize Size(210, 200);

TEST(BesideView, StandsToTheRightOfTheView) {
  EXPECT_EQ(BesideView(QRect(100, 50, 700, 500), Size, Screen), QPoint(808, 50));
}

TEST(BesideView, StandsToTheLeftWhereThereIsNoRoomAtTheRight) {
  EXPECT_EQ(BesideView(QRect(600, 50, 700, 500), Size, Screen), QPoint(382, 50));
}

TEST(BesideView, StandsOnTheScreenWhereThereIsNoRoomAtEitherSide) {
  EXPECT_EQ(BesideView(QRect(100, 50, 1200, 500), Size, Screen), QPoint(1156, 50));
}

TEST(BesideView, DoesNotHangBelowTheScreen) {
  EXPECT_EQ(BesideView(QRect(100, 700, 700, 500), Size, Screen).y(), 568);
}

TEST(BesideView, StaysOnTheScreenOfTheView) {
  const QRect right(1366, 100, 1280, 1024);
  EXPECT_EQ(BesideView(QRect(1400, 50, 700, 500), Size, right), QPoint(2108, 100));
}

class TPopupWindowTest : public testing::Test {
protected:
  TPopupWindowTest() {
    View.setGeometry(20, 30, 200, 150);
    View.show();
  }

  QPointer<TPopupWindow> Open(int position) {
    auto* window = new TPopupWindow(&View, position);
    window->resize(120, 80);
    window->show();
    Input::Activate(window);
    return window;
  }

  QWidget View;
};

TEST_F(TPopupWindowTest, ComesUpBesideItsViewEachLowerThanTheOneBefore) {
  const auto first = Open(0);
  const auto second = Open(1);
  EXPECT_GE(first->frameGeometry().left(), View.geometry().right());
  EXPECT_EQ(first->frameGeometry().left(), second->frameGeometry().left());
  EXPECT_GT(second->frameGeometry().top(), first->frameGeometry().top());
  EXPECT_TRUE(View.screen()->availableGeometry().contains(first->frameGeometry()));
  first->close();
  second->close();
}

TEST_F(TPopupWindowTest, StaysWhereItIsMovedTo) {
  const auto window = Open(0);
  window->move(300, 200);
  const QPoint moved = window->pos();
  window->hide();
  window->show();
  EXPECT_EQ(window->pos(), moved);
}

TEST_F(TPopupWindowTest, PutsItsMarkBehindWhateverTitleItIsGiven) {
  const auto window = Open(0);
  window->SetMark(QStringLiteral("SIMULATED"));
  window->setWindowTitle(QStringLiteral("Detail"));
  EXPECT_EQ(window->windowTitle(), QStringLiteral("Detail – SIMULATED"));
  window->setWindowTitle(QStringLiteral("Detail - 5"));
  EXPECT_EQ(window->windowTitle(), QStringLiteral("Detail - 5 – SIMULATED"));
  window->SetMark({});
  EXPECT_EQ(window->windowTitle(), QStringLiteral("Detail - 5"));
  window->close();
}

TEST_F(TPopupWindowTest, GrowsAndShrinksWithTheFontOfItsViewAsItsGridDoes) {
  auto* window = new TPopupWindow(&View, 0);
  auto* grid = new Platform::TcxGrid(QStringLiteral("Grid"), window);
  auto* rows = new Platform::TcxGridTableView(QStringLiteral("GridView"), grid);
  const auto* column = rows->CreateColumn(1, 100, false);
  rows->SetDataRowHeight(17);
  window->resize(210, 200);
  window->show();
  const auto measures = [&] {
    return std::vector{window->width(), window->height(), rows->DataRowHeight(), column->Width};
  };
  EXPECT_EQ(measures(), (std::vector{210, 200, 17, 100}));
  const QFont font = View.font();
  QFont large = font;
  large.setPointSize(font.pointSize() * 2);
  View.setFont(large);
  EXPECT_EQ(measures(), (std::vector{420, 400, 34, 200}));
  View.setFont(font);
  EXPECT_EQ(measures(), (std::vector{210, 200, 17, 100}));
  delete window;
}

TEST_F(TPopupWindowTest, EscapeClosesIt) {
  const auto window = Open(0);
  Input::PressKey(window, Qt::Key_A);
  Input::Deliver();
  ASSERT_FALSE(window.isNull());
  Input::PressKey(window, Qt::Key_Escape);
  Input::Deliver();
  EXPECT_TRUE(window.isNull());
}

} // namespace
} // namespace Terminal
