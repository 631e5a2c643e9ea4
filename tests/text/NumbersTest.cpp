#include "text/Numbers.h"

#include <gtest/gtest.h>

namespace {

TEST(TNumbersTest, ANumberIsTheWholeText) {
  EXPECT_EQ(Text::ParseNumber(" +1.5\t"), 1.5);
  EXPECT_EQ(Text::ParseNumber("1 5"), std::nullopt);
  EXPECT_EQ(Text::ParseNumber("+"), std::nullopt);
  EXPECT_EQ(Text::ParseNumber("  "), std::nullopt);
  EXPECT_EQ(Text::ParseNumber("1e999"), std::nullopt);
  EXPECT_EQ(Text::ParseInteger("-12"), -12);
  EXPECT_EQ(Text::ParseInteger("12.0"), std::nullopt);
}

TEST(TNumbersTest, TheLargestNumberHasAText) {
  std::string text;
  Text::WriteNumber(text, 1.7976931348623157e308, 0, 8, Text::TGrouping::None);
  EXPECT_EQ(text.size(), 309U);
  EXPECT_EQ(text.substr(0, 5), "17976");
}

TEST(TNumbersTest, ANumberIsReadByItsWholeTextOnly) {
  EXPECT_EQ(Text::ParseWhole<int>("12"), 12);
  EXPECT_EQ(Text::ParseWhole<double>("-0.5"), -0.5);
  for (const char* text : {"", " 12", "12 ", "+12", "12x"})
    EXPECT_EQ(Text::ParseWhole<int>(text), std::nullopt) << text;
  EXPECT_EQ(Text::ParseWhole<int>("2147483648"), std::nullopt);
}

TEST(TNumbersTest, DecimalsAreTheDigitsBehindThePoint) {
  EXPECT_EQ(Text::DecimalsIn("318"), 0);
  EXPECT_EQ(Text::DecimalsIn("318.20"), 2);
  EXPECT_EQ(Text::DecimalsIn("0.005x"), 3);
}

TEST(TNumbersTest, APriceTextKeepsAllItsDecimalsAndIsFilledToTheLeast) {
  std::string text;
  Text::WritePriceText(text, " 318.2 ", 3);
  EXPECT_EQ(text, "318.200");
  Text::WritePriceText(text, "0.0305", 3);
  EXPECT_EQ(text, "0.0305");
  Text::WritePriceText(text, "1e2", 2);
  EXPECT_EQ(text, "100.00");
  Text::WritePriceText(text, "n/a", 2);
  EXPECT_EQ(text, "n/a");
}

TEST(TNumbersTest, AQuantityTextIsGroupedWithoutALimit) {
  std::string text;
  Text::WriteQuantityText(text, "123456789012345678901");
  EXPECT_EQ(text, "123,456,789,012,345,678,901");
}

TEST(TNumbersTest, AnIntegerMayHaveASignAndBlanksAroundIt) {
  EXPECT_EQ(Text::ParseInteger("4"), 4);
  EXPECT_EQ(Text::ParseInteger("+4"), 4);
  EXPECT_EQ(Text::ParseInteger("-4"), -4);
  EXPECT_EQ(Text::ParseInteger(" +12\t"), 12);
  EXPECT_EQ(Text::ParseInteger("0012"), 12);
  EXPECT_EQ(Text::ParseInteger("2147483647"), 2147483647);
}

TEST(TNumbersTest, AnythingElseIsNoInteger) {
  for (const char* text : {"", " ", "+", "-", "+-4", "-+4", "++4", "+ 4", "4 5", "4.0", "4x", "x4",
                           "0x4", "2147483648"})
    EXPECT_EQ(Text::ParseInteger(text), std::nullopt) << text;
}

TEST(TNumbersTest, ANumberMayHaveASignAndBlanksAroundIt) {
  EXPECT_EQ(Text::ParseNumber("50"), 50);
  EXPECT_EQ(Text::ParseNumber("+50"), 50);
  EXPECT_EQ(Text::ParseNumber("-0.5"), -0.5);
  EXPECT_EQ(Text::ParseNumber(" +318.2 "), 318.2);
}

TEST(TNumbersTest, AnythingElseIsNoNumber) {
  for (const char* text :
       {"", "+", "-", "+-5", "++5", "+ 5", "5,000", "5x", "nan", "inf", "+inf", "-inf", "1e999"})
    EXPECT_EQ(Text::ParseNumber(text), std::nullopt) << text;
}

} // namespace
