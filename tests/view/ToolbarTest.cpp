// Caption buttons, the broker-name menu item, and which quantity buttons there are.

#include "host/RecordFields.h"
#include "view/QtyCaptions.h"
#include "view/ViewFixture.h"

#include <QPushButton>

#include <optional>

using namespace Platform;

namespace {

namespace Field = Host::Field;

constexpr int SizeChanged = Constdef::Notify_SizeChanged;
constexpr int LayoutChanged = Constdef::Notify_LayoutChanged;
constexpr int QueueTags[] = {55, 56, 57, 58, 65, 66, 67, 68};

class TToolbarTest : public TViewTest {
protected:
  void ConfigureQtyButton(const char* key, const char* caption) {
    host.config.Set("QuorPrcBtnCaption", key, caption);
  }

  /// A view with a chart button and quantity buttons.
  void OpenWithAllButtons() {
    host.profile.granted = {"ProChart"};
    ConfigureQtyButton("Btn1", "1,000");
    Open();
  }

  std::vector<int> VisibleQueueTags() {
    std::vector<int> tags;
    for (const int tag : QueueTags)
      if (ColumnOf("PriceGrid", tag)->Visible)
        tags.push_back(tag);
    return tags;
  }
};

// Which buttons there are.

using TKeys = std::vector<std::string>;

struct TButtons {
  const char* name;
  std::optional<int> feedType; ///< nothing: no vendor model
  bool chartGranted;
  bool qtyConfigured;
  TKeys keys;
};

class TButtonsTest : public TToolbarTest, public testing::WithParamInterface<TButtons> {};

TEST_P(TButtonsTest, StandInOrder) {
  host.SetFeedType(GetParam().feedType);
  if (GetParam().chartGranted)
    host.profile.granted = {"ProChart"};
  if (GetParam().qtyConfigured)
    ConfigureQtyButton("Btn10", "1M");
  Open();
  TKeys keys;
  for (const auto* button : frame->GetViewCaptionButtons()) {
    keys.push_back(button->Hint);
    EXPECT_EQ(button->State, 0) << button->Hint;
  }
  EXPECT_EQ(keys, GetParam().keys);
}

const TButtons Buttons[] = {
    {"NoModel",
     std::nullopt,
     false,
     false,
     {"Res_PriceDepth10", "Res_Less", "Res_Lock", "Res_HideBrokerQueue"}},
    {"NoModelAll",
     std::nullopt,
     true,
     true,
     {"Res_PriceDepth10", "Res_Less", "Res_Lock", "Res_ProChart", "Res_HideBrokerQueue",
      "Res_HideQtyBtn"}},
    {"Streaming",
     1,
     false,
     true,
     {"Res_PriceDepth10", "Res_Less", "Res_Lock", "Res_HideBrokerQueue", "Res_HideQtyBtn"}},
    {"PerClick", 2, false, false, {"Res_QuoteRefresh", "Res_Less", "Res_Lock"}},
    {"PerClickAll",
     2,
     true,
     true,
     {"Res_QuoteRefresh", "Res_Less", "Res_Lock", "Res_ProChart", "Res_HideQtyBtn"}},
    {"Delayed", 3, false, false, {"Res_PriceDepth10", "Res_Less", "Res_Lock"}},
    {"DelayedAll",
     3,
     true,
     true,
     {"Res_PriceDepth10", "Res_Less", "Res_Lock", "Res_ProChart", "Res_HideQtyBtn"}},
    {"UnknownType", 4, false, false, {"Res_PriceDepth10", "Res_Less", "Res_Lock"}},
};

INSTANTIATE_TEST_SUITE_P(Host, TButtonsTest, testing::ValuesIn(Buttons),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(TToolbarTest, TheSetOfButtonsIsFixedAtConstruction) {
  Open();
  host.profile.granted = {"ProChart"};
  ConfigureQtyButton("Btn1", "1,000");
  host.config.Announce();
  frame->SetLayoutData("");
  EXPECT_EQ(frame->GetViewCaptionButtons().size(), 4u);
  EXPECT_FALSE(IsShown("lgBtn"));
  EXPECT_EQ(Find<QPushButton>("btnQty1").text(), "");
}

// What a click does.

struct TClick {
  const char* key; ///< the button before the click
  int image;
  const char* keyThen;
  int imageThen;
  int stateThen;
  std::vector<int> notifications;
};

class TClickTest : public TToolbarTest, public testing::WithParamInterface<TClick> {};

TEST_P(TClickTest, ChangesTheButtonTellsTheHostAndGoesBack) {
  const auto& click = GetParam();
  OpenWithAllButtons();
  Type("700");
  host.viewHost.notifications.clear();
  EXPECT_EQ(CaptionButton(click.key).ImageIndex, click.image);

  Press(click.key);
  EXPECT_EQ(host.viewHost.TakeNotifications(), click.notifications);
  EXPECT_EQ(CaptionButton(click.keyThen).ImageIndex, click.imageThen);
  EXPECT_EQ(CaptionButton(click.keyThen).State, click.stateThen);

  Press(click.keyThen);
  EXPECT_EQ(host.viewHost.TakeNotifications(), click.notifications);
  EXPECT_EQ(CaptionButton(click.key).ImageIndex, click.image);
  EXPECT_EQ(CaptionButton(click.key).State, 0);
}

const TClick Clicks[] = {
    {"Res_PriceDepth10", 3, "Res_PriceDepth5", 2, 0, {LayoutChanged, SizeChanged}},
    {"Res_Less", 0, "Res_More", 1, 1, {LayoutChanged, SizeChanged}},
    {"Res_Lock", 4, "Res_Unlock", 5, 1, {LayoutChanged}},
    {"Res_ProChart", 6, "Res_ProChart", 6, 0, {}},
    // The width changes with the columns before the layout is announced.
    {"Res_HideBrokerQueue", 8, "Res_ShowBrokerQueue", 9, 1, {SizeChanged, LayoutChanged}},
    {"Res_HideQtyBtn", 10, "Res_ShowQtyBtn", 11, 1, {LayoutChanged, SizeChanged}},
};

INSTANTIATE_TEST_SUITE_P(Caption, TClickTest, testing::ValuesIn(Clicks),
                         [](const auto& test) { return std::string(test.param.key); });

TEST_F(TToolbarTest, AStateThatIsNeitherZeroNorOneCountsAsSetAndAClickClearsIt) {
  OpenWithAllButtons();
  frame->SetLayoutData("ShowHideState=-2,LockState=5,BrokerQueueState=7,QtyButtonState=9");
  for (const char* key : {"Res_More", "Res_Unlock", "Res_ShowBrokerQueue", "Res_ShowQtyBtn"})
    Press(key);
  for (const char* key : {"Res_Less", "Res_Lock", "Res_HideBrokerQueue", "Res_HideQtyBtn"})
    EXPECT_EQ(CaptionButton(key).State, 0) << key;
}

TEST_F(TToolbarTest, LessHidesTheSymbolLineAndMoreShowsIt) {
  Open();
  Press("Res_Less");
  EXPECT_FALSE(IsShown("lgSymbol"));
  Press("Res_More");
  EXPECT_TRUE(IsShown("lgSymbol"));
}

TEST_F(TToolbarTest, TheQuantityButtonsHideAndShow) {
  OpenWithAllButtons();
  EXPECT_TRUE(IsShown("lgBtn"));
  Press("Res_HideQtyBtn");
  EXPECT_FALSE(IsShown("lgBtn"));
  Press("Res_ShowQtyBtn");
  EXPECT_TRUE(IsShown("lgBtn"));
}

TEST_F(TToolbarTest, TheDisplayModeReachesTheGrid) {
  Open();
  Type("700");
  TickRefresh();
  EXPECT_EQ(PriceGridView().RecordCount(), 13);
  Press("Res_PriceDepth10");
  EXPECT_TRUE(frame->GetLayoutData().find("DisplayMode=2,") != std::string::npos);
  TickRefresh();
  EXPECT_EQ(PriceGridView().RecordCount(), 18);
  Press("Res_PriceDepth5");
  EXPECT_TRUE(frame->GetLayoutData().find("DisplayMode=0,") != std::string::npos);
  TickRefresh();
  EXPECT_EQ(PriceGridView().RecordCount(), 13);
}

TEST_F(TToolbarTest, TheSimpleModeLeavesTheButtonAsItIsAndAClickEndsIt) {
  for (const auto& [before, key, image] : {std::tuple{"DisplayMode=0", "Res_PriceDepth10", 3},
                                           {"DisplayMode=2", "Res_PriceDepth5", 2}}) {
    Open();
    frame->SetLayoutData(before);
    frame->SetLayoutData("DisplayMode=1");
    EXPECT_EQ(CaptionButton(key).ImageIndex, image);
    Press(key);
    EXPECT_TRUE(frame->GetLayoutData().find("DisplayMode=0,") != std::string::npos) << before;
    EXPECT_EQ(CaptionButton("Res_PriceDepth10").ImageIndex, 3);
  }
}

TEST_F(TToolbarTest, ALockedViewKeepsItsSymbol) {
  Open();
  Type("700");
  Fakes::TFakeListObject broadcast("5");
  Press("Res_Lock");
  host.channels.Send(Constdef::Channel_CopySymbol, nullptr, &broadcast);
  EXPECT_EQ(Find<TcxPopupEdit>("edtSymbol").Hint(), "700");
  Press("Res_Unlock");
  host.channels.Send(Constdef::Channel_CopySymbol, nullptr, &broadcast);
  EXPECT_EQ(Find<TcxPopupEdit>("edtSymbol").Hint(), "5");
}

TEST_F(TToolbarTest, TheChartOpensWithTheSymbol) {
  OpenWithAllButtons();
  Press("Res_ProChart");
  EXPECT_TRUE(host.viewHost.opened.empty()) << "without a symbol";
  Type("700");
  Press("Res_ProChart");
  EXPECT_EQ(host.viewHost.opened, (std::vector<Fakes::TOpenedView>{{513, "700", 0, 0, true}}));
}

TEST_F(TToolbarTest, RefreshAsksForAFreshSnapshot) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  EXPECT_EQ(CaptionButton("Res_QuoteRefresh").ImageIndex, 7);
  Press("Res_QuoteRefresh");
  EXPECT_TRUE(host.subscriptions.refreshed.empty()) << "without a symbol";
  Type("700");
  host.viewHost.notifications.clear();
  Press("Res_QuoteRefresh");
  EXPECT_EQ(host.subscriptions.refreshed, std::vector<std::string>{"700"});
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
}

// The broker queue and the names in it.

TEST_F(TToolbarTest, HidingTheQueueTakesItsColumnsAndItsMenuItem) {
  Open();
  const int width = frame->GetWidth();
  const int queueWidth = 8 * (MeasuredWidth(0, "8888", 9) + 5);
  Press("Res_HideBrokerQueue");
  EXPECT_EQ(VisibleQueueTags(), std::vector<int>{});
  EXPECT_TRUE(ColumnOf("PriceGrid", 2)->Visible);
  EXPECT_FALSE(Find<QAction>("mBrokerName").isVisible());
  EXPECT_EQ(Find<TcxGrid>("PriceGrid").width(), width - queueWidth);
  Press("Res_ShowBrokerQueue");
  EXPECT_EQ(VisibleQueueTags(), (std::vector<int>{55, 56, 57, 58, 65, 66, 67, 68}));
  EXPECT_TRUE(Find<QAction>("mBrokerName").isVisible());
  EXPECT_EQ(Find<TcxGrid>("PriceGrid").width(), width);
}

TEST_F(TToolbarTest, AQueueOfNamesComesBackAsNames) {
  Open();
  Find<QAction>("mBrokerName").trigger();
  EXPECT_EQ(VisibleQueueTags(), (std::vector<int>{55, 56, 65, 66}));
  Press("Res_HideBrokerQueue");
  EXPECT_EQ(VisibleQueueTags(), std::vector<int>{});
  Press("Res_ShowBrokerQueue");
  EXPECT_EQ(VisibleQueueTags(), (std::vector<int>{55, 56, 65, 66}));
}

TEST_F(TToolbarTest, TheMenuItemTogglesNamesAndTellsNobody) {
  host.market.SetBroker("1234", "Harbour");
  Open();
  Type("700");
  host.Record("700").Set(Field::BidQueue, "1234").Update();
  host.viewHost.notifications.clear();
  auto& item = Find<QAction>("mBrokerName");
  item.trigger();
  TickRefresh();
  EXPECT_TRUE(item.isChecked());
  EXPECT_EQ(CellText(1, 55), "Harbour");
  item.trigger();
  TickRefresh();
  EXPECT_FALSE(item.isChecked());
  EXPECT_EQ(CellText(1, 55), "1234");
  EXPECT_EQ(VisibleQueueTags(), (std::vector<int>{55, 56, 57, 58, 65, 66, 67, 68}));
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
}

TEST_F(TToolbarTest, AMenuItemThatWasRestoredCheckedIsClearedByOneClick) {
  Open();
  frame->SetLayoutData("ShowBrokerName=-1");
  Find<QAction>("mBrokerName").trigger();
  EXPECT_FALSE(Find<QAction>("mBrokerName").isChecked());
  EXPECT_TRUE(frame->GetLayoutData().find("ShowBrokerName=0,") != std::string::npos);
}

// Quantity buttons.

TEST_F(TToolbarTest, EveryQuantityButtonHasItsOwnKey) {
  for (int i = 1; i <= 10; ++i)
    ConfigureQtyButton(("Btn" + std::to_string(i)).c_str(), (std::to_string(i) + "K").c_str());
  Open();
  for (int i = 1; i <= 10; ++i)
    EXPECT_EQ(Find<QPushButton>(("btnQty" + std::to_string(i)).c_str()).text().toStdString(),
              std::to_string(i) + "K");
}

TEST_F(TToolbarTest, OneCaptionIsEnoughForTheButtons) {
  ConfigureQtyButton("Btn7", "2K");
  ConfigureQtyButton("Btn11", "3K");
  Open();
  EXPECT_TRUE(IsShown("lgBtn"));
  EXPECT_EQ(CaptionButton("Res_HideQtyBtn").ImageIndex, 10);
  Type("700");
  for (int i = 1; i <= 10; ++i) {
    auto& button = Find<QPushButton>(("btnQty" + std::to_string(i)).c_str());
    EXPECT_EQ(button.text(), i == 7 ? "2K" : "") << i;
    button.click();
  }
  ASSERT_EQ(host.channels.sentOrders.size(), 1u);
  EXPECT_EQ(host.channels.sentOrders[0].quantity, 2'000);
}

class TQtyClickTest : public TToolbarTest,
                      public testing::WithParamInterface<QtyCaptions::TCaption> {};

TEST_P(TQtyClickTest, AClickCopiesWhatTheCaptionSays) {
  ConfigureQtyButton("Btn3", GetParam().caption);
  Open();
  Type("700");
  Find<QPushButton>("btnQty3").click();
  const auto& orders = host.channels.sentOrders;
  ASSERT_EQ(orders.size(), GetParam().quantity > 0 ? 1u : 0u);
  if (orders.empty())
    return;
  EXPECT_EQ(orders[0].symbol, "700");
  EXPECT_EQ(orders[0].quantity, GetParam().quantity);
  EXPECT_EQ(orders[0].price, std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Configured, TQtyClickTest, testing::ValuesIn(QtyCaptions::Captions));

} // namespace
