// How a view writes and reads its layout data.

#include "host/RecordFields.h"
#include "host/TroublesomeText.h"
#include "view/LayoutData.h"
#include "view/ViewFixture.h"

#include <stdexcept>

using namespace Quorpriceview;

namespace {

namespace Field = Host::Field;

class TViewLayoutTest : public TViewTest {
protected:
  /// A view with every caption button that layout data knows, none of them as it starts.
  void OpenChanged() {
    host.config.Set("QuorPrcBtnCaption", "Btn1", "1,000");
    Open();
    frame->SetLayoutData("Symbol=700,DisplayMode=2,ShowHideState=1,ShowBrokerName=True,"
                         "LockState=1,BrokerQueueState=1,QtyButtonState=1");
    host.viewHost.notifications.clear();
  }
};

TEST_F(TViewLayoutTest, TheItemsStandInOrder) {
  Open();
  Type("700");
  Press("Res_Lock");
  EXPECT_EQ(frame->GetLayoutData(), "Symbol=700,DisplayMode=0,ShowHideState=0,ShowBrokerName=0,"
                                    "LockState=1,BrokerQueueState=0");
}

TEST_F(TViewLayoutTest, EveryItemHasAValueOfItsOwn) {
  OpenChanged();
  EXPECT_EQ(frame->GetLayoutData(), "Symbol=700,DisplayMode=2,ShowHideState=1,ShowBrokerName=-1,"
                                    "LockState=1,BrokerQueueState=1,QtyButtonState=1");
}

TEST_F(TViewLayoutTest, AViewWithoutQueueAndQuantityButtonsWritesFiveItems) {
  host.SetFeedType(Constdef::FeedType_Delayed);
  Open();
  EXPECT_EQ(frame->GetLayoutData(),
            "Symbol=,DisplayMode=0,ShowHideState=0,ShowBrokerName=0,LockState=0");
  frame->SetLayoutData("LockState=1,BrokerQueueState=1,QtyButtonState=1");
  EXPECT_EQ(frame->GetLayoutData(),
            "Symbol=,DisplayMode=0,ShowHideState=0,ShowBrokerName=0,LockState=1");
}

TEST_F(TViewLayoutTest, TheSymbolIsTheResolvedOne) {
  Open();
  Type("700");
  QTest::keyClicks(&Find<Platform::TcxPopupEdit>("edtSymbol"), "12");
  EXPECT_EQ(TLayoutData(frame->GetLayoutData()).Value("Symbol"), "700");
}

TEST_F(TViewLayoutTest, ASymbolWithABlankIsQuotedAndComesBack) {
  host.editors.listed.insert("HSI 2401");
  Open();
  Type("HSI 2401");
  const auto text = frame->GetLayoutData();
  EXPECT_TRUE(text.starts_with("\"Symbol=HSI 2401\",DisplayMode=0")) << text;
  Open();
  frame->SetLayoutData(text);
  EXPECT_EQ(frame->GetLayoutData(), text);
}

struct TApplied {
  const char* data;
  const char* name; ///< the item that is not as it is after empty data; empty for none
  const char* value;
};

class TAppliedTest : public TViewLayoutTest, public testing::WithParamInterface<TApplied> {};

TEST_P(TAppliedTest, WhatIsMissingIsZeroButSymbolAndBrokerName) {
  OpenChanged();
  EXPECT_TRUE(frame->SetLayoutData(GetParam().data));
  constexpr std::pair<const char*, const char*> afterEmptyData[] = {
      {"Symbol", "700"},        {"DisplayMode", "0"}, {"ShowHideState", "0"},
      {"ShowBrokerName", "-1"}, {"LockState", "0"},   {"BrokerQueueState", "0"},
      {"QtyButtonState", "0"}};
  TLayoutData expected;
  for (const auto& [name, value] : afterEmptyData)
    expected.Add(name, std::string_view(name) == GetParam().name ? GetParam().value : value);
  EXPECT_EQ(frame->GetLayoutData(), expected.CommaText());
  EXPECT_EQ(host.viewHost.notifications.back(), Constdef::Notify_LayoutChanged);
}

constexpr TApplied Applied[] = {
    {"", "", ""},
    {"Symbol=", "", ""},
    {"Symbol=5", "Symbol", "5"},
    {"Symbol=99999", "", ""},
    {"Nonsense=1,DisplayMode", "", ""},
    {"DisplayMode=0", "", ""},
    {"DisplayMode=1", "DisplayMode", "1"},
    {"displaymode=2", "DisplayMode", "2"},
    {"DisplayMode=3", "", ""},
    {"DisplayMode=-1", "", ""},
    {"DisplayMode=256", "", ""},
    {"DisplayMode=99999999999", "", ""},
    {"DisplayMode=ten", "", ""},
    {"ShowBrokerName=", "", ""},
    {"ShowBrokerName=7", "", ""},
    {"ShowBrokerName=0", "ShowBrokerName", "0"},
    {"SHOWBROKERNAME=FALSE", "ShowBrokerName", "0"},
    {"ShowHideState=1", "ShowHideState", "1"},
    {"LockState=1", "LockState", "1"},
    {"LockState=x,LockState=1", "", ""},
    {"LockState=5,LockState=1", "LockState", "5"},
    {"BrokerQueueState=1", "BrokerQueueState", "1"},
    {"QtyButtonState=1", "QtyButtonState", "1"},
};

INSTANTIATE_TEST_SUITE_P(View, TAppliedTest, testing::ValuesIn(Applied));

TEST_F(TViewLayoutTest, TheSymbolIsAnnouncedBeforeTheLayout) {
  Open();
  frame->SetLayoutData("LockState=1,Symbol=700");
  EXPECT_EQ(host.viewHost.TakeNotifications(),
            (std::vector<int>{Constdef::Notify_SymbolChanged, Constdef::Notify_LayoutChanged}));
  EXPECT_EQ(host.subscriptions.subscribed, std::vector<std::string>{"700"});
  frame->SetLayoutData("");
  EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector<int>{Constdef::Notify_LayoutChanged});
}

