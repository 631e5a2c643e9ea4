#include "platform/DrawnIcon.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <gtest/gtest.h>

namespace {

using Platform::DrawnIcon;

/// A bar across the middle, from edge to edge.
QIcon Bar() {
  return DrawnIcon(
      [](QPainter& painter) { painter.fillRect(QRectF(0, 6, 16, 4), painter.pen().color()); });
}

QColor PixelOf(const QIcon& icon, QSize size, QPoint at, QIcon::Mode mode = QIcon::Normal) {
  return icon.pixmap(size, mode).toImage().pixelColor(at);
}

TEST(TDrawnIconTest, IsDrawnToTheSizeAskedFor) {
  for (const int side : {16, 32, 64}) {
    const QSize size(side, side);
    const QColor ink = QApplication::palette().color(QPalette::Active, QPalette::ButtonText);
    EXPECT_EQ(PixelOf(Bar(), size, {side / 4, side / 2}), ink) << side;
    EXPECT_EQ(PixelOf(Bar(), size, {side - side / 4, side / 2}), ink) << side;
    EXPECT_EQ(PixelOf(Bar(), size, {side / 2, side / 4}).alpha(), 0) << side;
  }
}

TEST(TDrawnIconTest, StaysSquareInTheMiddleOfAnotherShape) {
  const QSize wide(64, 32);
  EXPECT_EQ(PixelOf(Bar(), wide, {32, 16}).alpha(), 255);
  EXPECT_EQ(PixelOf(Bar(), wide, {8, 16}).alpha(), 0) << "left of the square";
  EXPECT_EQ(PixelOf(Bar(), wide, {56, 16}).alpha(), 0) << "right of the square";
}

TEST(TDrawnIconTest, FollowsThePaletteAndTheMode) {
  const QPalette before = QApplication::palette();
  QPalette palette = before;
  palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::red);
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::green);
  palette.setColor(QPalette::Active, QPalette::HighlightedText, Qt::blue);
  QApplication::setPalette(palette);
  const QSize size(32, 32);
  EXPECT_EQ(PixelOf(Bar(), size, {16, 16}), QColor(Qt::red));
  EXPECT_EQ(PixelOf(Bar(), size, {16, 16}, QIcon::Disabled), QColor(Qt::green));
  EXPECT_EQ(PixelOf(Bar(), size, {16, 16}, QIcon::Selected), QColor(Qt::blue));
  QApplication::setPalette(before);
}

} // namespace
