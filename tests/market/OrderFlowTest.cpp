#include "market/OrderFlow.h"
#include "market/MarketRig.h"
#include "market/Mathematics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

namespace Market {
namespace {

using namespace std::chrono_literals;

/// One listed instrument with nobody but its order flow, around a fair value that stays.
struct TFlowRun {
  explicit TFlowRun(std::uint64_t seed, std::string_view symbol = "700")
      : Instrument(*Listing.Find(symbol)), Fair(static_cast<double>(Instrument.PreviousClose)),
        Market({.Symbol = Instrument.Symbol,
                .BoardLot = Instrument.BoardLot,
                .PreviousClose = Instrument.PreviousClose,
                .HasClosingAuction = true,
                .DailyLimits = Listing.DailyLimits(Instrument)},
               Listing.Grid(Instrument), Day, Ears),
        Flow(Instrument, Day, Brokers, TRandom(seed, 0)) {}

  void RunUntil(TTimeOfDay time) {
    while (Flow.Due() && *Flow.Due() <= time) {
      Market.AdvanceTo(*Flow.Due());
      Times.push_back(*Flow.Due());
      const std::size_t before = Market.Book().OrderCount();
      Flow.Act(Market, Fair, 1, ++LastId);
      const TBookOrder* entered = Market.Book().Find(LastId);
      Entered += entered ? 1 : 0;
      Largest = std::max(Largest, entered ? entered->Quantity : 0);
      Cancelled += Market.Book().OrderCount() < before && LastTrades == Ears.Trades.size() ? 1 : 0;
      LastTrades = Ears.Trades.size();
    }
  }

  std::vector<double> TradeSizesInLots() const {
    std::map<TOrderId, TQuantity> taken; // one order may fill several
    for (const TMatch& trade : Ears.Trades)
      if (trade.Aggressor)
        taken[*trade.Aggressor == TSide::Bid ? trade.BuyOrder : trade.SellOrder] += trade.Quantity;
    std::vector<double> lots;
    for (const auto& [order, quantity] : taken)
      lots.push_back(static_cast<double>(quantity / Instrument.BoardLot));
    std::ranges::sort(lots);
    return lots;
  }

