#include "market/MarketRig.h"

#include <gtest/gtest.h>

namespace Market {

namespace {

using namespace std::chrono_literals;
using TRej = TRejection;

struct TInstrumentMarketTest : testing::Test {
  TMarketRig Rig;
  TInstrumentMarket& Market = Rig.Market;
  std::vector<TMatch>& Trades = Rig.Ears.Trades;
};

// --- continuous trading ---

TEST_F(TInstrumentMarketTest, ATradeSaysWhoTradedWithWhomAndWhoCameLast) {
  Market.AdvanceTo(10h);
  Rig.Ask(50'050, 500, 1111);
  EXPECT_EQ(Rig.Bid(50'100, 200, 2222).Filled, 200);
  EXPECT_EQ(Rig.Bid(50'000, 400, 3333).Open, 400);
  EXPECT_EQ(Rig.Ask(50'000, 100, 4444).Filled, 100);
  ASSERT_EQ(Trades.size(), 2u);
  EXPECT_EQ(Trades[0].Time, 10h);
  EXPECT_EQ(Trades[0].Price, 50'050);
  EXPECT_EQ(Trades[0].Quantity, 200);
  EXPECT_EQ(Trades[0].BuyOrder, 2u);
  EXPECT_EQ(Trades[0].SellOrder, 1u);
  EXPECT_EQ(Trades[0].Buyer, 2222);
  EXPECT_EQ(Trades[0].Seller, 1111);
  EXPECT_EQ(Trades[0].Aggressor, TSide::Bid);
  EXPECT_EQ(Trades[1].Price, 50'000);
  EXPECT_EQ(Trades[1].Buyer, 3333);
  EXPECT_EQ(Trades[1].Seller, 4444);
  EXPECT_EQ(Trades[1].Aggressor, TSide::Ask);
}

TEST_F(TInstrumentMarketTest, FiguresOfTheDayFollowTheTrades) {
  Market.AdvanceTo(10h);
  EXPECT_EQ(Market.Figures().Open, std::nullopt);
  Rig.TradeAt(50'000);
  Rig.TradeAt(50'200);
  Rig.TradeAt(49'800);
  Rig.TradeAt(49'900);
  const TDayFigures& figures = Market.Figures();
  EXPECT_EQ(figures.Open, 50'000);
  EXPECT_EQ(figures.High, 50'200);
  EXPECT_EQ(figures.Low, 49'800);
  EXPECT_EQ(figures.Last, 49'900);
  EXPECT_EQ(figures.Volume, 400);
  EXPECT_EQ(figures.Turnover, 100 * (50'000 + 50'200 + 49'800 + 49'900));
}

TEST_F(TInstrumentMarketTest, ALimitOrdersRestStandsAtItsPrice) {
  Market.AdvanceTo(10h);
  Rig.Ask(50'000, 100);
  const TEntryResult result = Rig.Bid(50'050, 300);
  EXPECT_EQ(result.Filled, 100);
  EXPECT_EQ(result.Open, 200);
  EXPECT_EQ(Market.Book().LevelAt(TSide::Bid, 50'050), (TBookLevel{50'050, 200, 1}));
  EXPECT_EQ(Market.Book().Find(2)->Entered, 10h);
}

TEST_F(TInstrumentMarketTest, AMarketOrderReachesNineTicksBeyondTheBestAndItsRestIsCancelled) {
  Market.AdvanceTo(10h);
  Rig.Ask(50'000, 100);
  Rig.Ask(50'450, 100);
  Rig.Ask(50'500, 100);
  const TEntryResult result = Rig.AtMarket(TSide::Bid, 500);
  EXPECT_EQ(result.Rejection, TRej::None);
  EXPECT_EQ(result.Filled, 200);
  EXPECT_EQ(result.Open, 0);
  EXPECT_EQ(Market.Book().BestPrice(TSide::Ask), 50'500);
  EXPECT_EQ(Market.Book().BestPrice(TSide::Bid), std::nullopt);
  EXPECT_EQ(Rig.AtMarket(TSide::Ask, 100).Rejection, TRej::NoOppositePrice);
}

TEST_F(TInstrumentMarketTest, ALimitOrderReachesNoFurtherThanNineTicksBeyondTheBest) {
  Market.AdvanceTo(10h);
  Rig.Ask(50'000, 100);
  EXPECT_EQ(Rig.Bid(50'500, 100).Rejection, TRej::BeyondReach);
  EXPECT_EQ(Rig.Bid(50'450, 100).Filled, 100);
  Rig.Bid(50'000, 100);
  EXPECT_EQ(Rig.Ask(49'500, 100).Rejection, TRej::BeyondReach);
  EXPECT_EQ(Rig.Ask(49'550, 100).Filled, 100);
}

TEST_F(TInstrumentMarketTest, WhatIsNoOrderIsRejected) {
  Market.AdvanceTo(10h);
  EXPECT_EQ(Rig.Bid(50'010, 100).Rejection, TRej::PriceOffTick);
  EXPECT_EQ(Rig.Bid(50'000, 150).Rejection, TRej::QuantityNotInLots);
  EXPECT_EQ(Rig.Bid(50'000, 0).Rejection, TRej::QuantityNotInLots);
  EXPECT_EQ(Rig.Bid(50'000, -100).Rejection, TRej::QuantityNotInLots);
  EXPECT_EQ(Market.Book().OrderCount(), 0u);
}

TEST_F(TInstrumentMarketTest, AnOrderHasThreeThousandBoardLotsAtMost) {
  Market.AdvanceTo(10h);
  EXPECT_EQ(Rig.Bid(50'000, 300'100).Rejection, TRej::QuantityTooLarge);
  EXPECT_EQ(Rig.AtMarket(TSide::Bid, 300'100).Rejection, TRej::QuantityTooLarge);
  EXPECT_EQ(Market.Book().OrderCount(), 0u);
  EXPECT_EQ(Rig.Bid(50'000, 300'000).Open, 300'000);
  EXPECT_EQ(Market.Change(Rig.LastId, 50'000, 300'100).Rejection, TRej::QuantityTooLarge);
  EXPECT_EQ(Market.Book().Find(Rig.LastId)->Quantity, 300'000);
}

TEST(MarketInstrumentCheap, OrdersNineTimesOrANinthOfTheNominalPriceAreRejected) {
  TInstrumentSettings settings = TMarketRig::Usual();
  settings.PreviousClose = 9'000;
  TMarketRig rig(settings);
  rig.Market.AdvanceTo(10h);
  EXPECT_EQ(rig.Bid(1'000, 100).Rejection, TRej::TooFarFromNominal);
  EXPECT_EQ(rig.Bid(1'010, 100).Rejection, TRej::None);
  EXPECT_EQ(rig.Ask(81'000, 100).Rejection, TRej::TooFarFromNominal);
  EXPECT_EQ(rig.Ask(80'950, 100).Rejection, TRej::None);
}

TEST(MarketInstrumentDailyLimits, HoldAtAllTimesAndNarrowTheAuctionsLimits) {
  TInstrumentSettings settings = TMarketRig::Usual();
  settings.DailyLimits = {45'000, 55'000};
  TMarketRig rig(settings);
  rig.Market.AdvanceTo(9h + 5min);
  EXPECT_EQ(rig.Market.AuctionLimits(), (TPriceLimits{45'000, 55'000})); // else 42.5 to 57.5
  EXPECT_EQ(rig.Bid(55'050, 100).Rejection, TRejection::OutsideLimits);
  EXPECT_EQ(rig.Bid(55'000, 100).Open, 100);
  rig.Market.AdvanceTo(10h);
  EXPECT_EQ(rig.Ask(55'050, 100).Rejection, TRejection::OutsideLimits);
  EXPECT_EQ(rig.Bid(44'950, 100).Rejection, TRejection::OutsideLimits);
  EXPECT_EQ(rig.Bid(45'000, 100).Open, 100);
  rig.TradeAt(55'000);
  rig.Market.AdvanceTo(16h + 2min);
  EXPECT_EQ(rig.Market.AuctionLimits(), (TPriceLimits{52'250, 55'000})); // else up to 57.75
}

TEST(MarketInstrumentSuspended, TakesNoOrder) {
  TInstrumentSettings settings = TMarketRig::Usual();
  settings.IsSuspended = true;
  TMarketRig rig(settings);
  rig.Market.AdvanceTo(10h);
  EXPECT_EQ(rig.Bid(50'000, 100).Rejection, TRej::Suspended);
  EXPECT_EQ(rig.Market.NominalPrice(), 50'000);
}

TEST_F(TInstrumentMarketTest, SuspendingEndsTradingForTheDay) {
  Market.AdvanceTo(10h);
  Rig.TradeAt(50'200);
  Rig.Bid(50'000, 300);
  Rig.Ask(50'400, 200);
  Market.Suspend();
  ASSERT_EQ(Rig.Ears.LapsedOrders.size(), 2u);
  EXPECT_EQ(Rig.Ears.LapsedOrders[0].Quantity, 300);
  EXPECT_EQ(Rig.Ears.LapsedOrders[1].Quantity, 200);
  EXPECT_EQ(Market.Book().OrderCount(), 0u);
  EXPECT_EQ(Rig.Bid(50'000, 100).Rejection, TRej::Suspended);
  Market.AdvanceTo(13h + 30min);
  EXPECT_EQ(Rig.Bid(50'000, 100).Rejection, TRej::Suspended);
  EXPECT_EQ(Market.NominalPrice(), 50'200);
}

// --- changing and cancelling ---

TEST_F(TInstrumentMarketTest, ASmallerQuantityKeepsThePlaceAndALargerOneLosesIt) {
  Market.AdvanceTo(10h);
  for (int n = 0; n < 3; ++n)
    Rig.Bid(50'000, 300);
  EXPECT_EQ(Market.Change(1, 50'000, 100).Open, 100);
  EXPECT_EQ(Market.Book().Front(TSide::Bid)->Id, 1u);
  EXPECT_EQ(Market.Change(1, 50'000, 400).Open, 400);
  EXPECT_EQ(Market.Book().Front(TSide::Bid)->Id, 2u);
  EXPECT_EQ(Market.Change(2, 50'000, 300).Open, 300);
  EXPECT_EQ(Market.Book().Front(TSide::Bid)->Id, 2u);
  EXPECT_EQ(Market.Book().LevelAt(TSide::Bid, 50'000), (TBookLevel{50'000, 1000, 3}));
}

TEST_F(TInstrumentMarketTest, AChangedPriceMayTradeUnderTheSameNumber) {
  Market.AdvanceTo(10h);
  Rig.Bid(49'900, 300, 1111);
  Rig.Ask(50'000, 100);
  const TEntryResult result = Market.Change(1, 50'000, 300);
  EXPECT_EQ(result.Filled, 100);
  EXPECT_EQ(result.Open, 200);
  EXPECT_EQ(Trades.at(0).BuyOrder, 1u);
  EXPECT_EQ(Trades.at(0).Buyer, 1111);
  EXPECT_EQ(Trades.at(0).Aggressor, TSide::Bid);
  EXPECT_EQ(Market.Book().Find(1)->Price, 50'000);
}

TEST_F(TInstrumentMarketTest, ARejectedChangeLeavesTheOrder) {
  Market.AdvanceTo(10h);
  Rig.Bid(49'900, 300);
  Rig.Bid(49'900, 300);
  EXPECT_EQ(Market.Change(1, 49'910, 300).Rejection, TRej::PriceOffTick);
  EXPECT_EQ(Market.Change(1, 49'950, 150).Rejection, TRej::QuantityNotInLots);
  EXPECT_EQ(Market.Change(3, 49'950, 100).Rejection, TRej::UnknownOrder);
  EXPECT_EQ(Market.Book().Front(TSide::Bid)->Id, 1u);
  EXPECT_EQ(Market.Book().Front(TSide::Bid)->Quantity, 300);
}

TEST_F(TInstrumentMarketTest, CancellingWorksWhereThePhaseAllows) {
  Market.AdvanceTo(9h);
  Rig.Bid(50'000, 100);
  EXPECT_EQ(Market.Cancel(1), TRej::None);
  EXPECT_EQ(Market.Cancel(1), TRej::UnknownOrder);
  Rig.Bid(50'000, 100);
  Market.AdvanceTo(9h + 15min);
  EXPECT_EQ(Market.Cancel(2), TRej::PhaseRefuses);
  EXPECT_EQ(Market.Change(2, 50'000, 200).Rejection, TRej::PhaseRefuses);
  Market.AdvanceTo(9h + 25min);
  EXPECT_EQ(Market.Cancel(2), TRej::PhaseRefuses);
  Market.AdvanceTo(12h + 30min);
  EXPECT_EQ(Market.Change(2, 50'000, 200).Rejection, TRej::PhaseRefuses);
  EXPECT_EQ(Market.Cancel(2), TRej::None);
}

// --- nominal price ---

TEST_F(TInstrumentMarketTest, NominalPriceIsTheLastUnlessTheBookHasMovedPastIt) {
  Market.AdvanceTo(10h);
  EXPECT_EQ(Market.NominalPrice(), 50'000);
  Rig.TradeAt(50'200);
  EXPECT_EQ(Market.NominalPrice(), 50'200);
  Rig.Bid(50'100, 100);
  Rig.Ask(50'400, 100);
  EXPECT_EQ(Market.NominalPrice(), 50'200);
  Rig.Bid(50'300, 100);
  EXPECT_EQ(Market.NominalPrice(), 50'300);
  Market.Cancel(Rig.LastId);
  Rig.Ask(50'150, 100);
  EXPECT_EQ(Market.NominalPrice(), 50'150);
  Market.AdvanceTo(12h + 30min);
  EXPECT_EQ(Market.NominalPrice(), 50'150);
}

TEST_F(TInstrumentMarketTest, NominalPriceTakesNoNoticeOfABookThatIsNotPublished) {
  Market.AdvanceTo(9h);
  Rig.Bid(51'000, 100);
  Rig.Ask(52'000, 100);
  EXPECT_EQ(Market.NominalPrice(), 50'000);
  Market.AdvanceTo(9h + 25min);
  EXPECT_EQ(Market.NominalPrice(), 50'000);
  Market.AdvanceTo(9h + 30min);
  EXPECT_EQ(Market.NominalPrice(), 51'000);
}

TEST_F(TInstrumentMarketTest, TimeDoesNotGoBack) {
  Market.AdvanceTo(10h);
  Market.AdvanceTo(9h);
  EXPECT_EQ(Market.Now(), 10h);
  EXPECT_EQ(Market.Phase(), TPhase::Morning);
}

} // namespace
} // namespace Market