class TBadBrokerNameTest : public TViewLayoutTest,
                           public testing::WithParamInterface<const char*> {};

TEST_P(TBadBrokerNameTest, FailsAfterSymbolAndDisplayMode) {
  OpenChanged();
  const auto data = std::string("LockState=0,Symbol=5,DisplayMode=1,ShowBrokerName=") + GetParam();
  EXPECT_THROW(frame->SetLayoutData(data), std::invalid_argument);
  EXPECT_EQ(frame->GetLayoutData(), "Symbol=5,DisplayMode=1,ShowHideState=1,ShowBrokerName=-1,"
                                    "LockState=1,BrokerQueueState=1,QtyButtonState=1");
  EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector<int>{Constdef::Notify_SymbolChanged});
}

INSTANTIATE_TEST_SUITE_P(View, TBadBrokerNameTest,
                         testing::Values("yes", "Y", "nan", "inf", "1e999", "0x1", "-", "\u662F"));

TEST_F(TViewLayoutTest, TheBrokerNameReachesMenuQueueAndColumns) {
  host.market.SetBroker("1234", "Harbour");
  Open();
  Type("700");
  host.Record("700").Set(Field::BidQueue, "1234").Update();
  TickRefresh();
  EXPECT_EQ(CellText(1, 55), "1234");
  frame->SetLayoutData("ShowBrokerName=-1");
  TickRefresh();
  EXPECT_EQ(CellText(1, 55), "Harbour");
  EXPECT_TRUE(Find<QAction>("mBrokerName").isChecked());
  const int single = MeasuredWidth(0, "8888", 9) + 5;
  EXPECT_EQ(ColumnOf("PriceGrid", 55)->Width, 2 * single);
  EXPECT_FALSE(ColumnOf("PriceGrid", 57)->Visible);
}

TEST_F(TViewLayoutTest, ARestoredQueueStateLeavesTheColumnsUntilTheNextClick) {
  Open();
  frame->SetLayoutData("BrokerQueueState=1");
  EXPECT_EQ(CaptionButton("Res_ShowBrokerQueue").ImageIndex, 9);
  EXPECT_FALSE(Find<QAction>("mBrokerName").isVisible());
  for (const int tag : {55, 58, 65, 68})
    EXPECT_TRUE(ColumnOf("PriceGrid", tag)->Visible) << tag;

  Press("Res_ShowBrokerQueue");
  Press("Res_HideBrokerQueue");
  EXPECT_FALSE(ColumnOf("PriceGrid", 55)->Visible);
  frame->SetLayoutData("BrokerQueueState=0");
  EXPECT_TRUE(Find<QAction>("mBrokerName").isVisible());
  EXPECT_FALSE(ColumnOf("PriceGrid", 55)->Visible);
}

