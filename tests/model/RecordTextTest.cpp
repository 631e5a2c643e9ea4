#include "model/RecordText.h"

#include <gtest/gtest.h>

// Numbers in the texts of a record.

namespace Quorpricedatacontrol {

TEST(TRecordTextTest, AnIntegerMayHaveASignAndBlanksAroundIt) {
  EXPECT_EQ(ParseInteger("4"), 4);
  EXPECT_EQ(ParseInteger("+4"), 4);
  EXPECT_EQ(ParseInteger("-4"), -4);
  EXPECT_EQ(ParseInteger(" +12\t"), 12);
  EXPECT_EQ(ParseInteger("0012"), 12);
  EXPECT_EQ(ParseInteger("2147483647"), 2147483647);
}

TEST(TRecordTextTest, AnythingElseIsNoInteger) {
  for (const char* text : {"", " ", "+", "-", "+-4", "-+4", "++4", "+ 4", "4 5", "4.0", "4x", "x4",
                           "0x4", "2147483648"})
    EXPECT_EQ(ParseInteger(text), std::nullopt) << text;
}

TEST(TRecordTextTest, ANumberMayHaveASignAndBlanksAroundIt) {
  EXPECT_EQ(ParseNumber("50"), 50);
  EXPECT_EQ(ParseNumber("+50"), 50);
  EXPECT_EQ(ParseNumber("-0.5"), -0.5);
  EXPECT_EQ(ParseNumber(" +318.2 "), 318.2);
}

TEST(TRecordTextTest, AnythingElseIsNoNumber) {
  for (const char* text :
       {"", "+", "-", "+-5", "++5", "+ 5", "5,000", "5x", "nan", "inf", "+inf", "-inf", "1e999"})
    EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
}

} // namespace Quorpricedatacontrol
