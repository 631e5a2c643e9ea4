#include "preferences/BrokerList.h"

#include <gtest/gtest.h>

namespace {

using namespace Quorpricepreference;

constexpr System::TColor Red = 0x000000FF;
constexpr System::TColor Blue = 0x00FF0000;

TEST(TStoreBrokersTest, RowsWithBlankIDsAreInNeitherList) {
  const auto stored = StoreBrokers({{"1234", Red}, {" ", Blue}, {"5678", std::nullopt}});
  EXPECT_EQ(stored.IDs, "1234,5678");
  EXPECT_EQ(stored.Colours, "$000000FF,");
}

TEST(TStoreBrokersTest, AbsentAndEmptyIDsCountAsBlank) {
  const auto stored = StoreBrokers({{std::nullopt, Red}, {"", Red}, {"\t ", Red}, {"7", Blue}});
  EXPECT_EQ(stored.IDs, "7");
  EXPECT_EQ(stored.Colours, "$00FF0000");
}

TEST(TStoreBrokersTest, NoRowsAreTwoEmptyTexts) {
  EXPECT_EQ(StoreBrokers({}), TStoredBrokers());
  EXPECT_EQ(StoreBrokers({{"  ", Red}}), TStoredBrokers());
}

TEST(TStoreBrokersTest, IDsAreTrimmedAtTheirEndsOnly) {
  EXPECT_EQ(StoreBrokers({{"  12 34 ", Red}, {" 滙豐 ", Blue}}).IDs, "12 34,滙豐");
  // As the view reads them, which counts every character up to the space as a blank.
  EXPECT_EQ(StoreBrokers({{"\x03 1234\x1F", Red}}).IDs, "1234");
}

TEST(TStoreBrokersTest, RowsWithoutColourLeaveEmptyEntries) {
  EXPECT_EQ(StoreBrokers({{"1", std::nullopt}}).Colours, "");
  EXPECT_EQ(StoreBrokers({{"1", std::nullopt}, {"2", std::nullopt}}).Colours, ",");
  EXPECT_EQ(StoreBrokers({{"1", std::nullopt}, {"2", Red}, {"3", std::nullopt}}).Colours,
            ",$000000FF,");
}

TEST(TStoreBrokersTest, ColoursAreEightHexadecimalDigits) {
  EXPECT_EQ(StoreBrokers({{"1", 0u}}).Colours, "$00000000");
  EXPECT_EQ(StoreBrokers({{"1", 0x00ABCDEFu}}).Colours, "$00ABCDEF");
  EXPECT_EQ(StoreBrokers({{"1", System::clWindow}}).Colours, "$FF000005");
}

std::vector<TBrokerRow> Loaded(const TStoredBrokers& stored, std::vector<TBrokerRow> rows = {}) {
  LoadBrokers(stored, rows);
  return rows;
}

TEST(TLoadBrokersTest, ARowEachAndColoursAtTheSamePositions) {
  const std::vector<TBrokerRow> expected{{"100", Red}, {"200", Blue}};
  EXPECT_EQ(Loaded({"100,200", "$000000FF,$00FF0000"}), expected);
}

TEST(TLoadBrokersTest, ARowBeyondTheColoursHasNone) {
  const std::vector<TBrokerRow> expected{{"100", Red}, {"200", std::nullopt}};
  EXPECT_EQ(Loaded({"100,200", "$000000FF"}), expected);
  EXPECT_EQ(Loaded({"100,200", "$000000FF"}, {{"8", Blue}}), expected);
}

TEST(TLoadBrokersTest, ARowBeyondTheColoursKeepsTheOneItHas) {
  const std::vector<TBrokerRow> expected{{"100", Red}, {"200", Blue}};
  EXPECT_EQ(Loaded({"100,200", "$000000FF"}, {{"8", Blue}, {"9", Blue}, {"10", Blue}}), expected);
}

TEST(TLoadBrokersTest, ColoursBeyondTheIDsAreIgnored) {
  EXPECT_EQ(Loaded({"100", "$000000FF,$00FF0000"}), (std::vector<TBrokerRow>{{"100", Red}}));
}

TEST(TLoadBrokersTest, NoStoredIDsLeaveTheRows) {
  const std::vector<TBrokerRow> rows{{"100", Red}, {std::nullopt, std::nullopt}};
  EXPECT_EQ(Loaded({"", "$00FF0000"}, rows), rows);
}

TEST(TLoadBrokersTest, EmptyIDsBetweenAndAfterCommasAreRows) {
  const std::vector<TBrokerRow> expected{{"", Red}, {"2", Blue}, {"", System::clWindow}};
  EXPECT_EQ(Loaded({",2,", "$FF,$FF0000,"}), expected);
}

struct TColourText {
  const char* text;
  System::TColor colour;
};

class TLoadedColourTest : public testing::TestWithParam<TColourText> {};

TEST_P(TLoadedColourTest, IsTheNumberOrThatOfWindowBackgrounds) {
  const std::string colours = std::string(GetParam().text) + ",$1";
  EXPECT_EQ(Loaded({"1,2", colours})[0].Colour, GetParam().colour) << colours;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TLoadedColourTest,
    testing::Values(TColourText{"$000000FF", Red}, TColourText{"$00ff0000", Blue},
                    TColourText{"$FF", Red}, TColourText{"255", Red},
                    TColourText{"$FF000005", 0xFF000005}, TColourText{"$FF00000F", 0xFF00000F},
                    TColourText{"-1", 0xFFFFFFFF}, TColourText{"", 0xFF000005},
                    TColourText{"red", 0xFF000005}, TColourText{"FF", 0xFF000005},
                    TColourText{"$", 0xFF000005}, TColourText{"$12G", 0xFF000005},
                    TColourText{"12 ", 0xFF000005}, TColourText{"$1000000000", 0xFF000005}));

} // namespace
