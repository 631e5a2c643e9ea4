#include "platform/Colour.h"
#include "platform/ColourText.h"

#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

using namespace Platform;

TEST(Colour, RedIsTheLowestByte) {
  EXPECT_EQ(ToQColor(255), QColor(255, 0, 0));
  EXPECT_EQ(ToQColor(0x00332211), QColor(0x11, 0x22, 0x33));
}

TEST(Colour, GoesBothWays) {
  EXPECT_EQ(FromQColor(QColor(0x11, 0x22, 0x33)), 0x00332211u);
  EXPECT_EQ(FromQColor(QColor(255, 255, 255)), 0x00FFFFFFu);
  EXPECT_EQ(FromQColor(ToQColor(0x00ABCDEF)), 0x00ABCDEFu);
}

TEST(Colour, ASystemColourIsThePalettes) {
  const QPalette before = QGuiApplication::palette();
  QPalette palette = before;
  const std::pair<TColor, QPalette::ColorRole> roles[] = {{0xFF000005, QPalette::Base},
                                                          {0xFF000008, QPalette::Text},
                                                          {0xFF00000F, QPalette::Button},
                                                          {0xFF00000D, QPalette::Highlight},
                                                          {0xFF00000E, QPalette::HighlightedText},
                                                          {0xFF000063, QPalette::Window}};
  int shade = 10;
  for (const auto& [colour, role] : roles)
    palette.setColor(role, QColor(shade += 20, 1, 2));
  QGuiApplication::setPalette(palette);
  shade = 10;
  for (const auto& [colour, role] : roles)
    EXPECT_EQ(ToQColor(colour), QColor(shade += 20, 1, 2)) << colour;
  QGuiApplication::setPalette(before);
}

TEST(ColourText, ReadsDecimalAndHexadecimal) {
  EXPECT_EQ(ParseColour("255"), 255u);
  EXPECT_EQ(ParseColour("$00FF00FF"), 0x00FF00FFu);
  EXPECT_EQ(ParseColour("$ff"), 0xFFu);
  EXPECT_EQ(ParseColour("-1"), 0xFFFFFFFFu);
}

TEST(ColourText, RefusesWhatIsNoInteger) {
  for (const char* text : {"", "$", "red", "12 ", "$12G", "$123456789", "1.5"})
    EXPECT_FALSE(ParseColour(text)) << text;
}

TEST(ColourText, WritesEightDigits) {
  EXPECT_EQ(ColourText(255), "$000000FF");
  EXPECT_EQ(ColourText(0xFF000005), "$FF000005");
}
