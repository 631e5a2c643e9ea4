#include "host/RecordFields.h"
#include "terminal/services/SubscribeAdapter.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

namespace Field = Host::Field;

constexpr int UnknownField = 99;

using Basesubscribedata::TCustomSubItem;
using Data::TRecordChange;
using Markettradesidedetector::TTrade;

class TOwner : public System::TObject {};

class TRecordsTest : public testing::Test {
protected:
  TCustomSubItem* Subscribe(std::string_view symbol) {
    return Adapter.Subscribe(symbol, "PRCDDS", true);
  }

  static Data::TRecordChange
  Change(std::string symbol, std::vector<std::pair<int, std::optional<std::string>>> fields) {
    Data::TRecordChange change;
    change.Symbol = std::move(symbol);
    change.Fields = std::move(fields);
    return change;
  }

  Terminal::TSymbolDirectory Symbols;
  Terminal::TTradeSideDetector Trades;
  Terminal::TSubscribeAdapter Adapter{Symbols, Trades};
};

TEST_F(TRecordsTest, ASubscribedSymbolThatNobodyNamedHasAnEmptyRecordAndIsNotListed) {
  const auto* record = Subscribe("700");
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->Symbol(), "700");
  EXPECT_EQ(record->GetState(), 0);
  EXPECT_EQ(record->StatusText(), "");
  EXPECT_FALSE(record->HasValue(Field::BestBid));
  EXPECT_EQ(Symbols.Resolve("700"), std::nullopt);
  EXPECT_EQ(Subscribe(""), nullptr);
}

TEST_F(TRecordsTest, AnUpdateMakesTheRecordReadyUnlessItSaysOtherwise) {
  const auto* subscribed = Subscribe("700");
  Adapter.Apply(Change("700", {{Field::BestBid, "318.2"}}));
  EXPECT_EQ(subscribed->GetState(), 1);
  EXPECT_EQ(subscribed->GetText(Field::BestBid), "318.2");
  Data::TRecordChange rejected;
  rejected.Symbol = "9999";
  rejected.State = 2;
  rejected.Status = "Unknown stock";
  Adapter.Apply(rejected);
  EXPECT_EQ(Adapter.Find("9999")->GetState(), 2);
  EXPECT_EQ(Adapter.Find("9999")->StatusText(), "Unknown stock");
  EXPECT_EQ(Symbols.Resolve("9999"), "9999") << "a record of any state lists its symbol";
  Adapter.Apply(Change("9999", {{Field::BestBid, "5"}}));
  EXPECT_EQ(Adapter.Find("9999")->GetState(), 2) << "an omitted state stays";
  EXPECT_EQ(Adapter.Find("9999")->StatusText(), "Unknown stock");
}

TEST_F(TRecordsTest, AChangeMergesAndARemovedFieldIsAbsent) {
  Adapter.Apply(Change("700", {{Field::BestAsk, "318.4"},
                               {Field::BidQueue, ""},
                               {Field::BestBid, "318.2"},
                               {Field::CasMarker, " 1 "}}));
  Adapter.Apply(Change(
      "700",
      {{Field::BestBid, "318.6"}, {Field::BestAsk, std::nullopt}, {UnknownField, std::nullopt}}));
  const auto* record = Adapter.Find("700");
  EXPECT_EQ(record->GetText(Field::BestBid), "318.6");
  EXPECT_FALSE(record->HasValue(Field::BestAsk));
  EXPECT_EQ(record->GetText(Field::BestAsk), "");
  EXPECT_TRUE(record->HasValue(Field::BidQueue)) << "a field with an empty text is present";
  EXPECT_FALSE(record->HasValue(99));
  EXPECT_EQ(record->GetText(Field::CasMarker), " 1 ") << "texts are kept as given";
  Adapter.Apply(Change("", {{Field::BestBid, "1"}}));
  EXPECT_EQ(Adapter.Find(""), nullptr);
}

