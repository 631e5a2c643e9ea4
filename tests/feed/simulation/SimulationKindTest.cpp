#include "feed/simulation/SimulationKind.h"

#include "market/PublishedState.h"

#include <gtest/gtest.h>

namespace {

using namespace Feed;
using namespace std::chrono_literals;

const TSourceOptions options{{SeedOption, "5"}, {StartOption, "09:31:00"}};

TEST(SimulationKind, KnowsASeedAndAMomentOfTheDay) {
  for (const char* seed : {"0", "12", "18446744073709551615"})
    EXPECT_TRUE(IsSeed(seed)) << seed;
  for (const char* seed : {"", "-1", "1x", "18446744073709551616"})
    EXPECT_FALSE(IsSeed(seed)) << seed;
  for (const char* start : {"09:00:00", "16:10:00", "09:31:00.5"})
    EXPECT_TRUE(IsStart(start)) << start;
  for (const char* start : {"08:59:59", "16:10:01", "ten", ""})
    EXPECT_FALSE(IsStart(start)) << start;
}

TEST(SimulationKind, OpensTheDayAndTheMomentAskedFor) {
  const auto opened = OpenSimulation(options, [] {});
  auto& source = *std::get<std::unique_ptr<TMarketReader>>(opened);
  source.Step(0ms);
  const auto news = source.Take();
  EXPECT_EQ(news.Time, 9h + 31min);
  Market::TSimulatedMarket market(5);
  market.AdvanceTo(9h + 31min);
  MarketTest::TPublishedState direct;
  direct.Hear(market.TakeChanges());
  MarketTest::TPublishedState state;
  state.Hear(news.Changes);
  EXPECT_TRUE(state == direct) << Differences(direct, state);
}

TEST(SimulationKind, OpensTheDayOfAFirstStartUnlessAsked) {
  const auto opened = OpenSimulation({}, [] {});
  auto& source = *std::get<std::unique_ptr<TMarketReader>>(opened);
  source.Step(0ms);
  EXPECT_EQ(source.Position(), 10h);
}

TEST(SimulationKind, ReadsEveryMomentOfTheDayFromItsStart) {
  const auto opened = ReadSimulation(options);
  const auto& stream = std::get<TChangeStream>(opened);
  EXPECT_TRUE(stream.Header.Simulated);
  Market::TSimulatedMarket market(5);
  market.AdvanceTo(9h + 31min);
  for (int i = 0; i < 1000; ++i) {
    const auto moment = stream.Next();
    ASSERT_TRUE(moment);
    ASSERT_EQ(moment->Time, market.Now());
    ASSERT_EQ(moment->Changes.size(), market.TakeChanges().size()) << i;
    market.AdvanceTo(market.NextMoment());
  }
}

TEST(SimulationKind, ReadsToTheEndOfTheDay) {
  const auto opened = ReadSimulation({{StartOption, "16:10:00"}});
  const auto& stream = std::get<TChangeStream>(opened);
  EXPECT_EQ(stream.Next()->Time, 16h + 10min);
  EXPECT_FALSE(stream.Next());
}

} // namespace