TEST_F(TViewLayoutTest, NamesAreAppliedWhileTheQueueIsStillAsItWas) {
  Open();
  frame->SetLayoutData("ShowBrokerName=-1");
  EXPECT_FALSE(ColumnOf("PriceGrid", 57)->Visible);
  frame->SetLayoutData("ShowBrokerName=0,BrokerQueueState=1");
  EXPECT_TRUE(ColumnOf("PriceGrid", 57)->Visible) << "the queue was shown then";
  EXPECT_FALSE(Find<QAction>("mBrokerName").isVisible());

  Open();
  Press("Res_HideBrokerQueue");
  frame->SetLayoutData("ShowBrokerName=0,BrokerQueueState=0");
  EXPECT_FALSE(ColumnOf("PriceGrid", 57)->Visible) << "the queue was hidden then";
  EXPECT_TRUE(Find<QAction>("mBrokerName").isVisible());
}

TEST_F(TViewLayoutTest, TheCaptionButtonsFollow) {
  OpenChanged();
  for (const char* hint :
       {"Res_PriceDepth5", "Res_More", "Res_Unlock", "Res_ShowBrokerQueue", "Res_ShowQtyBtn"})
    EXPECT_NO_THROW(CaptionButton(hint)) << hint;
  EXPECT_FALSE(IsShown("lgSymbol"));
  EXPECT_FALSE(IsShown("lgBtn"));
}

TEST_F(TViewLayoutTest, WhateverAViewWritesItTakesBack) {
  host.config.Set("QuorPrcBtnCaption", "Btn1", "1,000");
  for (int states = 0; states < 3 << 5; ++states) {
    const auto bit = [states](int place) { return std::to_string(states >> place & 1); };
    Open();
    frame->SetLayoutData("Symbol=700,DisplayMode=" + std::to_string(states >> 5) +
                         ",ShowHideState=" + bit(0) + ",ShowBrokerName=" + bit(1) + ",LockState=" +
                         bit(2) + ",BrokerQueueState=" + bit(3) + ",QtyButtonState=" + bit(4));
    const auto text = frame->GetLayoutData();
    ASSERT_NE(text.find("DisplayMode=" + std::to_string(states >> 5)), std::string::npos);
    ASSERT_NE(text.find("QtyButtonState=" + bit(4)), std::string::npos);
    Open();
    frame->SetLayoutData(text);
    ASSERT_EQ(frame->GetLayoutData(), text);
  }
}

TEST_F(TViewLayoutTest, NoTextBreaksAView) {
  static const std::vector<std::string> names = {
      "Symbol=",    "DisplayMode=",      "ShowHideState=",  "ShowBrokerName=",
      "LockState=", "BrokerQueueState=", "QtyButtonState=", ""};
  Open();
  TTroublesomeText random;
  int refused = 0;
  for (int round = 0; round < 1000; ++round) {
    std::string data;
    for (auto items = random.Below(6); items > 0; --items) {
      data += names[random.Below(names.size())] + random.Next(3);
      for (auto bytes = random.Below(4); bytes > 0; --bytes)
        data += random.NextByte();
      data += ',';
    }
    try {
      ASSERT_TRUE(frame->SetLayoutData(data));
    } catch (const std::invalid_argument&) {
      ++refused;
    }
    const TLayoutData now(frame->GetLayoutData());
    ASSERT_GE(IntegerOf(now, "DisplayMode"), 0);
    ASSERT_LE(IntegerOf(now, "DisplayMode"), 2);
    ASSERT_TRUE(now.Value("Symbol").empty() || host.editors.listed.contains(now.Value("Symbol")));
  }
  EXPECT_GT(refused, 0);
  EXPECT_LT(refused, 1000);
}

} // namespace
