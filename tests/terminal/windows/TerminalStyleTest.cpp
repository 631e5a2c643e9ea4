#include "terminal/windows/TerminalStyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QMenu>

#include <gtest/gtest.h>

namespace {

/// The widest step in lightness from the window to anything in the picture of an empty check box.
int FrameContrast(const QColor& window, const QColor& text, QStyle* style) {
  QCheckBox box;
  box.setStyle(style);
  QPalette palette(window, window);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, window.darker(120));
  box.setPalette(palette);
  box.setAutoFillBackground(true);
  box.resize(40, 24);
  const QImage picture = box.grab().toImage();
  int widest = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      widest =
          std::max(widest, std::abs(picture.pixelColor(x, y).lightness() - window.lightness()));
  return widest;
}

TEST(TerminalStyle, AnEmptyCheckBoxCanBeSeenOnADarkAndOnALightWindow) {
  Terminal::TTerminalStyle style;
  EXPECT_GT(FrameContrast(QColor(0x1E222A), QColor(0xD7DCE3), &style), 70);
  EXPECT_GT(FrameContrast(QColor(0xF3F5F8), QColor(0x1B1F24), &style), 70);
}

TEST(TerminalStyle, IconsInAMenuFollowItsFont) {
  Terminal::TTerminalStyle style;
  QMenu menu;
  const auto size = [&] { return style.pixelMetric(QStyle::PM_SmallIconSize, nullptr, &menu); };
  EXPECT_EQ(size(), 16);
  QFont font = menu.font();
  font.setPointSize(QApplication::font().pointSize() * 2);
  menu.setFont(font);
  EXPECT_EQ(size(), 32);
}

} // namespace
