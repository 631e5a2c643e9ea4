#include "text/Strings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(TStringsTest, EveryControlCharacterIsABlank) {
  EXPECT_EQ(Text::Trim(" \t\r\n\v\x01 7 00 \0"), "7 00");
  EXPECT_EQ(Text::Trim(" \x1f"), "");
  EXPECT_EQ(Text::Trim(""), "");
  EXPECT_EQ(Text::Trim("\u00a0"), "\u00a0");
}

TEST(TStringsTest, LatinLettersAreEqualInEitherCaseAndNothingElseIs) {
  EXPECT_TRUE(Text::EqualsIgnoringCase("DisplayMode", "DISPLAYmode"));
  EXPECT_FALSE(Text::EqualsIgnoringCase("True", "Tru"));
  EXPECT_FALSE(Text::EqualsIgnoringCase("[", "{"));
  EXPECT_FALSE(Text::EqualsIgnoringCase("\u00c9", "\u00e9"));
}

TEST(TStringsTest, BlanksAroundATextAreTrimmed) {
  EXPECT_EQ(Text::Trim(" \t 700 5\n"), "700 5");
  EXPECT_EQ(Text::Trim("700"), "700");
  EXPECT_EQ(Text::Trim("\xE8\xB2\xB7 "), "\xE8\xB2\xB7");
  EXPECT_EQ(Text::Trim(" \t"), "");
  EXPECT_EQ(Text::Trim(""), "");
}

TEST(TStringsTest, EmptyPiecesCountToo) {
  const auto pieces = [](std::string_view text) {
    std::vector<std::string> all;
    Text::ForEachPiece(text, [&all](std::string_view piece) { all.emplace_back(piece); });
    return all;
  };
  EXPECT_EQ(pieces("a, b,,c,"), (std::vector<std::string>{"a", " b", "", "c", ""}));
  EXPECT_EQ(pieces("a"), std::vector<std::string>{"a"});
  EXPECT_EQ(pieces(""), std::vector<std::string>{""});
}

TEST(TStringsTest, ACharactersFirstByteIsNoContinuation) {
  for (const char byte : {'a', '\xE8', '\xC3', '\x7F', '\0'})
    EXPECT_FALSE(Text::IsContinuation(byte)) << byte;
  for (const char byte : {'\xB2', '\x80', '\xBF'})
    EXPECT_TRUE(Text::IsContinuation(byte)) << byte;
}

} // namespace
