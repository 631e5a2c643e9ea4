// Whose symbols a view follows: broadcasts of lists, its linking group, orders in order entry.

#include "host/DataDef.h"
#include "host/RecordFields.h"
#include "view/FollowingRules.h"
#include "view/ViewFixture.h"

using FollowingRules::Rules;
using FollowingRules::TRule;
using Platform::TcxPopupEdit;

namespace {

namespace Field = Host::Field;

class TRuleTest : public TViewTest, public testing::WithParamInterface<TRule> {
protected:
  /// A view that shows 700.
  void Follow() {
    host.config.Set(Constdef::Section_TradePlatform, "DefaultGroupDataMode", GetParam().mode);
    Open();
    frame->SetGroupID(GetParam().group);
    Type("700");
  }

  std::string Symbol() { return Find<TcxPopupEdit>("edtSymbol").Hint().toStdString(); }

  /// Whether the view goes to symbol 5 when `send` has carried it; back to 700 then.
  template <typename TSend> bool Follows(TSend send) {
    send();
    const bool followed = Symbol() == "5";
    Type("700");
    return followed;
  }
};

INSTANTIATE_TEST_SUITE_P(Modes, TRuleTest, testing::ValuesIn(Rules));

TEST_P(TRuleTest, HoldsForTheLiveView) {
  Follow();
  const auto broadcast = [this] {
    Fakes::TFakeListObject list("5");
    host.channels.Send(Constdef::Channel_CopySymbol, nullptr, &list);
  };
  const auto groupMessage = [this](const char* group) {
    return [this, group] {
      Fakes::TFakeGroupData data(group, "5");
      host.channels.Send(Constdef::Channel_CopySymbol, nullptr, &data);
    };
  };
  const auto order = [this](const char* group) {
    return [this, group] {
      Fakes::TFakeClientOrder client("5");
      Datadef::TCopyOrderRecord record;
      record.Order = &client;
      record.Source = group;
      host.channels.Send(Constdef::Channel_CopyOrder, nullptr, &record);
    };
  };
  EXPECT_EQ(Follows(broadcast), GetParam().broadcast);
  EXPECT_EQ(Follows(groupMessage("A")), GetParam().groupA);
  EXPECT_EQ(Follows(groupMessage("B")), GetParam().groupB);
  EXPECT_EQ(Follows(groupMessage("")), GetParam().groupNone);
  EXPECT_EQ(Follows(order("A")), GetParam().orderA);
  EXPECT_EQ(Follows(order("B")), GetParam().orderB);
  EXPECT_EQ(Follows(order("")), GetParam().orderNone);
}

class TFollowingTest : public TViewTest {
protected:
  void Follow() {
    Open();
    Type("700");
    host.viewHost.notifications.clear();
    host.subscriptions.subscribed.clear();
  }

  void Broadcast(const char* symbol) {
    Fakes::TFakeListObject list(symbol);
    host.channels.Send(Constdef::Channel_CopySymbol, nullptr, &list);
  }
  void GroupMessage(const char* group, const char* symbol, bool refused = false) {
    Fakes::TFakeGroupData data(group, symbol, refused);
    host.channels.SendToGroup(group, &data);
  }
  void Order(const char* symbol) {
    Fakes::TFakeClientOrder order(symbol);
    SendOrder(&order);
  }
  void SendOrder(System::TObject* order) {
    Datadef::TCopyOrderRecord record;
    record.Order = order;
    host.channels.Send(Constdef::Channel_CopyOrder, nullptr, &record);
  }

  TcxPopupEdit& Edit() { return Find<TcxPopupEdit>("edtSymbol"); }
  std::string Symbol() { return Edit().Hint().toStdString(); }
  std::string Typed() { return Edit().text().toStdString(); }

  void ExpectUntouched() {
    EXPECT_EQ(Symbol(), "700");
    EXPECT_EQ(Typed(), "700");
    EXPECT_TRUE(host.subscriptions.subscribed.empty());
    EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
  }
};

TEST_F(TFollowingTest, AFollowedSymbolIsResolvedAndShownLikeATypedOne) {
  Follow();
  Broadcast("5");
  EXPECT_EQ(Typed(), "5");
  EXPECT_EQ(host.subscriptions.subscribed, std::vector<std::string>{"5"});
  EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector{Constdef::Notify_SymbolChanged});

  frame->SetGroupID("A");
  GroupMessage("A", "10001");
  EXPECT_EQ(Typed(), "10001");
  EXPECT_EQ(Symbol(), "10001");

  Order("700");
  EXPECT_EQ(Typed(), "700");
  EXPECT_EQ(Symbol(), "700");
}

TEST_F(TFollowingTest, MessagesThatCarryNoSymbolAreIgnored) {
  Follow();
  frame->SetGroupID("A");
  Broadcast("");
  GroupMessage("A", "");
  GroupMessage("A", "5", true);
  host.channels.Send(Constdef::Channel_CopySymbol, nullptr, nullptr);
  Fakes::TFakeClientOrder order("5");
  host.channels.Send(Constdef::Channel_CopySymbol, nullptr, &order);
  ExpectUntouched();
}

TEST_F(TFollowingTest, AnOrderMessageWithoutAClientOrderIsIgnored) {
  Follow();
  host.channels.Send(Constdef::Channel_CopyOrder, nullptr, nullptr);
  SendOrder(nullptr);
  Fakes::TFakeListObject list("5");
  SendOrder(&list);
  host.channels.Send(Constdef::Channel_CopyOrder, nullptr, &list);
  Fakes::TFakeOrder copied;
  copied.symbol = "5";
  SendOrder(&copied);
  ExpectUntouched();
}