TEST_F(TRecordsTest, ANumberIsReadWithBlanksAroundItAndIsZeroForAnyOtherText) {
  for (const auto& [text, number] : std::vector<std::pair<std::string, double>>{{"318.2", 318.2},
                                                                                {" 318.2 ", 318.2},
                                                                                {"+1.5", 1.5},
                                                                                {"-0.35", -0.35},
                                                                                {"12000", 12000},
                                                                                {"", 0},
                                                                                {"N/A", 0},
                                                                                {"12a", 0},
                                                                                {"inf", 0},
                                                                                {"nan", 0},
                                                                                {"--1", 0},
                                                                                {"+-1", 0}}) {
    Adapter.Apply(Change("700", {{Field::Nominal, text}}));
    EXPECT_EQ(Adapter.Find("700")->GetNumber(Field::Nominal), number) << text;
  }
  EXPECT_EQ(Adapter.Find("700")->GetNumber(UnknownField), 0);
}

TEST_F(TRecordsTest, EveryFollowerIsToldOncePerChange) {
  auto* record = Subscribe("700");
  TOwner depth, detail;
  int toldDepth = 0, toldDetail = 0;
  record->AddRealtimeListener(
      [&](System::TObject* sender) {
        EXPECT_EQ(sender, record);
        EXPECT_EQ(record->GetText(Field::BestBid), "318.2") << "told after the merge";
        ++toldDepth;
      },
      &depth);
  Adapter.SetUpdateHandler(
      record,
      [&](System::TObject*, System::TObject* data) {
        EXPECT_EQ(data, record);
        ++toldDetail;
      },
      &detail);
  Adapter.Apply(Change("700", {{Field::BestBid, "318.2"}, {Field::BestAsk, "318.4"}}));
  Adapter.Apply(Change("5", {{Field::BestBid, "60"}}));
  EXPECT_EQ(toldDepth, 1);
  EXPECT_EQ(toldDetail, 1);
  record->RemoveRealtimeListener(&depth);
  Adapter.Release(record, &detail);
  Adapter.Apply(Change("700", {{Field::BestBid, "318.4"}}));
  EXPECT_EQ(toldDepth + toldDetail, 2);
}

TEST_F(TRecordsTest, AFollowerMayLeaveAndSubscribeWhileItIsTold) {
  auto* record = Subscribe("700");
  auto owner = std::make_unique<TOwner>();
  TOwner other;
  int told = 0;
  record->AddRealtimeListener(
      [&](System::TObject*) {
        record->RemoveRealtimeListener(owner.get());
        Adapter.Unsubscribe(record);
        owner.reset();
        Subscribe("5")->AddRealtimeListener([&](System::TObject*) { ++told; }, &other);
        Adapter.Apply(Change("5", {{Field::BestBid, "60"}}));
      },
      owner.get());
  Adapter.Apply(Change("700", {{Field::BestBid, "318.2"}}));
  EXPECT_EQ(told, 1);
  EXPECT_EQ(Adapter.RegistrationCount(), 1U);
}

TEST_F(TRecordsTest, RegistrationsAreSubscriptionsThatWereNotUndone) {
  auto* record = Subscribe("700");
  TOwner depth, detail;
  record->AddRealtimeListener([](System::TObject*) {}, &depth);
  EXPECT_EQ(Subscribe("700"), record) << "a record is shared";
  Adapter.SetUpdateHandler(
      record, [](System::TObject*, System::TObject*) {}, &detail);
  Subscribe("5");
  EXPECT_EQ(Adapter.RegistrationCount(), 3U);
  Adapter.Release(record, &detail);
  EXPECT_EQ(Adapter.RegistrationCount(), 2U);
  Adapter.Unsubscribe(record);
  EXPECT_EQ(Adapter.RegistrationCount(), 2U) << "the listener was left behind";
  record->RemoveRealtimeListener(&depth);
  EXPECT_EQ(Adapter.RegistrationCount(), 1U);
  Adapter.Unsubscribe(record);
  Adapter.Unsubscribe(nullptr);
  EXPECT_EQ(Adapter.RegistrationCount(), 1U);
}

