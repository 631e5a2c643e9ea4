// Whose symbols a view follows, and what a followed symbol does to the symbol box.

#include "view/SymbolFollowing.h"

#include "fakes/ViewFakes.h"
#include "host/DataDef.h"
#include "view/FollowingRules.h"

#include <gtest/gtest.h>

using namespace Quorpriceview;
using FollowingRules::TRule;

namespace {

/// A symbol box that holds 700, in a host that resolves 700 and 5.
class TSymbolFollowingTest : public testing::Test {
protected:
  TSymbolFollowingTest() {
    host.editors.listed = {"700", "5"};
    host.editors.RegisterSymbolEditor(&box, "", true, true);
    EnterSymbol(box, "700");
    QObject::connect(&box, &Platform::TcxPopupEdit::Exited, &box, [this] { ++exits; });
  }

  void Broadcast(const char* symbol) {
    Fakes::TFakeListObject list(symbol);
    following.Apply(box, &list);
  }
  void GroupMessage(const char* group, const char* symbol, bool refused = false) {
    Fakes::TFakeGroupData data(group, symbol, refused);
    following.Apply(box, &data);
  }
  void Order(const char* source, const char* symbol, const char* shown = "700") {
    Fakes::TFakeClientOrder order(symbol);
    Datadef::TCopyOrderRecord record;
    record.Order = &order;
    record.Source = source;
    following.ApplyOrder(box, &record, shown);
  }

  /// Whether `send` brought symbol 5 into the box; back to 700 then.
  template <typename TSend> bool Follows(TSend send) {
    send();
    const bool followed = AppliedSymbol(box) == "5" && box.text() == "5";
    EnterSymbol(box, "700");
    return followed;
  }

  Fakes::TViewFakes host;
  Platform::TcxPopupEdit box;
  TSymbolFollowing following;
  int exits = 0;
};

class TFollowingRuleTest : public TSymbolFollowingTest,
                           public testing::WithParamInterface<TRule> {};

INSTANTIATE_TEST_SUITE_P(Modes, TFollowingRuleTest, testing::ValuesIn(FollowingRules::Rules));

TEST_P(TFollowingRuleTest, Decides) {
  following = {GetParam().group, GetParam().value};
  EXPECT_EQ(following.FollowsBroadcast(), GetParam().broadcast);
  EXPECT_EQ(following.FollowsGroup("A"), GetParam().groupA);
  EXPECT_EQ(following.FollowsGroup("B"), GetParam().groupB);
  EXPECT_EQ(following.FollowsGroup(""), GetParam().groupNone);
  EXPECT_EQ(following.FollowsOrder("A"), GetParam().orderA);
  EXPECT_EQ(following.FollowsOrder("B"), GetParam().orderB);
  EXPECT_EQ(following.FollowsOrder(""), GetParam().orderNone);
}

TEST_P(TFollowingRuleTest, HoldsForMessagesByTheConfiguredMode) {
  host.config.Set("TARN_TRADEPLATFORM", "DefaultGroupDataMode", GetParam().mode);
  following.GroupID = GetParam().group;
  following.ReadConfiguration();
  EXPECT_EQ(following.GroupDataMode, GetParam().value);
  EXPECT_EQ(Follows([&] { Broadcast("5"); }), GetParam().broadcast);
  EXPECT_EQ(Follows([&] { GroupMessage("A", "5"); }), GetParam().groupA);
  EXPECT_EQ(Follows([&] { GroupMessage("B", "5"); }), GetParam().groupB);
  EXPECT_EQ(Follows([&] { GroupMessage("", "5"); }), GetParam().groupNone);
  EXPECT_EQ(Follows([&] { Order("A", "5"); }), GetParam().orderA);
  EXPECT_EQ(Follows([&] { Order("B", "5"); }), GetParam().orderB);
  EXPECT_EQ(Follows([&] { Order("", "5"); }), GetParam().orderNone);
}

TEST_F(TSymbolFollowingTest, TheAppliedSymbolIsTheResolvedOne) {
  box.setText("12");
  EXPECT_EQ(AppliedSymbol(box), "700");
  EnterSymbol(box, "99999");
  EXPECT_EQ(AppliedSymbol(box), "700") << "it does not resolve";
  EXPECT_EQ(box.text(), "99999");
  EXPECT_EQ(exits, 1);
}

TEST_F(TSymbolFollowingTest, TheAppliedSymbolIsNotEnteredAgain) {
  box.setText("12");
  Broadcast("700");
  GroupMessage("A", "700");
  EXPECT_EQ(box.text(), "12") << "what the user is typing stays";
  EXPECT_EQ(exits, 0);
  Broadcast("5");
  EXPECT_EQ(box.text(), "5");
  EXPECT_EQ(exits, 1);
}

TEST_F(TSymbolFollowingTest, WhatBringsNoSymbolIsIgnored) {
  Broadcast("");
  GroupMessage("A", "");
  GroupMessage("A", "5", true);
  Order("A", "");
  Fakes::TFakeOrder other;
  other.symbol = "5";
  following.Apply(box, nullptr);
  following.Apply(box, &other);
  following.ApplyOrder(box, nullptr, "700");
  following.ApplyOrder(box, &other, "700");
  Datadef::TCopyOrderRecord record;
  following.ApplyOrder(box, &record, "700");
  record.Order = &other; // a copied order, which is no client order
  following.ApplyOrder(box, &record, "700");
  EXPECT_EQ(exits, 0);
  EXPECT_EQ(AppliedSymbol(box), "700");
}

TEST_F(TSymbolFollowingTest, ADisabledBoxFollowsOrdersOnly) {
  box.setEnabled(false);
  Broadcast("5");
  GroupMessage("A", "5");
  EXPECT_EQ(exits, 0);
  Order("A", "5");
  EXPECT_EQ(AppliedSymbol(box), "5");
}

TEST_F(TSymbolFollowingTest, AnOrderIsComparedWithWhatIsShownAndAppliedWithoutResolution) {
  Order("A", "5", "5");
  EXPECT_EQ(exits, 0);
  Order("A", "700", "5");
  EXPECT_EQ(exits, 1) << "though the box holds it";
  Order("A", "99999");
  EXPECT_EQ(AppliedSymbol(box), "99999");
  EXPECT_EQ(exits, 2);
}

} // namespace
