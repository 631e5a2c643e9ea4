#include "market/Crowd.h"
#include "market/MarketRig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <set>

namespace Market {
namespace {

using namespace std::chrono_literals;

/// The whole market with its crowd.
struct TCrowdRun {
  explicit TCrowdRun(std::uint64_t seed) : Day(seed) {
    std::vector<TInstrumentMarket*> markets;
    for (const TInstrument& instrument : Listing.Instruments()) {
      Owned.push_back(instrument.Standing == TStanding::Unknown
                          ? nullptr
                          : std::make_unique<TInstrumentMarket>(SettingsOf(Listing, instrument),
                                                                Listing.Grid(instrument), Day,
                                                                Ears));
      markets.push_back(Owned.back().get());
    }
    Crowd.emplace(Listing, Day, markets, seed);
  }

  /// The position of the instrument in which something is done.
  std::size_t Act() {
    const TTimeOfDay now = Crowd->NextDue();
    const std::size_t position = Crowd->Act();
    Crowd->SuspendCalled(position, now);
    return position;
  }
  void RunUntil(TTimeOfDay time) {
    while (Crowd->NextDue() <= time)
      Act();
    for (const auto& market : Owned)
      if (market)
        market->AdvanceTo(time);
  }
  std::size_t Position(std::string_view symbol) const {
    return std::size_t(Listing.Find(symbol) - Listing.Instruments().data());
  }
  TInstrumentMarket& Market(std::string_view symbol) { return *Owned[Position(symbol)]; }
  double Middle(std::string_view symbol) {
    const TOrderBook& book = Market(symbol).Book();
    return ToUnits(*book.BestPrice(TSide::Bid) + *book.BestPrice(TSide::Ask)) / 2;
  }

