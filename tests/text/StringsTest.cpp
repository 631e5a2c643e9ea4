#include "text/Strings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> PiecesOf(std::string_view text) {
  std::vector<std::string> pieces;
  Text::ForEachPiece(text, [&](std::string_view piece) { pieces.emplace_back(piece); });
  return pieces;
}

TEST(StringsTest, EveryControlCharacterIsABlank) {
  EXPECT_EQ(Text::Trim(" \t\r\n\v\x01 7 00 \0"), "7 00");
  EXPECT_EQ(Text::Trim(" \x1f"), "");
  EXPECT_EQ(Text::Trim(""), "");
  EXPECT_EQ(Text::Trim("\u00a0"), "\u00a0");
}

TEST(StringsTest, LatinLettersAreEqualInEitherCaseAndNothingElseIs) {
  EXPECT_TRUE(Text::EqualsIgnoringCase("DisplayMode", "DISPLAYmode"));
  EXPECT_FALSE(Text::EqualsIgnoringCase("True", "Tru"));
  EXPECT_FALSE(Text::EqualsIgnoringCase("[", "{"));
  EXPECT_FALSE(Text::EqualsIgnoringCase("\u00c9", "\u00e9"));
}

TEST(StringsTest, CommasSeparatePiecesEmptyOnesToo) {
  EXPECT_EQ(PiecesOf("0123,,8088,"), (std::vector<std::string>{"0123", "", "8088", ""}));
  EXPECT_EQ(PiecesOf(""), std::vector<std::string>{""});
}

TEST(StringsTest, BytesBehindTheFirstOfACharacterContinueIt) {
  const std::string character = "\u6e2f";
  EXPECT_FALSE(Text::IsContinuation(character[0]));
  EXPECT_TRUE(Text::IsContinuation(character[1]));
  EXPECT_TRUE(Text::IsContinuation(character[2]));
  EXPECT_FALSE(Text::IsContinuation('7'));
}

} // namespace
