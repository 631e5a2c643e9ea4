#include "market/Snapshot.h"

#include "market/MarketRig.h"

#include <gtest/gtest.h>

namespace {

using namespace Market;
using namespace std::chrono_literals;
using TSession = TSnapshot::TSession;

/// Twelve bids, one a level from 49.90 down, as many asks from 50.00 up, at ten o'clock.
class TSnapshotTest : public testing::Test {
protected:
  TSnapshotTest() {
    Rig.Market.AdvanceTo(10h);
    for (int level = 0; level < 12; ++level) {
      Rig.Bid(49'900 - 50 * level, 200, 1000 + level);
      Rig.Ask(50'000 + 50 * level, 200, 2000 + level);
    }
  }

  TSnapshot Now() const { return SnapshotOf(Rig.Market); }

  TMarketRig Rig{TMarketRig::Volatile()};
};

TEST_F(TSnapshotTest, HoldsTheTenBestLevelsASide) {
  const TSnapshot shown = Now();
  ASSERT_EQ(shown.Bid.Levels.size(), 10u);
  ASSERT_EQ(shown.Ask.Levels.size(), 10u);
  EXPECT_EQ(shown.Bid.Levels[9], (TBookLevel{49'450, 200, 1}));
  EXPECT_EQ(shown.Ask.Levels[9], (TBookLevel{50'450, 200, 1}));
  EXPECT_EQ(shown.Ask.Queue.back().Number, 2011) << "the queue goes on behind them";
}

TEST_F(TSnapshotTest, WhatHappensBehindLevelsAndQueueIsNotSeen) {
  for (int order = 0; order < 30; ++order)
    Rig.Bid(49'900, 100, 3000);
  const TSnapshot before = Now();
  const auto deep = Rig.Bid(49'350, 100, 3000);
  EXPECT_EQ(deep.Open, 100);
  EXPECT_EQ(Now(), before);
  Rig.Bid(49'450, 100, 3000); // the tenth level, though behind the queue's fortieth entry
  EXPECT_NE(Now(), before);
}

TEST_F(TSnapshotTest, EveryOrderInFrontIsSeenAndItsRefusalIsNot) {
  const TSnapshot before = Now();
  EXPECT_NE(Rig.Bid(49'900, 150).Rejection, TRejection::None); // no whole lots
  EXPECT_EQ(Now(), before);
  Rig.Bid(49'900, 100);
  EXPECT_NE(Now(), before);
}

TEST_F(TSnapshotTest, TwoOrdersThatChangePlacesAreSeenInTheQueueAlone) {
  Rig.Bid(49'900, 200, 4000);
  const TSnapshot before = Now();
  ASSERT_EQ(Rig.Market.Change(1, 49'850, 200).Open, 200);
  ASSERT_EQ(Rig.Market.Change(1, 49'900, 200).Open, 200);
  EXPECT_EQ(Now().Bid.Levels, before.Bid.Levels);
  EXPECT_NE(Now().Bid.Queue, before.Bid.Queue);
}

TEST_F(TSnapshotTest, HasNoBookInAnAuctionButWhatItWouldTradeAt) {
  Rig.Bid(50'000, 200, 1);
  Rig.Market.AdvanceTo(16h + 2min);
  Rig.Bid(50'100, 300, 1);
  const TSnapshot shown = Now();
  EXPECT_EQ(shown.Session, TSession::Closing);
  EXPECT_TRUE(shown.Bid.Levels.empty());
  EXPECT_TRUE(shown.Ask.Queue.empty());
  EXPECT_EQ(shown.Reference, 50'000);
  EXPECT_EQ(shown.AuctionLimits, (TPriceLimits{47'500, 52'500}));
  ASSERT_TRUE(shown.Equilibrium);
  EXPECT_EQ(shown.Equilibrium->Volume, 300);
  EXPECT_FALSE(shown.IsClosed);
  Rig.Market.AdvanceTo(16h + 10min);
  EXPECT_EQ(Now().Session, TSession::None);
  EXPECT_TRUE(Now().IsClosed);
}

TEST_F(TSnapshotTest, OpeningSessionIsOnUntilItIsMatched) {
  TMarketRig morning;
  morning.Market.AdvanceTo(9h + 5min);
  EXPECT_EQ(SnapshotOf(morning.Market).Session, TSession::Opening);
  EXPECT_EQ(SnapshotOf(morning.Market).Reference, 50'000);
  morning.Market.AdvanceTo(9h + 25min);
  EXPECT_EQ(SnapshotOf(morning.Market).Session, TSession::None);
}

TEST_F(TSnapshotTest, SuspensionIsSeen) {
  EXPECT_FALSE(Now().IsSuspended);
  Rig.Market.Suspend();
  EXPECT_TRUE(Now().IsSuspended);
  EXPECT_TRUE(Now().Bid.Levels.empty());
}

} // namespace