  TListing Listing;
  TTradingDay Day;
  TMarketEars Ears;
  std::vector<std::unique_ptr<TInstrumentMarket>> Owned;
  std::optional<TCrowd> Crowd;
};

TEST(Crowd, TheSameSeedBringsTheSameMarket) {
  TCrowdRun first(4), second(4), other(5);
  for (TCrowdRun* const run : {&first, &second, &other})
    run->RunUntil(9h + 35min);
  ASSERT_GT(first.Ears.Trades.size(), 1000U);
  const auto story = [](const TCrowdRun& run) {
    std::vector<std::tuple<TTimeOfDay, TPrice, TQuantity, TOrderId>> trades;
    for (const TMatch& trade : run.Ears.Trades)
      trades.emplace_back(trade.Time, trade.Price, trade.Quantity, trade.BuyOrder);
    return trades;
  };
  EXPECT_EQ(story(first), story(second));
  EXPECT_NE(story(first), story(other));
}

TEST(Crowd, TradesEverythingThatTrades) {
  TCrowdRun run(4);
  run.RunUntil(10h);
  for (const TInstrument& instrument : run.Listing.Instruments()) {
    SCOPED_TRACE(instrument.Symbol);
    if (instrument.Standing == TStanding::Unknown)
      continue;
    const TInstrumentMarket& market = run.Market(instrument.Symbol);
    if (instrument.Standing == TStanding::Halted) {
      EXPECT_EQ(market.Book().OrderCount(), 0U);
      continue;
    }
    EXPECT_GT(market.Figures().Volume, 0);
    if (market.Settings().IsSuspended) // called
      continue;
    EXPECT_TRUE(market.Book().BestPrice(TSide::Bid));
    EXPECT_TRUE(market.Book().BestPrice(TSide::Ask));
  }
}

TEST(Crowd, WarrantsAndCountersFollowWhatTheyHangOn) {
  TCrowdRun run(4);
  run.RunUntil(10h);
  EXPECT_NEAR(run.Middle("80700"), run.Middle("700") * RenminbiPerDollar, 1);
  const TInstrument& warrant = *run.Listing.Find("14680");
  const double fair = FairValue(*warrant.Terms, run.Middle("700"), run.Listing.Date()) / PriceUnit;
  EXPECT_NEAR(run.Middle("14680"), fair, 0.0101); // two ticks
}

TEST(Crowd, ShocksFallWhileTheVolatilityControlWatches) {
  const TListing listing;
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    const auto shocks = PlanShocks(listing, seed);
    EXPECT_GE(shocks.size(), 1U);
    EXPECT_LE(shocks.size(), 2U);
    EXPECT_TRUE(std::ranges::is_sorted(shocks, {}, &TShock::Time));
    std::set<std::size_t> shocked;
    for (const TShock& shock : shocks) {
      EXPECT_TRUE(shocked.insert(shock.Instrument).second);
      const bool isMorning = shock.Time > 9h + 50min && shock.Time < 11h + 50min;
      const bool isAfternoon = shock.Time > 13h + 20min && shock.Time < 15h + 30min;
      EXPECT_TRUE(isMorning || isAfternoon);
      const int percent = listing.Instruments()[shock.Instrument].VolatilityPercent();
      ASSERT_GT(percent, 0);
      EXPECT_GT(std::abs(std::exp(shock.LogMove) - 1) * 100, percent * 1.05);
      EXPECT_LT(shock.Length, 3min);
    }
  }
}

TEST(Crowd, AShockBringsACoolingOffSoonAfterIt) {
  TCrowdRun run(4);
  const TShock shock = run.Crowd->Shocks().front();
  const TInstrumentMarket& market = *run.Owned[shock.Instrument];
  run.RunUntil(shock.Time);
  EXPECT_FALSE(market.CoolingOff());
  run.RunUntil(shock.Time + shock.Length + 45s);
  ASSERT_TRUE(market.CoolingOff());
  EXPECT_GT(market.CoolingOff()->Start, shock.Time);
}

/// What happens in one instrument between two looks at its book.
struct TActs {
  int Bids = 0, Asks = 0, Cancels = 0;
  std::vector<TPrice> Prices; ///< of the orders entered
};

std::map<TOrderId, TBookOrder> OrdersOf(const TOrderBook& book) {
  std::map<TOrderId, TBookOrder> orders;
  for (const TSide side : {TSide::Bid, TSide::Ask})
    book.VisitOrders(side, [&](const TBookOrder& order, int) {
      orders.emplace(order.Id, order);
      return true;
    });
  return orders;
}

TActs ActsUntil(TCrowdRun& run, std::size_t position, TTimeOfDay time) {
  TActs acts;
  auto before = OrdersOf(run.Owned[position]->Book());
  while (run.Crowd->NextDue() <= time) {
    const std::size_t trades = run.Ears.Trades.size();
    if (run.Act() != position)
      continue;
    auto after = OrdersOf(run.Owned[position]->Book());
    acts.Cancels += after.size() < before.size() && run.Ears.Trades.size() == trades ? 1 : 0;
    for (const auto& [id, order] : after)
      if (!before.contains(id)) {
        ++(order.Side == TSide::Bid ? acts.Bids : acts.Asks);
        acts.Prices.push_back(order.Price);
      }
    before = std::move(after);
  }
  return acts;
}

/// The number is the seed.
class TCrowdInCoolingOffTest : public testing::TestWithParam<std::uint64_t> {};

TEST_P(TCrowdInCoolingOffTest, KeepsBiddingOfferingAndCancellingWithinTheLimits) {
  TCrowdRun run(GetParam());
  const TShock shock = run.Crowd->Shocks().front();
  TInstrumentMarket& market = *run.Owned[shock.Instrument];
  run.RunUntil(shock.Time);
  while (!market.CoolingOff())
    run.Act();
  const TCoolingOff coolingOff = *market.CoolingOff();
  for (TTimeOfDay minute = coolingOff.Start + 1min; minute <= coolingOff.End; minute += 1min) {
    SCOPED_TRACE(minute / 1s);
    const TQuantity volume = market.Figures().Volume;
    const TActs acts = ActsUntil(run, shock.Instrument, minute - 1us);
    EXPECT_GT(acts.Bids, 5);
    EXPECT_GT(acts.Asks, 5);
    EXPECT_GT(acts.Cancels, 5);
    EXPECT_GT(market.Figures().Volume, volume);
    for (const TPrice price : acts.Prices)
      EXPECT_TRUE(coolingOff.Limits.Hold(price)) << price;
    if (minute > coolingOff.Start + 1min)
      continue;
    // Those whom the limit holds back queue at it.
    const auto [waiting, others] = std::pair(shock.LogMove > 0 ? acts.Bids : acts.Asks,
                                             shock.LogMove > 0 ? acts.Asks : acts.Bids);
    EXPECT_GT(waiting, 1.5 * others);
  }
}

INSTANTIATE_TEST_SUITE_P(UpAndDown, TCrowdInCoolingOffTest, testing::Values(4, 700));

TEST(Crowd, ACalledContractStopsTrading) {
  TCrowdRun run(4);
  run.RunUntil(9h + 45min);
  const TInstrumentMarket& bull = run.Market("55321"); // call level 295
  ASSERT_FALSE(bull.Settings().IsSuspended);
  // The user sells the underlying, nine ticks at a time, down to a bid of his own.
  TInstrumentMarket& underlying = run.Market("700");
  underlying.Enter(
      {run.Crowd->NewOrderId(), TSide::Bid, TOrderKind::Limit, 295'000, 100, UserBroker});
  const auto figures = [&] { return underlying.Figures(); };
  for (int sold = 0; sold < 100 && *figures().Low > 295'000; ++sold)
    underlying.Enter(
        {run.Crowd->NewOrderId(), TSide::Ask, TOrderKind::Market, 0, 300'000, UserBroker});
  ASSERT_LE(*figures().Low, 295'000);
  const auto called = run.Crowd->SuspendCalled(run.Position("700"), 9h + 45min);
  EXPECT_EQ(std::ranges::count(called, run.Position("55321")), 1);
  EXPECT_TRUE(bull.Settings().IsSuspended);
  EXPECT_EQ(bull.Book().OrderCount(), 0U);
  const auto volume = bull.Figures().Volume;
  run.RunUntil(9h + 50min);
  EXPECT_EQ(bull.Figures().Volume, volume);
  EXPECT_EQ(bull.Book().OrderCount(), 0U);
  EXPECT_FALSE(run.Market("55672").Settings().IsSuspended); // a bear contract
}

TEST(Crowd, EndsWithTheDayAndLeavesMuchOfItToTheClosingAuction) {
  TCrowdRun run(4);
  while (run.Crowd->NextDue() < TTimeOfDay::max())
    run.Act();
  run.RunUntil(16h + 11min);
  const TInstrumentMarket& share = run.Market("700");
  EXPECT_TRUE(share.ClosingPrice());
  EXPECT_EQ(share.Book().OrderCount(), 0U);
  TAmount opening = 0, closing = 0, whole = 0;
  for (const TMatch& trade : run.Ears.Trades) {
    const TAmount amount = trade.Price * trade.Quantity;
    opening += trade.Time < 9h + 30min ? amount : 0;
    closing += trade.Time > 16h ? amount : 0;
    whole += amount;
  }
  EXPECT_GT(closing, whole / 20);
  EXPECT_LT(closing, whole / 6);
  EXPECT_GT(opening, whole / 200);
  EXPECT_LT(opening, whole / 30);
}

TEST(FairValues, WalkWithTheVolatilityOfTheInstrument) {
  const TListing listing;
  const std::size_t share = std::size_t(listing.Find("2468") - listing.Instruments().data());
  double square = 0;
  int minutes = 0;
  for (std::uint64_t seed = 1; seed <= 12; ++seed) {
    TFairValues values(listing, {}, seed);
    values.AdvanceTo(9h + 30min);
    double last = values.Of(share);
    for (TTimeOfDay time = 9h + 31min; time <= TTimeOfDay(12h); time += 1min, ++minutes) {
      values.AdvanceTo(time);
      const double move = std::log(values.Of(share) / last);
      last = values.Of(share);
      square += move * move;
    }
  }
  EXPECT_NEAR(std::sqrt(square / minutes * 252 * 330), 0.40, 0.1);
}

TEST(FairValues, AreTheSameInWhateverStepsTimeGoesOn) {
  const TListing listing;
  const auto shocks = PlanShocks(listing, 3);
  TFairValues inOne(listing, shocks, 3), inMany(listing, shocks, 3);
  inOne.AdvanceTo(11h);
  for (TTimeOfDay time = 9h; time <= TTimeOfDay(11h); time += 1730ms)
    inMany.AdvanceTo(time);
  inMany.AdvanceTo(11h);
  for (std::size_t position = 0; position < listing.Instruments().size(); ++position)
    EXPECT_EQ(inOne.Of(position), inMany.Of(position));
}

TEST(FairValues, AShockMovesItsShareByWhatItSays) {
  const TListing listing;
  const TShock shock = {10h, 6, 0.15, 45s, 0.4};
  TFairValues calm(listing, {}, 3), shocked(listing, std::span(&shock, 1), 3);
  for (TFairValues* const values : {&calm, &shocked})
    values->AdvanceTo(10h + 45s);
  EXPECT_NEAR(std::log(shocked.Of(6) / calm.Of(6)), 0.15, 1e-12);
  EXPECT_EQ(shocked.Of(5), calm.Of(5));
  EXPECT_GT(shocked.Liveliness(6), 3 * calm.Liveliness(6));
  for (TFairValues* const values : {&calm, &shocked})
    values->AdvanceTo(11h + 40min + 45s); // ten times the ten minutes of second thoughts
  EXPECT_NEAR(std::log(shocked.Of(6) / calm.Of(6)), 0.4 * 0.15, 1e-4);
}

TEST(FairValues, AShockOfAShareMovesTheFundsThatHoldIt) {
  const TListing listing;
  const TShock shock = {10h, 6, 0.15, 45s, 1};
  TFairValues calm(listing, {}, 3), shocked(listing, std::span(&shock, 1), 3);
  for (TFairValues* const values : {&calm, &shocked})
    values->AdvanceTo(10h + 45s);
  const std::size_t fund = std::size_t(listing.Find("2855") - listing.Instruments().data());
  // A quarter of its volatility of 20 per cent.
  EXPECT_NEAR(std::log(shocked.Of(fund) / calm.Of(fund)), 0.05 * 0.15, 1e-12);
}

} // namespace
} // namespace Market
