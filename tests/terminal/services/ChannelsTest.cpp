#include "terminal/services/ChannelManager.h"
#include "terminal/services/TimerControl.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <set>

namespace {

using Terminal::TChannelManager;
using Terminal::TGroupData;
using Terminal::TListObject;

class TOwner : public System::TObject {};

/// A view that notes what it hears.
class TListener : public System::TObject {
public:
  System::TDataEvent Handler() {
    return [this](System::TObject* sender, System::TObject* data) {
      ++Heard;
      Sender = sender;
      Data = data;
    };
  }

  int Heard = 0;
  System::TObject* Sender = nullptr;
  System::TObject* Data = nullptr;
};

TEST(Channels, AMessageReachesTheSubscribersOfItsNumberOnly) {
  TChannelManager channels;
  TListener ofOrders, ofScale;
  TOwner sender, data;
  channels.Subscribe(18016, ofOrders.Handler(), &ofOrders);
  channels.Subscribe(110, ofScale.Handler(), &ofScale);
  channels.Send(18016, &sender, &data);
  EXPECT_EQ(ofOrders.Heard, 1);
  EXPECT_EQ(ofOrders.Sender, &sender);
  EXPECT_EQ(ofOrders.Data, &data);
  EXPECT_EQ(ofScale.Heard, 0);
  channels.Send(999, nullptr, nullptr);
  EXPECT_EQ(ofOrders.Heard + ofScale.Heard, 1);
}

TEST(Channels, SymbolBroadcastsAreChannelZero) {
  TChannelManager channels;
  TListener view;
  channels.RegisterCopySymbol(view.Handler(), &view);
  TListObject list("700", false);
  channels.Send(0, nullptr, &list);
  const auto* heard = dynamic_cast<Baseglobalchannelmanager::TCustomListObject*>(view.Data);
  ASSERT_NE(heard, nullptr);
  EXPECT_EQ(heard->Symbol(), "700");
  EXPECT_FALSE(heard->IsEmpty());
  channels.UnregisterCopySymbol(&view);
  channels.Send(0, nullptr, &list);
  EXPECT_EQ(view.Heard, 1);
}

TEST(Channels, CountOneRegistrationAnOwnerAndNumber) {
  TChannelManager channels;
  TListener first, second;
  channels.Subscribe(104, first.Handler(), &first);
  channels.Subscribe(104, first.Handler(), &first);
  channels.Subscribe(109, first.Handler(), &first);
  channels.Subscribe(104, second.Handler(), &second);
  channels.RegisterCopySymbol(first.Handler(), &first);
  EXPECT_EQ(channels.ChannelCount(), 4U);
  channels.Unsubscribe(104, &first);
  channels.Unsubscribe(104, &first);
  EXPECT_EQ(channels.ChannelCount(), 3U);
  EXPECT_EQ(channels.GroupCount(), 0U);
}

TEST(Channels, AGroupMessageReachesTheMembersOnly) {
  TChannelManager channels;
  TListener inA, inB, left;
  channels.JoinGroup("A", inA.Handler(), &inA);
  channels.JoinGroup("A", left.Handler(), &left);
  channels.JoinGroup("B", inB.Handler(), &inB);
  channels.LeaveGroup("A", &left);
  EXPECT_EQ(channels.GroupCount(), 2U);
  TGroupData data("A", "5", true);
  channels.SendToGroup("A", nullptr, &data);
  channels.SendToGroup("C", nullptr, &data);
  EXPECT_EQ(inA.Heard, 1);
  EXPECT_EQ(inB.Heard, 0);
  EXPECT_EQ(left.Heard, 0);
  const auto* heard = dynamic_cast<Baseglobalchannelmanager::TCustomGroupData*>(inA.Data);
  ASSERT_NE(heard, nullptr);
  EXPECT_EQ(heard->GroupID(), "A");
  EXPECT_EQ(heard->Symbol(), "5");
  EXPECT_TRUE(heard->IsRefused());
}

TEST(Channels, AViewMayCloseWhileAMessageIsUnderWay) {
  TChannelManager channels;
  auto closing = std::make_unique<TListener>();
  TListener after;
  channels.Subscribe(
      109,
      [&](System::TObject*, System::TObject*) {
        channels.Unsubscribe(109, closing.get());
        closing.reset();
        channels.Subscribe(200, after.Handler(), &after);
      },
      closing.get());
  channels.Subscribe(109, after.Handler(), &after);
  channels.Send(109, nullptr, nullptr);
  EXPECT_EQ(after.Heard, 1);
  EXPECT_EQ(channels.ChannelCount(), 2U);
}

/// Sees the interval of every timer that ticks.
struct TTickWatch : QObject {
  TTickWatch() { qApp->installEventFilter(this); }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (const auto* timer = qobject_cast<QTimer*>(object); timer && event->type() == QEvent::Timer)
      Intervals.insert(timer->interval());
    return false;
  }

  std::set<int> Intervals;
};

TEST(SharedTimer, TicksTwiceASecondForThoseWhoAreRegistered) {
  TTickWatch watch;
  Terminal::TTimerControl timer;
  TOwner owner;
  int ticks = 0;
  timer.Register(&owner, [&](System::TObject* sender) {
    EXPECT_EQ(sender, &timer);
    ++ticks;
  });
  EXPECT_EQ(timer.RegistrationCount(), 1U);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 2; }));
  EXPECT_TRUE(watch.Intervals.contains(500));
  timer.Unregister(&owner);
  EXPECT_EQ(timer.RegistrationCount(), 0U);
}

} // namespace
