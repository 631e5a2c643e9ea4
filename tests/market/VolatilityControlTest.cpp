#include "market/MarketRig.h"

#include <gtest/gtest.h>

namespace Market {
namespace {

using namespace std::chrono_literals;

struct TVolatilityControlTest : testing::Test {
  TTickGrid Grid = ShareGrid();
  TTradingDay Day{1};
  TVolatilityControl Control{Day, Grid, 10};
};

TEST_F(TVolatilityControlTest, ReferenceIsTheLastTradeAtLeastFiveMinutesOld) {
  EXPECT_EQ(Control.Reference(10h), std::nullopt);
  Control.AddTrade(10h, 100);
  Control.AddTrade(10h, 101);
  Control.AddTrade(10h + 1min, 102);
  Control.AddTrade(10h + 2min, 102);
  Control.AddTrade(10h + 3min, 103);
  EXPECT_EQ(Control.Reference(10h + 5min - 1us), std::nullopt);
  EXPECT_EQ(Control.Reference(10h + 5min), 101);
  EXPECT_EQ(Control.Reference(10h + 6min - 1us), 101);
  EXPECT_EQ(Control.Reference(10h + 6min), 102);
  EXPECT_EQ(Control.Reference(10h + 8min - 1us), 102);
  EXPECT_EQ(Control.Reference(15h), 103);
}

TEST_F(TVolatilityControlTest, WatchesOnlyInTheMiddleOfTheSessions) {
  Control.AddTrade(9h + 21min, 130);
  const std::pair<TTimeOfDay, bool> expected[] = {{9h + 30min, false},
                                                  {9h + 45min - 1us, false},
                                                  {9h + 45min, true},
                                                  {12h - 1us, true},
                                                  {12h, false},
                                                  {13h, false},
                                                  {13h + 15min - 1us, false},
                                                  {13h + 15min, true},
                                                  {15h + 40min - 1us, true},
                                                  {15h + 40min, false},
                                                  {16h + 5min, false}};
  for (const auto& [time, watches] : expected)
    EXPECT_EQ(Control.Limits(time), watches ? std::optional(TPriceLimits{117, 143}) : std::nullopt)
        << Text::TimeOfDayText(time);
}

TEST_F(TVolatilityControlTest, ACoolingOffKeepsItsLimitsForExactlyFiveMinutes) {
  Control.AddTrade(10h, 130);
  const TTimeOfDay start = 10h + 17min + 42s;
  Control.Trigger(start);
  Control.AddTrade(start + 1s, 142);
  const auto coolingOff = Control.CoolingOff(start);
  ASSERT_TRUE(coolingOff);
  EXPECT_EQ(coolingOff->Start, start);
  EXPECT_EQ(coolingOff->End, start + 300s);
  EXPECT_EQ(coolingOff->Reference, 130);
  EXPECT_EQ(coolingOff->Limits, (TPriceLimits{117, 143}));
  EXPECT_EQ(Control.Limits(start + 300s - 1us), (TPriceLimits{117, 143}));
  EXPECT_FALSE(Control.CoolingOff(start + 300s));
  EXPECT_EQ(Control.Limits(start + 301s), (TPriceLimits{128, 156}));
}

TEST_F(TVolatilityControlTest, ACoolingOffEndsWithTheMorning) {
  Control.AddTrade(10h, 130);
  Control.Trigger(11h + 58min);
  EXPECT_EQ(Control.CoolingOff(11h + 58min)->End, 12h);
  EXPECT_FALSE(Control.CoolingOff(12h));
}

// --- the control at the exchange ---

struct TCoolingOffTest : testing::Test {
  TCoolingOffTest() {
    Rig.Market.AdvanceTo(10h);
    Rig.TradeAt(50'000);
    Rig.Market.AdvanceTo(10h + 10min);
  }
  TMarketRig Rig{TMarketRig::Volatile()};
};

TEST_F(TCoolingOffTest, ATradeAtTheLimitStartsNone) {
  Rig.TradeAt(55'000);
  Rig.TradeAt(45'000);
  EXPECT_EQ(Rig.Ears.Trades.size(), 3u);
  EXPECT_FALSE(Rig.Market.CoolingOff());
}

TEST_F(TCoolingOffTest, ATradeBeyondTheLimitIsNotMadeAndStartsOne) {
  Rig.Ask(54'900, 200);
  Rig.Ask(55'050, 200);
  const TEntryResult result = Rig.Bid(55'100, 500);
  EXPECT_EQ(result.Rejection, TRejection::VolatilityControl);
  EXPECT_EQ(result.Filled, 200);
  EXPECT_EQ(result.Open, 0);
  ASSERT_EQ(Rig.Ears.Trades.size(), 2u);
  EXPECT_EQ(Rig.Ears.Trades[1].Price, 54'900);
  EXPECT_EQ(Rig.Market.Book().BestPrice(TSide::Bid), std::nullopt);
  EXPECT_EQ(Rig.Market.Book().BestPrice(TSide::Ask), 55'050);
  const auto coolingOff = Rig.Market.CoolingOff();
  ASSERT_TRUE(coolingOff);
  EXPECT_EQ(coolingOff->Start, 10h + 10min);
  EXPECT_EQ(coolingOff->End, 10h + 15min);
  EXPECT_EQ(coolingOff->Reference, 50'000);
  EXPECT_EQ(coolingOff->Limits, (TPriceLimits{45'000, 55'000}));
}

TEST_F(TCoolingOffTest, ASellerBeyondTheLowerLimitStartsOneToo) {
  Rig.Bid(44'950, 200);
  EXPECT_EQ(Rig.Ask(44'950, 100).Rejection, TRejection::VolatilityControl);
  EXPECT_TRUE(Rig.Market.CoolingOff());
  EXPECT_EQ(Rig.Ears.Trades.size(), 1u);
}

TEST_F(TCoolingOffTest, AnOrderThatRestsBeyondTheLimitStartsNone) {
  EXPECT_EQ(Rig.Ask(56'000, 100).Open, 100);
  EXPECT_FALSE(Rig.Market.CoolingOff());
}

TEST_F(TCoolingOffTest, OrdersOutsideAreRejectedAndTradingGoesOnInside) {
  Rig.Ask(55'050, 100);
  Rig.Bid(55'050, 100);
  ASSERT_TRUE(Rig.Market.CoolingOff());
  EXPECT_EQ(Rig.Bid(55'050, 100).Rejection, TRejection::VolatilityControl);
  EXPECT_EQ(Rig.Ask(55'050, 100).Rejection, TRejection::VolatilityControl);
  EXPECT_EQ(Rig.Bid(44'950, 100).Rejection, TRejection::VolatilityControl);
  EXPECT_EQ(Rig.AtMarket(TSide::Bid, 100).Rejection, TRejection::VolatilityControl);
  EXPECT_EQ(Rig.Ask(55'000, 100).Open, 100);
  EXPECT_EQ(Rig.Bid(55'000, 100).Filled, 100);
  Rig.Market.AdvanceTo(10h + 15min - 1us);
  EXPECT_EQ(Rig.Bid(55'050, 100).Rejection, TRejection::VolatilityControl);
}

TEST_F(TCoolingOffTest, BidsAboveTheLimitsLapseWhenItBegins) {
  Rig.Bid(54'950, 100);
  Rig.Bid(55'050, 100);
  Rig.Bid(56'000, 100);
  EXPECT_EQ(Rig.Ask(56'000, 100).Rejection, TRejection::VolatilityControl);
  ASSERT_EQ(Rig.Ears.LapsedOrders.size(), 2u);
  EXPECT_EQ(Rig.Ears.LapsedOrders[0].Price, 56'000);
  EXPECT_EQ(Rig.Ears.LapsedOrders[1].Price, 55'050);
  EXPECT_EQ(Rig.Market.Book().BestPrice(TSide::Bid), 54'950);
  EXPECT_EQ(Rig.Market.NominalPrice(), 54'950);
  EXPECT_EQ(Rig.Ears.Trades.size(), 1u);
}

TEST_F(TCoolingOffTest, AsksBelowTheLimitsLapseAndThoseAboveThemStay) {
  Rig.Ask(44'900, 100);
  Rig.Ask(56'000, 100);
  EXPECT_EQ(Rig.Bid(44'900, 100).Rejection, TRejection::VolatilityControl);
  ASSERT_EQ(Rig.Ears.LapsedOrders.size(), 1u);
  EXPECT_EQ(Rig.Ears.LapsedOrders[0].Price, 44'900);
  EXPECT_EQ(Rig.Market.Book().BestPrice(TSide::Ask), 56'000);
}

TEST_F(TCoolingOffTest, TradingIsNormalAgainAfterwards) {
  Rig.Ask(55'050, 100);
  Rig.Bid(55'050, 100);
  Rig.TradeAt(55'000);
  Rig.Market.AdvanceTo(10h + 15min);
  EXPECT_FALSE(Rig.Market.CoolingOff());
  EXPECT_EQ(Rig.Bid(55'050, 100).Filled, 100);
}

TEST_F(TCoolingOffTest, AnInstrumentOutsideTheControlMovesFreely) {
  TMarketRig free;
  free.Market.AdvanceTo(10h);
  free.TradeAt(50'000);
  free.Market.AdvanceTo(10h + 10min);
  free.TradeAt(70'000);
  EXPECT_EQ(free.Ears.Trades.size(), 2u);
  EXPECT_FALSE(free.Market.CoolingOff());
}

} // namespace
} // namespace Market
