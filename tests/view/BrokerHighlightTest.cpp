// Highlighted brokers: how the two configured lists are read, and how a view takes them over.

#include "view/BrokerHighlight.h"

#include "fakes/HostFakes.h"
#include "platform/ColourText.h"

#include <gtest/gtest.h>

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

// What a view takes over from the configuration.

class TBrokerHighlightTest : public testing::Test {
protected:
  /// Whether that changed anything.
  bool Configure(const char* enabled, const char* brokers, const char* colours) {
    host.config.SetCurrent("SpecBrokerChecked", enabled);
    host.config.SetCurrent("DetailSpecialBroker", brokers);
    host.config.SetCurrent("DetailSpecialBrokerColor", colours);
    return highlight.ReadConfiguration();
  }

  Fakes::THostFakes host;
  TBrokerHighlight highlight;
};

TEST_F(TBrokerHighlightTest, WhileItIsOffThereIsNone) {
  EXPECT_EQ(highlight.Colours(), nullptr);
  EXPECT_FALSE(highlight.ReadConfiguration()) << "nothing is configured";
  EXPECT_TRUE(Configure("N", "1234", "255"));
  EXPECT_EQ(highlight.Colours(), nullptr);
  EXPECT_TRUE(Configure("Y", "1234", "255"));
  ASSERT_NE(highlight.Colours(), nullptr);
  EXPECT_EQ(*highlight.Colours(), (TBrokerColours{{"1234", 255}}));
  EXPECT_TRUE(Configure("N", "1234", "255"));
  EXPECT_EQ(highlight.Colours(), nullptr);
}

TEST_F(TBrokerHighlightTest, EachOfTheThreeKeysIsAChangeAndNothingElse) {
  Configure("Y", "1234", "255");
  EXPECT_FALSE(Configure("Y", "1234", "255"));
  host.config.SetCurrent("CopyPriceStyle", "N");
  EXPECT_FALSE(highlight.ReadConfiguration());
  EXPECT_EQ(*highlight.Colours(), (TBrokerColours{{"1234", 255}}));
  EXPECT_TRUE(Configure("Y", "5678", "255"));
  EXPECT_EQ(*highlight.Colours(), (TBrokerColours{{"5678", 255}}));
  EXPECT_TRUE(Configure("Y", "5678", "$00FF0000"));
  EXPECT_EQ(*highlight.Colours(), (TBrokerColours{{"5678", 0xFF0000}}));
  EXPECT_TRUE(Configure("Y", " 5678", "$00FF0000")) << "as a text, though it means the same";
  EXPECT_EQ(*highlight.Colours(), (TBrokerColours{{"5678", 0xFF0000}}));
}

TEST_F(TBrokerHighlightTest, IsThatOfTheSectionThatIsCurrentThen) {
  Configure("Y", "1234", "255");
  host.config.currentSection = "OTHER";
  EXPECT_TRUE(highlight.ReadConfiguration());
  EXPECT_EQ(highlight.Colours(), nullptr);
  EXPECT_TRUE(Configure("Y", "5678", "1"));
  EXPECT_EQ(*highlight.Colours(), (TBrokerColours{{"5678", 1}}));
}

} // namespace
