// What a view registers and undoes, its timer, symbol box, linking group and host messages.

#include "host/RecordFields.h"
#include "view/ViewFixture.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>

using namespace Platform;

namespace {

namespace Field = Host::Field;

using TLifecycleTest = TViewTest;
using Fakes::TFakeClientOrder;

TEST_F(TLifecycleTest, ConstructionRegistersAndDestructionUndoesAll) {
  const auto before = host.Registrations();
  Open();
  const auto open = host.Registrations();
  EXPECT_EQ(open.configuration, 2); // the frame and its control
  EXPECT_EQ(open.timers, 1);
  EXPECT_EQ(host.editors.liveEditors, 1);
  for (const int number : {18016, 0, 109, 104, 110, 18150})
    EXPECT_EQ(host.channels.ChannelCount(number), 1) << number;

  frame->SetGroupID("A");
  Type("700");
  EXPECT_EQ(host.Registrations().groups, 1);
  EXPECT_EQ(host.Registrations().records, 1);
  frame.reset();
  EXPECT_EQ(host.Registrations(), before);
  EXPECT_EQ(host.editors.liveEditors, 0);
}

TEST_F(TLifecycleTest, APerClickViewUndoesItsThreeControlsToo) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  const auto before = host.Registrations();
  Open();
  Type("700");
  EXPECT_EQ(host.Registrations().configuration, 4);
  EXPECT_EQ(host.subscriptions.SubscriptionCount("700"), 3);
  frame.reset();
  EXPECT_EQ(host.Registrations(), before);
}

struct TInterval {
  const char* configured;
  int interval;
};

/// Meets the refresh timer, which nothing owns, at its first tick.
class TTickWatch : public QObject {
public:
  TTickWatch() { qApp->installEventFilter(this); }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Timer && object->objectName() == QLatin1String("RefreshTimer"))
      timer = qobject_cast<QTimer*>(object);
    return false;
  }

  QPointer<QTimer> timer;
};

class TIntervalTest : public TViewTest, public testing::WithParamInterface<TInterval> {};

TEST_P(TIntervalTest, TheRefreshTimerTakesAtLeastFiftyMilliseconds) {
  if (*GetParam().configured)
    host.config.SetCurrent("QuorPriceUpdateInterval", GetParam().configured);
  Open();
  TTickWatch watch;
  ASSERT_TRUE(QTest::qWaitFor([&] { return watch.timer != nullptr; }, 30'000));
  EXPECT_EQ(watch.timer->interval(), GetParam().interval);
  EXPECT_FALSE(watch.timer->isSingleShot());
  frame.reset();
  EXPECT_EQ(watch.timer, nullptr) << "it goes with its frame";
}

INSTANTIATE_TEST_SUITE_P(Configured, TIntervalTest,
                         testing::Values(TInterval{"", 50}, TInterval{"0", 50}, TInterval{"20", 50},
                                         TInterval{"-5", 50}, TInterval{"500", 500}));

TEST_F(TLifecycleTest, TheIntervalIsReadOnceWhenTheViewIsMade) {
  Open();
  host.config.SetCurrent("QuorPriceUpdateInterval", "60000");
  host.config.Announce();
  Type("700");
  host.Record("700").Set(Field::BestBid, "318.2").Update();
  EXPECT_TRUE(QTest::qWaitFor([&] { return CellText(6, 1) == "318.200"; })) << CellText(6, 1);
}

TEST_F(TLifecycleTest, ManyUpdatesRefreshTheGridOncePerTick) {
  Open();
  Type("700");
  TickRefresh();
  int described = 0;
  const auto draw = PriceGridView().OnCustomDrawCell;
  PriceGridView().OnCustomDrawCell = [&](TcxCanvas& canvas, const TcxCellViewInfo& cell,
                                         bool& done) {
    if (cell.Record == 0 && cell.Column->Tag == 21)
      ++described;
    draw(canvas, cell, done);
  };
  for (int i = 0; i < 100; ++i)
    host.Record("700").Set(Field::BestBid, std::to_string(300 + i)).Update();
  EXPECT_EQ(described, 0);
  TickRefresh();
  EXPECT_EQ(described, 1);
  EXPECT_EQ(CellText(6, 1), "399.000");
  TickRefresh();
  EXPECT_EQ(described, 1) << "nothing was pending";
}

TEST_F(TLifecycleTest, EnterTwiceSubscribesOnce) {
  Open();
  Type("700");
  Type("700");
  EXPECT_EQ(host.subscriptions.subscribed, std::vector<std::string>{"700"});
  EXPECT_EQ(host.viewHost.TakeNotifications().front(), Constdef::Notify_SymbolChanged);
}

TEST_F(TLifecycleTest, AnUnknownSymbolLeavesTheViewOnItsOwn) {
  Open();
  Type("700");
  Type("99999");
  EXPECT_EQ(host.subscriptions.subscribed, std::vector<std::string>{"700"});
  EXPECT_EQ(Find<TcxPopupEdit>("edtSymbol").Hint(), "700");
}

TEST_F(TLifecycleTest, EnterSelectsTheTextOfTheBox) {
  Open();
  Type("700");
  EXPECT_EQ(Find<TcxPopupEdit>("edtSymbol").selectedText(), "700");
}

TEST_F(TLifecycleTest, LeavingTheBoxAppliesItsSymbol) {
  Open();
  auto& box = Find<TcxPopupEdit>("edtSymbol");
  QTest::keyClicks(&box, "5");
  EXPECT_TRUE(host.subscriptions.subscribed.empty());
  box.PerformExit();
  EXPECT_EQ(host.subscriptions.subscribed, std::vector<std::string>{"5"});
}

TEST_F(TLifecycleTest, ASymbolReachesThePerClickControlsToo) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  Type("700");
  EXPECT_EQ(host.subscriptions.subscribed, (std::vector<std::string>{"700", "700", "700"}));
}

TEST_F(TLifecycleTest, AGroupIsJoinedAndLeft) {
  Open();
  EXPECT_EQ(host.editors.groups, std::vector<std::string>{""});
  EXPECT_TRUE(frame->SetGroupID("A"));
  EXPECT_TRUE(host.channels.IsMember("A", frame.get()));
  EXPECT_EQ(frame->GetGroupID(), "A");
  EXPECT_EQ(host.editors.groups, (std::vector<std::string>{"", "A"}));

  frame->SetGroupID("A");
  EXPECT_EQ(host.editors.groups.size(), 2u) << "the same group again does nothing";

  frame->SetGroupID("B");
  EXPECT_FALSE(host.channels.IsMember("A", frame.get()));
  EXPECT_TRUE(host.channels.IsMember("B", frame.get()));

  frame->SetGroupID("");
  EXPECT_EQ(host.channels.GroupCount(), 0);
  EXPECT_EQ(host.editors.groups, (std::vector<std::string>{"", "A", "B", ""}));
}

TEST_F(TLifecycleTest, ASymbolIsToldBeforeThePanelsThatItTakesAway) {
  Open();
  host.Record("700").Set(Field::FirstMessage, "Trading halted");
  Type("700");
  host.viewHost.TakeNotifications();
  Type("5");
  EXPECT_EQ(host.viewHost.TakeNotifications(),
            (std::vector<int>{Constdef::Notify_SymbolChanged, Constdef::Notify_SizeChanged}));
}

TEST_F(TLifecycleTest, TheSymbolBoxAsksForCompletionAndForResolutionOnExit) {
  Open();
  EXPECT_TRUE(host.editors.askedForCompletion);
  EXPECT_TRUE(host.editors.askedForResolutionOnExit);
}

class TPerclickGroupTest : public TViewTest, public testing::WithParamInterface<const char*> {};

TEST_P(TPerclickGroupTest, ItsCopiedOrdersCarryTheGroup) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  Type("700");
  host.Record("700").Set({{Field::BestBid, "318.2"}, {Field::Open, "316.4"}}).Update();
  frame->SetGroupID("A");
  frame->resize(frame->GetWidth(), frame->GetHeight());
  frame->show();
  auto& grid = Find<TcxGrid>(GetParam());
  const auto* column = grid.View()->Columns()[0].get();
  QTest::mouseClick(&grid, Qt::LeftButton, {}, grid.View()->CellBounds(0, column).center());
  ASSERT_EQ(host.channels.sentOrders.size(), 1u);
  EXPECT_EQ(host.channels.sentOrders[0].source, "A");
}

