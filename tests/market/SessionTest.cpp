#include "market/PriceFixing.h"
#include "market/TradingDay.h"

#include <gtest/gtest.h>

#include <set>

namespace Market {
namespace {

using namespace std::chrono_literals;

TEST(MarketTradingDay, PhasesFollowTheClock) {
  const TTradingDay day(1);
  const std::pair<TTimeOfDay, TPhase> expected[] = {
      {0h, TPhase::Closed},
      {9h - 1us, TPhase::Closed},
      {9h, TPhase::OpeningInput},
      {9h + 15min, TPhase::OpeningNoCancel},
      {9h + 20min, TPhase::OpeningMatching},
      {9h + 22min, TPhase::Blocking},
      {9h + 30min - 1us, TPhase::Blocking},
      {9h + 30min, TPhase::Morning},
      {12h - 1us, TPhase::Morning},
      {12h, TPhase::Lunch},
      {13h, TPhase::Afternoon},
      {16h, TPhase::ReferenceFixing},
      {16h + 1min, TPhase::ClosingInput},
      {16h + 6min, TPhase::ClosingNoCancel},
      {16h + 8min, TPhase::ClosingMatching},
      {16h + 10min, TPhase::Closed},
      {25h, TPhase::Closed},
  };
  for (const auto& [time, phase] : expected)
    EXPECT_EQ(day.At(time).Phase, phase) << Text::TimeOfDayText(time % 24h);
}

TEST(MarketTradingDay, SpansJoinWithoutAGap) {
  const TTradingDay day(3);
  TTimeOfDay time{};
  for (int spans = 0; spans < 12; ++spans) {
    const TPhaseSpan& span = day.At(time);
    EXPECT_EQ(span.Start, time);
    EXPECT_LT(span.Start, span.End);
    EXPECT_EQ(day.At(span.End - 1us).Phase, span.Phase);
    time = span.End;
  }
  EXPECT_EQ(day.At(time).Phase, TPhase::Closed);
}

TEST(MarketTradingDay, RandomMomentsFallInTheirTwoMinutesAndFollowFromTheSeed) {
  std::set<TTimeOfDay> openings;
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    const TTradingDay day(seed);
    const TPhaseSpan& opening = day.SpanOf(TPhase::OpeningMatching);
    const TPhaseSpan& closing = day.SpanOf(TPhase::ClosingMatching);
    EXPECT_GT(opening.End, 9h + 20min);
    EXPECT_LE(opening.End, 9h + 22min);
    EXPECT_GT(closing.End, 16h + 8min);
    EXPECT_LE(closing.End, 16h + 10min);
    EXPECT_NE(opening.End - opening.Start, closing.End - closing.Start);
    EXPECT_EQ(TTradingDay(seed).SpanOf(TPhase::OpeningMatching).End, opening.End);
    EXPECT_EQ(TTradingDay(seed).SpanOf(TPhase::ClosingMatching).End, closing.End);
    openings.insert(opening.End);
  }
  EXPECT_EQ(openings.size(), 200u);
  EXPECT_LT(*openings.begin(), 9h + 20min + 10s);
  EXPECT_GT(*openings.rbegin(), 9h + 21min + 50s);
}

TEST(MarketTradingDay, TellsWhenAPhaseNextBegins) {
  const TTradingDay day(1);
  EXPECT_EQ(day.NextStart(TPhase::Morning, 0h), 9h + 30min);
  EXPECT_EQ(day.NextStart(TPhase::Morning, 9h + 30min), std::nullopt);
  EXPECT_EQ(day.NextStart(TPhase::ClosingInput, 10h), 16h + 1min);
  EXPECT_EQ(day.NextStart(TPhase::OpeningInput, 10h), std::nullopt);
  EXPECT_EQ(day.NextStart(TPhase::Closed, 10h), day.SpanOf(TPhase::ClosingMatching).End);
  EXPECT_EQ(day.NextStart(TPhase::Closed, 17h), std::nullopt);
}

TEST(MarketTradingDay, TellsWhichPhasesTakeAndGiveBackOrders) {
  const std::set<TPhase> orders = {TPhase::OpeningInput,    TPhase::OpeningNoCancel,
                                   TPhase::OpeningMatching, TPhase::Morning,
                                   TPhase::Afternoon,       TPhase::ClosingInput,
                                   TPhase::ClosingNoCancel, TPhase::ClosingMatching};
  const std::set<TPhase> cancels = {TPhase::OpeningInput, TPhase::Morning, TPhase::Lunch,
                                    TPhase::Afternoon, TPhase::ClosingInput};
  const std::set<TPhase> books = {TPhase::Morning, TPhase::Lunch, TPhase::Afternoon};
  for (int number = 0; number <= static_cast<int>(TPhase::ClosingMatching); ++number) {
    const auto phase = static_cast<TPhase>(number);
    EXPECT_EQ(AcceptsOrders(phase), orders.contains(phase)) << number;
    EXPECT_EQ(AcceptsCancels(phase), cancels.contains(phase)) << number;
    EXPECT_EQ(PublishesBook(phase), books.contains(phase)) << number;
  }
}

TEST(MarketPriceFixing, AsksEveryFifteenSecondsOfTheLastMinute) {
  TPriceFixing fixing(16h);
  for (const auto seconds : {0s, 15s, 30s, 45s, 60s}) {
    EXPECT_EQ(fixing.NextSample(), 15h + 59min + seconds);
    EXPECT_EQ(fixing.Price(), std::nullopt);
    fixing.Observe(100);
  }
  EXPECT_EQ(fixing.NextSample(), std::nullopt);
  EXPECT_EQ(fixing.Price(), 100);
}

std::optional<TPrice> FixingOf(std::initializer_list<std::optional<TPrice>> prices) {
  TPriceFixing fixing(16h);
  for (const auto& price : prices)
    fixing.Observe(price);
  return fixing.Price();
}

TEST(MarketPriceFixing, IsTheMedian) {
  EXPECT_EQ(FixingOf({500, 100, 300, 400, 200}), 300);
  EXPECT_EQ(FixingOf({100, 100, 900, 900, 900}), 900);
  EXPECT_EQ(FixingOf({{}, 400, 200, 300, 100}), 200);
  EXPECT_EQ(FixingOf({{}, {}, {}, {}, 700}), 700);
  EXPECT_EQ(FixingOf({{}, {}, {}, {}, {}}), std::nullopt);
}

} // namespace
} // namespace Market
