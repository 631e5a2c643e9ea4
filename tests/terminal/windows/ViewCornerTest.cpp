#include "terminal/windows/ViewCorner.h"

#include "terminal/script/input/Input.h"

#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

constexpr QSize Laptop(1366, 768);
constexpr int Bar = 16;

TEST(ViewCorner, IsNeverSmallerThanAViewThatTheScreenHasRoomFor) {
  EXPECT_EQ(TViewCorner::LeastSize({766, 390}, Laptop, Bar), QSize(766, 390));
  EXPECT_EQ(TViewCorner::LeastSize({1150, 590}, {1920, 1080}, Bar), QSize(1150, 590));
}

TEST(ViewCorner, LeavesRoomForTheOtherDocksOnASmallScreen) {
  EXPECT_EQ(TViewCorner::LeastSize({1150, 590}, Laptop, Bar), QSize(966, 438));
}

TEST(ViewCorner, ScrollingOneWayTakesRoomForTheBarTheOtherWay) {
  EXPECT_EQ(TViewCorner::LeastSize({700, 590}, Laptop, Bar), QSize(716, 438));
  EXPECT_EQ(TViewCorner::LeastSize({1150, 300}, Laptop, Bar), QSize(966, 316));
}

TEST(ViewCorner, ShowsTheViewAtItsOwnSizeAndFollowsIt) {
  auto* view = new QWidget;
  auto* column = new QVBoxLayout(view);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSizeConstraint(QLayout::SetFixedSize);
  auto* content = new QWidget;
  content->setFixedSize(200, 150);
  column->addWidget(content);
  TViewCorner corner(view);
  corner.resize(400, 300);
  corner.show();
  Input::Deliver();
  EXPECT_EQ(QRect(view->mapTo(&corner, QPoint()), view->size()), QRect(0, 0, 200, 150));
  EXPECT_EQ(corner.sizeHint(), QSize(200, 150));
  content->setFixedSize(250, 170);
  Input::Deliver();
  EXPECT_EQ(view->size(), QSize(250, 170));
  EXPECT_EQ(corner.sizeHint(), QSize(250, 170));
}

} // namespace
} // namespace Terminal