INSTANTIATE_TEST_SUITE_P(Grids, TPerclickGroupTest,
                         testing::Values("PerclickPriceGrid", "PerclickInfoGrid"));

TEST_F(TLifecycleTest, CopiedOrdersCarryTheGroup) {
  Open();
  Type("700");
  host.Record("700").Set(Field::BestBid, "318.2").Update();
  TickRefresh();
  frame->SetGroupID("A");
  frame->resize(frame->GetWidth(), frame->GetHeight());
  frame->show();
  const auto cell = PriceGridView().CellBounds(6, ColumnOf("PriceGrid", 1));
  QTest::mouseClick(&Find<TcxGrid>("PriceGrid"), Qt::LeftButton, {}, cell.center());
  ASSERT_EQ(host.channels.sentOrders.size(), 1u);
  EXPECT_EQ(host.channels.sentOrders[0].source, "A");
  EXPECT_EQ(host.channels.sentOrders[0].kind, 502);
  EXPECT_EQ(host.channels.sentOrders[0].price, 318.2);
}

TEST_F(TLifecycleTest, OnlyShortcutActionZeroTellsTheHost) {
  Open();
  EXPECT_TRUE(frame->ExecuteShortcutAction(5));
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
  EXPECT_TRUE(frame->ExecuteShortcutAction(0));
  EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector<int>{Constdef::Notify_Shortcut});
}

TEST_F(TLifecycleTest, LayoutLoadedAndMainFormShownAskForTheSizeWhenReady) {
  Open();
  for (const int message : {Constdef::Channel_LayoutLoaded, Constdef::Channel_MainFormShown}) {
    host.config.layoutReady = true;
    host.channels.Send(message, nullptr, nullptr);
    EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector<int>{Constdef::Notify_SizeChanged});
    host.config.layoutReady = false;
    host.channels.Send(message, nullptr, nullptr);
    EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
  }
}

TEST_F(TLifecycleTest, ManyViewsOpenAndCloseInAnyOrder) {
  const auto before = host.Registrations();
  std::vector<std::unique_ptr<Quorpriceview::TQuorPriceFrame>> views;
  for (int i = 0; i < 5; ++i)
    views.push_back(std::make_unique<Quorpriceview::TQuorPriceFrame>(nullptr));
  for (auto& view : views)
    view->SetSymbol("700");
  EXPECT_EQ(host.subscriptions.SubscriptionCount("700"), 5);
  for (const std::size_t closing : {2u, 0u, 4u, 1u, 3u}) {
    views[closing].reset();
    host.Record("700").Set(Field::BestBid, "1").Update();
  }
  EXPECT_EQ(host.Registrations(), before);
}

} // namespace
