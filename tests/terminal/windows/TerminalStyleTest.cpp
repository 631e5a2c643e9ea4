#include "terminal/windows/TerminalStyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QFrame>
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

/// How far the border of an open menu or list is in lightness from the window's colour.
int BorderContrast(QWidget& popup, const QColor& window, const QColor& text, QStyle* style) {
  popup.setStyle(style);
  QPalette palette(window, window);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, window);
  popup.setPalette(palette);
  popup.resize(60, 40);
  const QImage picture = popup.grab().toImage();
  return std::abs(picture.pixelColor(0, 20).lightness() - window.lightness());
}

TEST(TerminalStyle, MenusAndListsHaveABorderThatCanBeSeen) {
  Terminal::TTerminalStyle style;
  QMenu menu;
  menu.addAction("Detail");
  QFrame list(nullptr, Qt::Popup);
  list.setFrameStyle(QFrame::StyledPanel);
  for (QWidget* popup : std::initializer_list<QWidget*>{&menu, &list}) {
    EXPECT_GT(BorderContrast(*popup, QColor(0x1E222A), QColor(0xD7DCE3), &style), 40);
    EXPECT_GT(BorderContrast(*popup, QColor(0xF3F5F8), QColor(0x1B1F24), &style), 40);
  }
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