TEST_F(TRecordsTest, WhatWasAskedIsToldOnceInOrderWithRepeats) {
  std::vector<std::string> asked;
  Adapter.OnRefresh = [&](std::string_view symbol) { asked.emplace_back(symbol); };
  TOwner owner;
  auto* first = Subscribe("700");
  auto* second = Subscribe("5");
  Subscribe("700");
  Adapter.Refresh("700");
  Adapter.Release(second, &owner);
  Adapter.Unsubscribe(first);
  const auto requests = Adapter.TakeRequests();
  EXPECT_EQ(requests.Subscribed, (std::vector<std::string>{"700", "5", "700"}));
  EXPECT_EQ(requests.Released, (std::vector<std::string>{"5", "700"}));
  EXPECT_EQ(requests.Refreshed, std::vector<std::string>{"700"});
  EXPECT_EQ(asked, requests.Refreshed);
  EXPECT_TRUE(Adapter.TakeRequests().Subscribed.empty());
}

TEST_F(TRecordsTest, TheTradesOfAChangeAreKnownBeforeItsFollowersHear) {
  auto* record = Subscribe("700");
  TOwner owner;
  std::string latest;
  record->AddRealtimeListener(
      [&](System::TObject*) { latest = Trades.GetSymbolMarketTrade("700")->GetTrade(0)->Time; },
      &owner);
  auto change = Change("700", {});
  change.Trades = {{"09:30:01", "B", "500", 318.2}, {"09:30:02", "", "100", 318.4}};
  Adapter.Apply(change);
  EXPECT_EQ(latest, "09:30:02");
}

TEST_F(TRecordsTest, TheQuantitiesOfTradesAreGroupedLikeOthers) {
  Data::TRecordChange change;
  change.Symbol = "700";
  change.Trades = {{"09:30:01", "B", "1234500", 318.2}, {"09:30:02", "", "12,000", 318.4}};
  Adapter.Apply(change);
  EXPECT_EQ(Trades.GetSymbolMarketTrade("700")->GetTrade(1)->Quantity, "1,234,500");
  EXPECT_EQ(Trades.GetSymbolMarketTrade("700")->GetTrade(0)->Quantity, "12,000");
}

TEST(Trades, AreLatestFirstAndFiftyAtMost) {
  Terminal::TTradeSideDetector detector;
  EXPECT_EQ(detector.GetSymbolMarketTrade("700"), nullptr);
  for (int i = 1; i <= 60; ++i)
    detector.AddTrade("700", TTrade{std::to_string(i), "S", "100", 5.5});
  const auto* trades = detector.GetSymbolMarketTrade("700");
  ASSERT_NE(trades, nullptr);
  EXPECT_EQ(trades->GetTrade(0)->Time, "60");
  EXPECT_EQ(trades->GetTrade(0)->Side, "S");
  EXPECT_EQ(trades->GetTrade(0)->Quantity, "100");
  EXPECT_EQ(trades->GetTrade(0)->Price, 5.5);
  EXPECT_EQ(trades->GetTrade(49)->Time, "11");
  EXPECT_EQ(trades->GetTrade(50), nullptr);
  EXPECT_EQ(trades->GetTrade(-1), nullptr);
  EXPECT_EQ(detector.GetSymbolMarketTrade("5"), nullptr);
}

TEST(Trades, AReplacedListIsTakenInItsOrder) {
  Terminal::TTradeSideDetector detector;
  detector.AddTrade("700", TTrade{"09:00", "", "1", 1});
  detector.ReplaceTrades("700", {TTrade{"10:02", "", "2", 2}, TTrade{"10:01", "", "3", 3}});
  const auto* trades = detector.GetSymbolMarketTrade("700");
  EXPECT_EQ(trades->GetTrade(0)->Time, "10:02");
  EXPECT_EQ(trades->GetTrade(1)->Time, "10:01");
  EXPECT_EQ(trades->GetTrade(2), nullptr);
}

TEST(Trades, CountTheSymbolsAskedFor) {
  Terminal::TTradeSideDetector detector;
  detector.AddSymbol("700");
  detector.AddSymbol("700");
  detector.AddSymbol("5");
  EXPECT_EQ(detector.RegistrationCount(), 3U);
  detector.RemoveSymbol("700");
  detector.RemoveSymbol("5");
  detector.RemoveSymbol("5");
  EXPECT_EQ(detector.RegistrationCount(), 1U);
}

} // namespace
