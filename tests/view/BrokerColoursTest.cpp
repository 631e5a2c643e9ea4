// Highlighted brokers: how the two configured lists are read, and how a view takes them over.

#include "view/BrokerColours.h"
#include "platform/ColourText.h"
#include "view/PaintingFixture.h"

using namespace Quorpriceview;
using System::clWindow;

namespace {

static_assert(clWindow == 0xFF000005);

struct TLists {
  const char* name;
  const char* brokers;
  const char* colours;
  TBrokerColours expected;
};

class TListsTest : public testing::TestWithParam<TLists> {};

TEST_P(TListsTest, AreReadPairByPair) {
  EXPECT_EQ(ParseBrokerColours(GetParam().brokers, GetParam().colours), GetParam().expected);
}

const TLists Lists[] = {
    {"Empty", "", "255,1", {}},
    {"BlankOnly", "  ", "255", {}},
    {"Commas", ",,,", "1,2,3,4", {}},
    {"MoreBrokersThanColours", "1234, 5678", "255", {{"1234", 255}, {"5678", clWindow}}},
    {"MoreColoursThanBrokers", "1234", "1,2,3", {{"1234", 1}}},
    {"NoColours", "1234,5678", "", {{"1234", clWindow}, {"5678", clWindow}}},
    {"Hexadecimal",
     "1,2,3",
     "$000000FF,$00ff00,$FF000005",
     {{"1", 255}, {"2", 0xFF00}, {"3", clWindow}}},
    {"Decimal", "1,2,3", "0,-16777211,16711680", {{"1", 0}, {"2", clWindow}, {"3", 0xFF0000}}},
    {"Blanks", " 1 ,\t2 ", " 255 , $10 ", {{"1", 255}, {"2", 16}}},
    {"BlankBrokerKeepsItsPlace", "1,,3", "10,20,30", {{"1", 10}, {"3", 30}}},
    {"BlankColour", "1,2,3", "10,,30", {{"1", 10}, {"2", clWindow}, {"3", 30}}},
    {"NotAnInteger",
     "1,2,3,4,5,6",
     "red,1.5,$,$XY,12a,0x10",
     {{"1", clWindow},
      {"2", clWindow},
      {"3", clWindow},
      {"4", clWindow},
      {"5", clWindow},
      {"6", clWindow}}},
    {"TooLarge", "1,2", "$123456789,4294967296", {{"1", clWindow}, {"2", clWindow}}},
    {"LaterDuplicateWins", "1,2,1", "10,20,30", {{"1", 30}, {"2", 20}}},
    {"LaterDuplicateWithoutColour", "1,1", "10", {{"1", clWindow}}},
    {"IdsStayAsWritten", "0012,12", "1,2", {{"0012", 1}, {"12", 2}}},
};

INSTANTIATE_TEST_SUITE_P(Configured, TListsTest, testing::ValuesIn(Lists),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(ColourTextTest, IsReadBackAsItWasWritten) {
  EXPECT_EQ(Platform::ColourText(255), "$000000FF");
  EXPECT_EQ(Platform::ColourText(clWindow), "$FF000005");
  for (const System::TColor colour : {0u, 255u, 0xABCDEFu, 0x7FFFFFFFu, 0xFF000005u, 0xFFFFFFFFu})
    EXPECT_EQ(Platform::ParseColour(Platform::ColourText(colour)), colour);
}

class TBrokerColoursTest : public TPaintingTest {
protected:
  /// Announced at once, as a preference page's values are.
  void Configure(const char* enabled, const char* brokers, const char* colours) {
    host.config.SetCurrent("SpecBrokerChecked", enabled);
    host.config.SetCurrent("DetailSpecialBroker", brokers);
    host.config.SetCurrent("DetailSpecialBrokerColor", colours);
    host.config.Announce();
  }

  bool IsHighlighted(int row, int column) { return Cell(row, column).Bold; }
};

TEST_F(TBrokerColoursTest, TwoBrokersAndOneColour) {
  PaintingExpectations::FillBook(host.Record("700"));
  Configure("Y", "1234, 5678", "255");
  Show();
  EXPECT_EQ(Cell(1, 55).Text, "1234");
  EXPECT_TRUE(Cell(1, 55).Bold);
  EXPECT_EQ(Cell(1, 55).Color, qRgb(255, 0, 0));
  EXPECT_EQ(Cell(1, 65).Text, "5678");
  EXPECT_TRUE(Cell(1, 65).Bold);
  EXPECT_EQ(Cell(1, 65).Color, Rgb(clWindow));
  EXPECT_EQ(Cell(4, 55).Text, "0056");
  EXPECT_FALSE(Cell(4, 55).Bold);
  EXPECT_EQ(Cell(4, 55).Color, Rgb(PaintingExpectations::Skin.BidText));
}

TEST_F(TBrokerColoursTest, EachOfTheThreeKeysRepaintsTheGridAtOnce) {
  PaintingExpectations::FillBook(host.Record("700"));
  Configure("N", "1234", "255");
  Show();
  EXPECT_FALSE(IsHighlighted(1, 55));
  Configure("Y", "1234", "255");
  EXPECT_TRUE(IsHighlighted(1, 55));
  Configure("Y", "5678", "255");
  EXPECT_FALSE(IsHighlighted(1, 55));
  EXPECT_TRUE(IsHighlighted(1, 65));
  Configure("Y", "5678", "$00FF0000");
  EXPECT_EQ(Cell(1, 65).Color, qRgb(0, 0, 255));
  Configure("N", "5678", "$00FF0000");
  EXPECT_FALSE(IsHighlighted(1, 65));
}

TEST_F(TBrokerColoursTest, TheListsComeFromTheSectionThatIsCurrentThen) {
  PaintingExpectations::FillBook(host.Record("700"));
  Configure("Y", "1234", "255");
  Show();
  EXPECT_TRUE(IsHighlighted(1, 55));
  host.config.currentSection = "OTHER";
  Configure("Y", "5678", "255");
  EXPECT_FALSE(IsHighlighted(1, 55));
  EXPECT_TRUE(IsHighlighted(1, 65));
}

TEST_F(TBrokerColoursTest, AnotherChangeKeepsTheHighlight) {
  PaintingExpectations::FillBook(host.Record("700"));
  Configure("Y", "1234", "255");
  Show();
  host.config.SetCurrent("CopyPriceStyle", "N");
  host.config.Announce();
  host.Record("700").Set(120, "1234,1234").Update();
  TickRefresh();
  EXPECT_TRUE(IsHighlighted(1, 55));
  EXPECT_TRUE(IsHighlighted(2, 55));
}

} // namespace
