#include "feed/Conflator.h"
#include "feed/ReplayClock.h"
#include "host/RecordFields.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

namespace Field = Host::Field;

using namespace Feed;
using namespace std::chrono_literals;
using TFields = decltype(TRecordChange::Fields);

TRecordChange Change(const char* symbol, TFields fields) {
  TRecordChange change;
  change.Symbol = symbol;
  change.Fields = std::move(fields);
  return change;
}

TRecordChange TradeOf(int quantity) {
  TRecordChange change;
  change.Symbol = "5";
  change.Trades.push_back({"10:00", "B", std::to_string(quantity), 1.5});
  return change;
}

TEST(Conflator, LastValueOfEachFieldWins) {
  TConflator conflator;
  conflator.Merge(Change("5", {{Field::BestBid, "10"}, {Field::BestAsk, "11"}}));
  conflator.Merge(Change("5", {{Field::BestAsk, "12"}, {Field::Nominal, "13"}}));
  const auto changes = conflator.Take();
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].Fields,
            (TFields{{Field::BestBid, "10"}, {Field::BestAsk, "12"}, {Field::Nominal, "13"}}));
}

TEST(Conflator, ARemovalIsKeptAndALaterValueReplacesIt) {
  TConflator conflator;
  conflator.Merge(Change("5", {{Field::BestBid, "10"}, {Field::BestAsk, std::nullopt}}));
  conflator.Merge(Change("5", {{Field::BestBid, std::nullopt}, {Field::BestAsk, ""}}));
  EXPECT_EQ(conflator.Take()[0].Fields,
            (TFields{{Field::BestBid, std::nullopt}, {Field::BestAsk, ""}}));
}

TEST(Conflator, LastStateAndStatusWinAndSilenceChangesNeither) {
  TConflator conflator;
  TRecordChange change = Change("5", {});
  change.State = 0;
  change.Status = "waiting";
  conflator.Merge(change);
  change.State = 2;
  change.Status.reset();
  conflator.Merge(change);
  conflator.Merge(Change("5", {}));
  const auto changes = conflator.Take();
  EXPECT_EQ(changes[0].State, 2);
  EXPECT_EQ(changes[0].Status, "waiting");
}

TEST(Conflator, KeepsSymbolsApartInOrderOfTheirFirstChange) {
  TConflator conflator;
  conflator.Merge(Change("7", {{Field::BestBid, "a"}}));
  conflator.Merge(Change("5", {{Field::BestBid, "b"}}));
  conflator.Merge(Change("7", {{Field::BestBid, "c"}}));
  EXPECT_EQ(conflator.MergedCount(), 3u);
  const auto changes = conflator.Take();
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_EQ(changes[0].Symbol, "7");
  EXPECT_EQ(changes[0].Fields, (TFields{{Field::BestBid, "c"}}));
  EXPECT_EQ(changes[1].Symbol, "5");
}

TEST(Conflator, KeepsTheLatestTradesOldestFirst) {
  TConflator conflator;
  const int count = static_cast<int>(TConflator::MaximumTrades) + 3;
  for (int i = 0; i < count; ++i)
    conflator.Merge(TradeOf(i));
  const auto trades = conflator.Take()[0].Trades;
  ASSERT_EQ(trades.size(), TConflator::MaximumTrades);
  EXPECT_EQ(trades.front().Quantity, "3");
  EXPECT_EQ(trades.back().Quantity, std::to_string(count - 1));
}

TEST(Conflator, KeepsAsManyTradesAsItIsAskedTo) {
  TConflator conflator(5);
  for (int i = 0; i < 1000; ++i) {
    conflator.Merge(TradeOf(i));
    ASSERT_LT(conflator.Changes()[0].Trades.size(), 10u);
  }
  const auto trades = conflator.Take()[0].Trades;
  ASSERT_EQ(trades.size(), 5u);
  EXPECT_EQ(trades.front().Quantity, "995");
  EXPECT_EQ(trades.back().Quantity, "999");
}

TEST(Conflator, DoesNotGrowWithTheNumberOfChanges) {
  TConflator conflator;
  for (int i = 0; i < 10000; ++i)
    conflator.Merge(Change(i % 2 == 0 ? "5" : "7", {{i % 10, std::to_string(i)}}));
  const auto changes = conflator.Take();
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_EQ(changes[0].Fields.size(), 5u);
  EXPECT_EQ(changes[1].Fields.size(), 5u);
}

TEST(Conflator, StartsAfreshAfterATake) {
  TConflator conflator;
  conflator.Merge(Change("5", {{Field::BestBid, "a"}}));
  conflator.Take();
  EXPECT_EQ(conflator.MergedCount(), 0u);
  EXPECT_TRUE(conflator.Take().empty());
  conflator.Merge(Change("5", {{Field::BestAsk, "b"}}));
  EXPECT_EQ(conflator.Take()[0].Fields, (TFields{{Field::BestAsk, "b"}}));
}

constexpr TReplayClock::TMoment Noon = TReplayClock::TMoment() + 100s;

TEST(ReplayClock, StandsStillUnlessItRuns) {
  const TReplayClock clock{10h, Noon, 5, false};
  EXPECT_EQ(clock.At(Noon + 1h), 10h);
  EXPECT_EQ(clock.Due(10h), Noon);
  EXPECT_FALSE(clock.Due(10h + 1us));
}

TEST(ReplayClock, RunsAtItsSpeed) {
  const TReplayClock twice{10h, Noon, 2, true};
  EXPECT_EQ(twice.At(Noon + 3s), 10h + 6s);
  EXPECT_EQ(twice.Due(10h + 6s), Noon + 3s);
  const TReplayClock slow{10h, Noon, 0.1, true};
  EXPECT_EQ(slow.At(Noon + 10s), 10h + 1s);
  EXPECT_EQ(slow.Due(10h + 1s), Noon + 10s);
}

TEST(ReplayClock, AtInfiniteSpeedEverythingIsDueAtOnce) {
  const TReplayClock clock{10h, Noon, std::numeric_limits<double>::infinity(), true};
  EXPECT_EQ(clock.At(Noon), TTimeOfDay::max());
  EXPECT_EQ(clock.Due(23h), Noon);
}

} // namespace