TEST_F(TFollowingTest, AnOrderWithoutSymbolDoesNotEmptyTheView) {
  Follow();
  Order("");
  ExpectUntouched();
}

TEST_F(TFollowingTest, AViewDoesNotFollowWhatAnotherCopies) {
  Follow();
  Quorpriceview::TQuorPriceFrame other(nullptr);
  host.Record("5").Set(Field::BestBid, "60").Update();
  other.SetSymbol("5");
  other.resize(other.GetWidth(), other.GetHeight());
  QTest::qWait(80);
  auto& grid = *other.findChild<Platform::TcxGrid*>(QStringLiteral("PriceGrid"));
  const auto* price = grid.View()->Columns()[3].get();
  ASSERT_EQ(price->Tag, 1);
  QTest::mouseClick(&grid, Qt::LeftButton, {}, grid.View()->CellBounds(6, price).center());
  ASSERT_EQ(host.channels.sentOrders.size(), 1u);
  EXPECT_EQ(host.channels.sentOrders[0].symbol, "5");
  EXPECT_EQ(Symbol(), "700");
}

TEST_F(TFollowingTest, TheSymbolThatIsShownAlreadyLeavesTheBoxAlone) {
  Follow();
  frame->SetGroupID("A");
  Edit().setText("100");
  Broadcast("700");
  GroupMessage("A", "700");
  Order("700");
  EXPECT_EQ(Typed(), "100") << "what the user is typing stays";
  Broadcast("5");
  EXPECT_EQ(Typed(), "5");
}

TEST_F(TFollowingTest, AMessageIsComparedWithTheBoxAndAnOrderWithTheDepth) {
  Follow();
  Edit().SetHint("5");
  Broadcast("5");
  EXPECT_TRUE(host.subscriptions.subscribed.empty());
  Order("5");
  EXPECT_EQ(host.subscriptions.subscribed, std::vector<std::string>{"5"});
}

TEST_F(TFollowingTest, AnUnknownSymbolLeavesTheViewOnItsOwn) {
  Follow();
  Broadcast("99999");
  EXPECT_EQ(Typed(), "99999");
  EXPECT_EQ(Symbol(), "700");
  EXPECT_TRUE(host.subscriptions.subscribed.empty());
}

TEST_F(TFollowingTest, AnOrdersSymbolIsAppliedWithoutResolution) {
  Follow();
  Order("99999");
  EXPECT_EQ(Typed(), "99999");
  EXPECT_EQ(Symbol(), "99999");
  EXPECT_EQ(host.subscriptions.subscribed, std::vector<std::string>{"99999"});
}

struct TLock {
  int state;
  bool locked;
};

class TLockTest : public TFollowingTest, public testing::WithParamInterface<TLock> {};

TEST_P(TLockTest, OnlyStateOneLocks) {
  Follow();
  frame->SetGroupID("A");
  frame->SetLayoutData("LockState=" + std::to_string(GetParam().state));
  const auto expected = [](const char* symbol) { return GetParam().locked ? "700" : symbol; };
  Broadcast("5");
  EXPECT_EQ(Symbol(), expected("5"));
  GroupMessage("A", "10001");
  EXPECT_EQ(Symbol(), expected("10001"));
  Order("5");
  EXPECT_EQ(Symbol(), expected("5"));
}

INSTANTIATE_TEST_SUITE_P(States, TLockTest,
                         testing::Values(TLock{0, false}, TLock{1, true}, TLock{2, false},
                                         TLock{-1, false}));

TEST_F(TFollowingTest, TheLockButtonLocksAndUnlocks) {
  Follow();
  auto* lock = frame->GetViewCaptionButtons()[2];
  ASSERT_EQ(lock->Hint, "Res_Lock");
  lock->OnClick(nullptr);
  Broadcast("5");
  EXPECT_EQ(Symbol(), "700");
  lock->OnClick(nullptr);
  Broadcast("5");
  EXPECT_EQ(Symbol(), "5");
}

TEST_F(TFollowingTest, ADisabledBoxFollowsOrdersOnly) {
  Follow();
  frame->SetGroupID("A");
  Edit().setEnabled(false);
  Broadcast("5");
  GroupMessage("A", "5");
  EXPECT_EQ(Symbol(), "700");
  Order("5");
  EXPECT_EQ(Symbol(), "5");
}

TEST_F(TFollowingTest, TheModeIsThatOfTheLastConfiguration) {
  Follow();
  host.config.Set(Constdef::Section_TradePlatform, "DefaultGroupDataMode", "2");
  Broadcast("5");
  EXPECT_EQ(Symbol(), "5") << "not announced yet";
  host.config.Announce();
  Broadcast("700");
  EXPECT_EQ(Symbol(), "5");
  host.config.Set(Constdef::Section_TradePlatform, "DefaultGroupDataMode", "1");
  host.config.Announce();
  Broadcast("700");
  EXPECT_EQ(Symbol(), "700");
}

TEST_F(TFollowingTest, AGroupThatWasLeftIsNotFollowedAnyMore) {
  Follow();
  frame->SetGroupID("A");
  frame->SetGroupID("B");
  GroupMessage("A", "5");
  EXPECT_EQ(Symbol(), "700");
  GroupMessage("B", "5");
  EXPECT_EQ(Symbol(), "5");
}

} // namespace
