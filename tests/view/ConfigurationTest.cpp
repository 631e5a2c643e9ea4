// What a view reads again when the host's configuration changes. The scale stands in ScaleTest.

#include "host/RecordFields.h"
#include "view/PaintingFixture.h"

using namespace Platform;
using System::clWindow;

namespace {

namespace Field = Host::Field;

// Which symbols it follows.

struct TFollowed {
  const char* mode;
  bool unlinkedFollows;
  bool linkedFollows;
};

class TFollowedTest : public TViewTest, public testing::WithParamInterface<TFollowed> {
protected:
  bool FollowsBroadcast() {
    Type("700");
    Fakes::TFakeListObject broadcast("5");
    host.channels.Send(Constdef::Channel_CopySymbol, nullptr, &broadcast);
    return Find<TcxPopupEdit>("edtSymbol").Hint() == "5";
  }

  void Check() {
    frame->SetGroupID("");
    EXPECT_EQ(FollowsBroadcast(), GetParam().unlinkedFollows);
    frame->SetGroupID("A");
    EXPECT_EQ(FollowsBroadcast(), GetParam().linkedFollows);
  }
};

TEST_P(TFollowedTest, BroadcastsByTheDefaultGroupDataMode) {
  host.config.Set("TARN_TRADEPLATFORM", "DefaultGroupDataMode", GetParam().mode);
  Open();
  Check();
}

TEST_P(TFollowedTest, BroadcastsByAModeThatChanged) {
  host.config.Set("TARN_TRADEPLATFORM", "DefaultGroupDataMode",
                  GetParam().linkedFollows ? "0" : "");
  Open();
  host.config.Set("TARN_TRADEPLATFORM", "DefaultGroupDataMode", GetParam().mode);
  host.config.Announce();
  Check();
}

constexpr TFollowed Followed[] = {{"", true, true},    {"abc", true, true}, {"1x", true, true},
                                  {"-1", true, true},  {"0", false, false}, {"1", true, false},
                                  {"2", false, false}, {"3", true, false}};

INSTANTIATE_TEST_SUITE_P(Mode, TFollowedTest, testing::ValuesIn(Followed));

// Highlighted brokers.

class TBrokersTest : public TViewTest {
protected:
  void OpenWithQueue() {
    Open();
    Type("700");
    host.Record("700").Set(Field::BidQueue, "1234,5678").Set(Field::AskQueue, "1234").Update();
    TickRefresh();
  }

  void Highlight(const char* checked, const char* brokers, const char* colours) {
    host.config.SetCurrent("SpecBrokerChecked", checked);
    host.config.SetCurrent("DetailSpecialBroker", brokers);
    host.config.SetCurrent("DetailSpecialBrokerColor", colours);
  }

  const TCellDescription& Cell(int row, int tag) {
    return *PriceGridView().Cell(row, ColumnOf("PriceGrid", tag));
  }
};

TEST_F(TBrokersTest, AreReadAtCreation) {
  Highlight("Y", "1234", "$000000FF");
  OpenWithQueue();
  EXPECT_TRUE(Cell(1, 55).Bold);
  EXPECT_EQ(Cell(1, 55).Color, qRgb(255, 0, 0));
  EXPECT_TRUE(Cell(1, 65).Bold);
  EXPECT_FALSE(Cell(2, 55).Bold);
}

TEST_F(TBrokersTest, EachOfTheThreeKeysRepaintsAtOnce) {
  OpenWithQueue();
  const auto change = [this](const char* key, const char* value) {
    host.config.SetCurrent(key, value);
    return RepaintsDuring([this] { host.config.Announce(); });
  };
  EXPECT_EQ(change("SpecBrokerChecked", "Y"), 1);
  EXPECT_FALSE(Cell(1, 55).Bold);
  EXPECT_EQ(change("DetailSpecialBroker", "1234"), 1);
  EXPECT_TRUE(Cell(1, 55).Bold);
  EXPECT_EQ(Cell(1, 55).Color, ToQColor(System::clWindow).rgb());
  EXPECT_EQ(change("DetailSpecialBrokerColor", "$0000FF00"), 1);
  EXPECT_EQ(Cell(1, 55).Color, qRgb(0, 255, 0));
  EXPECT_EQ(change("SpecBrokerChecked", "N"), 1);
  EXPECT_FALSE(Cell(1, 55).Bold);
}

TEST_F(TBrokersTest, SeveralChangesAtOnceRepaintOnce) {
  OpenWithQueue();
  Highlight("Y", "5678", "$000000FF");
  EXPECT_EQ(RepaintsDuring([this] { host.config.Announce(); }), 1);
  EXPECT_FALSE(Cell(1, 55).Bold);
  EXPECT_TRUE(Cell(2, 55).Bold);
}

TEST_F(TBrokersTest, AChangeOfSomethingElseKeepsThemAndDoesNotRepaint) {
  Highlight("Y", "1234", "$000000FF");
  OpenWithQueue();
  host.viewHost.notifications.clear();
  host.config.SetCurrent("SomethingElse", "1");
  host.config.Set("TARN_TRADEPLATFORM", "DefaultGroupDataMode", "1");
  EXPECT_EQ(RepaintsDuring([this] { host.config.Announce(); }), 0);
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
  PriceGridView().Repaint();
  EXPECT_TRUE(Cell(1, 55).Bold);
  EXPECT_EQ(Cell(1, 55).Color, qRgb(255, 0, 0));
}

TEST_F(TBrokersTest, AreThoseOfTheSectionThatIsCurrentNow) {
  Highlight("Y", "1234", "$000000FF");
  OpenWithQueue();
  host.config.currentSection = "ANOTHER";
  Highlight("Y", "5678", "$00FF0000");
  host.config.Announce();
  EXPECT_FALSE(Cell(1, 55).Bold);
  EXPECT_EQ(Cell(2, 55).Color, qRgb(0, 0, 255));
}

TEST_F(TBrokersTest, AClosedViewHearsNoMoreChanges) {
  OpenWithQueue();
  frame.reset();
  host.viewHost.notifications.clear();
  host.config.Set("TARN_TRADEPLATFORM", "ScaleSize", "150");
  host.config.Announce();
  EXPECT_EQ(host.config.ListenerCount(), 0);
  EXPECT_TRUE(host.viewHost.notifications.empty());
}

// Highlighted brokers on the screen.

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
  host.Record("700").Set(Field::BidQueue, "1234,1234").Update();
  TickRefresh();
  EXPECT_TRUE(IsHighlighted(1, 55));
  EXPECT_TRUE(IsHighlighted(2, 55));
}

} // namespace