  TListing Listing;
  const TInstrument& Instrument;
  double Fair;
  TTradingDay Day{1};
  TMarketEars Ears;
  TInstrumentMarket Market;
  TBrokerDraw Brokers;
  TOrderFlow Flow;
  TOrderId LastId = 0;
  std::vector<TTimeOfDay> Times;
  int Entered = 0, Cancelled = 0;
  TQuantity Largest = 0; ///< of the orders that came to stand in the book
  std::size_t LastTrades = 0;
};

/// Time, price, quantity and brokers of every trade.
auto Story(const TFlowRun& run) {
  std::vector<std::tuple<TTimeOfDay, TPrice, TQuantity, TBrokerId, TBrokerId>> story;
  for (const TMatch& trade : run.Ears.Trades)
    story.emplace_back(trade.Time, trade.Price, trade.Quantity, trade.Buyer, trade.Seller);
  return story;
}

TEST(OrderFlow, TheSameSeedBringsTheSameOrders) {
  TFlowRun first(7), second(7);
  first.RunUntil(9h + 40min);
  second.RunUntil(9h + 40min);
  ASSERT_GT(first.Ears.Trades.size(), 100U);
  EXPECT_EQ(Story(first), Story(second));
  EXPECT_EQ(first.Times, second.Times);
}

TEST(OrderFlow, AnotherSeedBringsOthers) {
  TFlowRun first(7), second(8);
  first.RunUntil(9h + 40min);
  second.RunUntil(9h + 40min);
  EXPECT_NE(Story(first), Story(second));
}

TEST(OrderFlow, ActsAsOftenAsTheInstrumentsTemperSays) {
  TFlowRun run(3);
  run.RunUntil(12h);
  const auto since = std::ranges::lower_bound(run.Times, TTimeOfDay(9h + 30min));
  const double rate = static_cast<double>(run.Times.end() - since) / (150 * 60);
  // The morning is by its profile 1.03 times as lively as the day.
  EXPECT_NEAR(rate, 1.03 * run.Instrument.Temper.OrdersPerSecond, 1.5);
}

TEST(OrderFlow, IsBusierAtTheOpenThanBeforeLunch) {
  TFlowRun run(3);
  run.RunUntil(12h);
  const auto between = [&](TTimeOfDay from, TTimeOfDay to) {
    return std::ranges::lower_bound(run.Times, to) - std::ranges::lower_bound(run.Times, from);
  };
  EXPECT_GT(between(9h + 30min, 9h + 40min), 3 * between(11h + 50min, 12h) / 2);
  EXPECT_EQ(between(12h, 13h), 0);
}

TEST(OrderFlow, ComesInBurstsAndQuietSpells) {
  TFlowRun run(3, "41");
  run.RunUntil(12h);
  // Acts in each ten seconds from 10:30 on: were they independent, the variance would be the mean.
  std::vector<double> counts(540);
  for (const TTimeOfDay time : run.Times)
    if (time >= TTimeOfDay(10h + 30min))
      counts[std::size_t((time - TTimeOfDay(10h + 30min)) / 10s)] += 1;
  const double mean = std::accumulate(counts.begin(), counts.end(), 0.0) / 540;
  double variance = 0;
  for (const double count : counts)
    variance += (count - mean) * (count - mean) / 540;
  EXPECT_GT(variance, 2 * mean);
}

TEST(OrderFlow, MixesLimitOrdersTradesAndCancellations) {
  TFlowRun run(5);
  run.RunUntil(12h);
  const auto acts = static_cast<double>(run.Times.size());
  EXPECT_NEAR(run.Entered / acts, 0.5, 0.1);
  EXPECT_NEAR(run.Cancelled / acts, 0.38, 0.1);
  EXPECT_NEAR(static_cast<double>(run.TradeSizesInLots().size()) / acts, 0.08, 0.04);
}

TEST(OrderFlow, KeepsTheNumberOfOrdersWithinBounds) {
  TFlowRun run(5);
  for (TTimeOfDay time = 9h + 31min; time <= TTimeOfDay(12h); time += 1min) {
    run.RunUntil(time);
    EXPECT_GT(run.Market.Book().OrderCount(), 60U);
    EXPECT_LT(run.Market.Book().OrderCount(), 400U);
  }
}

TEST(OrderFlow, QuotesBothSidesATickOrTwoApart) {
  TFlowRun run(5);
  std::map<int, int> spreads;
  const TTickGrid& grid = run.Market.Book().Grid();
  for (TTimeOfDay time = 9h + 35min; time < TTimeOfDay(12h); time += 5s) {
    run.RunUntil(time);
    const auto bid = run.Market.Book().BestPrice(TSide::Bid);
    const auto ask = run.Market.Book().BestPrice(TSide::Ask);
    ASSERT_TRUE(bid && ask);
    ++spreads[grid.TickAtOrBelow(*ask) - grid.TickAtOrBelow(*bid)];
  }
  EXPECT_GT(spreads[1] + spreads[2], 1600); // of 1740 looks
  EXPECT_GT(spreads[2], 50);
}

TEST(OrderFlow, LevelsGrowFromTheBestAndThenFall) {
  TFlowRun run(11);
  std::array<double, 10> sizes{};
  for (TTimeOfDay time = 9h + 40min; time < TTimeOfDay(12h); time += 5s) {
    run.RunUntil(time);
    for (const TSide side : {TSide::Bid, TSide::Ask}) {
      std::array<TBookLevel, 10> levels;
      const std::size_t count = run.Market.Book().ReadLevels(side, levels);
      for (std::size_t level = 0; level < count; ++level)
        sizes[level] += static_cast<double>(levels[level].Quantity);
    }
  }
  const auto fullest = std::ranges::max_element(sizes) - sizes.begin();
  EXPECT_GE(fullest, 1);
  EXPECT_LE(fullest, 5);
  EXPECT_LT(sizes[9], sizes[std::size_t(fullest)] * 0.7);
}

TEST(OrderFlow, SizesHaveAHeavyTail) {
  TFlowRun run(5);
  run.RunUntil(12h);
  const auto lots = run.TradeSizesInLots();
  ASSERT_GT(lots.size(), 5000U);
  const auto quantile = [&](double part) { return lots[std::size_t(part * double(lots.size()))]; };
  // Of an exponential distribution the two ratios would be 2 and 1.5.
  EXPECT_GT(quantile(0.99) / quantile(0.9), 2.5);
  EXPECT_GT(quantile(0.999) / quantile(0.99), 2);
}

TEST(OrderFlow, LargeOrdersStopAtWhatTheExchangeAccepts) {
  TFlowRun run(1, "600816"); // the largest mean size
  run.RunUntil(12h);
  EXPECT_EQ(run.Largest, 3000 * run.Instrument.BoardLot);
}

TEST(OrderFlow, ThePriceFollowsTheFairValue) {
  TFlowRun run(5);
  run.RunUntil(10h);
  run.Fair *= 1.03;
  run.RunUntil(10h + 3min);
  const auto bid = run.Market.Book().BestPrice(TSide::Bid);
  const auto ask = run.Market.Book().BestPrice(TSide::Ask);
  ASSERT_TRUE(bid && ask);
  EXPECT_NEAR(static_cast<double>(*bid + *ask) / 2, run.Fair, 800); // four ticks of 0.20
}

TEST(OrderFlow, GathersOrdersOnBothSidesInTheOpeningAuction) {
  TFlowRun run(5);
  run.RunUntil(9h + 14min);
  const auto limits = run.Market.AuctionLimits();
  ASSERT_TRUE(limits);
  const auto equilibrium = run.Market.Equilibrium();
  ASSERT_TRUE(equilibrium);
  EXPECT_GT(equilibrium->Volume, 10 * run.Instrument.BoardLot);
  EXPECT_NEAR(static_cast<double>(equilibrium->Price), run.Fair, 1000);
  int atAuction = 0;
  for (const TSide side : {TSide::Bid, TSide::Ask})
    run.Market.Book().VisitOrders(side, [&](const TBookOrder& order, int) {
      const bool isLimit = order.Kind == TOrderKind::Limit;
      EXPECT_TRUE(!isLimit || limits->Hold(order.Price)) << order.Price;
      atAuction += isLimit ? 0 : 1;
      return true;
    });
  EXPECT_GT(atAuction, 5);
}

TEST(OrderFlow, StaysWithinADailyLimit) {
  TFlowRun run(5, "600816");
  run.Fair *= 1.2;
  run.RunUntil(10h);
  EXPECT_EQ(run.Market.Figures().High, 9310);
  run.Fair *= 0.6;
  run.RunUntil(10h + 30min);
  EXPECT_EQ(run.Market.Figures().Low, 7610);
}

TEST(OrderFlow, RestsWhileNobodyCanSayWhatTheInstrumentIsWorth) {
  TFlowRun run(5);
  run.Fair = 0;
  run.RunUntil(10h);
  EXPECT_GT(run.Times.size(), 1000U);
  EXPECT_EQ(run.Market.Book().OrderCount(), 0U);
}

TEST(OrderFlow, BrokersHaveUnequalShares) {
  const TBrokerDraw brokers;
  TRandom random(1, 0);
  std::map<TBrokerId, int> drawn;
  for (int draw = 0; draw < 40'000; ++draw)
    ++drawn[brokers.Draw(random)];
  for (const auto& [broker, count] : drawn) {
    ASSERT_NE(FindParticipant(broker), nullptr);
    EXPECT_GT(FindParticipant(broker)->Weight, 0);
  }
  EXPECT_EQ(drawn.count(UserBroker), 0U);
  EXPECT_GT(drawn[4460], 20 * drawn[310]); // a bank of weight 26, a broker of weight 1
  EXPECT_GT(drawn[4460], drawn[4461]);     // a house's first number and its second
  EXPECT_LT(drawn[4460], 40'000 / 10);
}

TEST(TickPosition, CountsTicksWithAFraction) {
  const TTickGrid grid = ShareGrid();
  EXPECT_DOUBLE_EQ(TickPosition(grid, 250), 249);
  EXPECT_DOUBLE_EQ(TickPosition(grid, 252), 249.4);
  EXPECT_DOUBLE_EQ(TickPosition(grid, 248.5), 247.5);
  EXPECT_DOUBLE_EQ(TickPosition(grid, 0.5), -0.5);
}

TEST(Mathematics, AgreesWithTheLibrary) {
  for (double x = -30; x < 30; x += 0.37) {
    EXPECT_NEAR(Exp(x) / std::exp(x), 1, 1e-14) << x;
    EXPECT_NEAR(Log(std::exp(x)), x, 1e-13) << x;
    EXPECT_NEAR(NormalDistribution(x), std::erfc(-x / std::sqrt(2)) / 2, 1e-7) << x;
  }
  EXPECT_EQ(Exp(0), 1);
  EXPECT_EQ(Log(1), 0);
}

TEST(Random, HasTheMomentsItShould) {
  TRandom random(9, 9);
  constexpr int Draws = 200'000;
  double uniform = 0, exponential = 0, normal = 0, square = 0;
  int beyond = 0;
  for (int draw = 0; draw < Draws; ++draw) {
    uniform += random.Uniform();
    exponential += random.Exponential();
    const double number = random.Normal();
    normal += number;
    square += number * number;
    beyond += random.Lomax(2, 1.5) > 6 ? 1 : 0;
  }
  EXPECT_NEAR(uniform / Draws, 0.5, 0.003);
  EXPECT_NEAR(exponential / Draws, 1, 0.01);
  EXPECT_NEAR(normal / Draws, 0, 0.01);
  EXPECT_NEAR(square / Draws, 1, 0.015);
  EXPECT_NEAR(double(beyond) / Draws, 0.125, 0.004); // (1 + 6 / 2) ^ -1.5
}

TEST(Random, StreamsOfOneSeedDiffer) {
  TRandom first(1, 0), again(1, 0), other(1, 1), elsewhere(2, 0);
  const double drawn = first.Uniform();
  EXPECT_EQ(drawn, again.Uniform());
  EXPECT_NE(drawn, other.Uniform());
  EXPECT_NE(drawn, elsewhere.Uniform());
}

} // namespace
} // namespace Market
