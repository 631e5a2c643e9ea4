#include "market/MarketRig.h"

#include <gtest/gtest.h>

namespace Market {

namespace {

using namespace std::chrono_literals;
using TRej = TRejection;

struct TInstrumentAuctionTest : testing::Test {
  TMarketRig Rig;
  TInstrumentMarket& Market = Rig.Market;
  std::vector<TMatch>& Trades = Rig.Ears.Trades;
};

// --- the opening auction ---

TEST_F(TInstrumentAuctionTest, NoOrdersAreTakenOutsideThePhasesForThem) {
  for (const TTimeOfDay time : {TTimeOfDay(8h), TTimeOfDay(9h + 25min), TTimeOfDay(12h),
                                TTimeOfDay(16h), TTimeOfDay(16h + 11min)}) {
    Market.AdvanceTo(time);
    EXPECT_EQ(Rig.Bid(50'000, 100).Rejection, TRej::PhaseRefuses) << Text::TimeOfDayText(time);
  }
}

TEST_F(TInstrumentAuctionTest, OpeningOrdersLieWithinFifteenPerCentOfThePreviousClose) {
  Market.AdvanceTo(9h);
  EXPECT_EQ(Market.ReferencePrice(), 50'000);
  EXPECT_EQ(Market.AuctionLimits(), (TPriceLimits{42'500, 57'500}));
  EXPECT_EQ(Rig.Bid(57'550, 100).Rejection, TRej::OutsideLimits);
  EXPECT_EQ(Rig.Ask(42'450, 100).Rejection, TRej::OutsideLimits);
  EXPECT_EQ(Rig.Bid(57'500, 100).Rejection, TRej::None);
  EXPECT_EQ(Rig.Ask(42'500, 100).Rejection, TRej::None);
}

TEST_F(TInstrumentAuctionTest, LaterOpeningOrdersLieBetweenLowestAskAndHighestBid) {
  Market.AdvanceTo(9h);
  Rig.Bid(50'500, 100);
  Rig.Bid(49'000, 100);
  Rig.Ask(49'500, 100);
  Rig.Ask(52'000, 100);
  Market.AdvanceTo(9h + 15min);
  EXPECT_EQ(Market.AuctionLimits(), (TPriceLimits{49'500, 50'500}));
  EXPECT_EQ(Rig.Bid(50'550, 100).Rejection, TRej::OutsideLimits);
  EXPECT_EQ(Rig.Ask(49'450, 100).Rejection, TRej::OutsideLimits);
  EXPECT_EQ(Rig.Bid(50'500, 100).Rejection, TRej::None);
}

TEST_F(TInstrumentAuctionTest, LaterLimitsOfABookThatIsNotCrossedRunFromBidToAsk) {
  Market.AdvanceTo(9h);
  Rig.Bid(49'000, 100);
  Rig.Ask(50'500, 100);
  Market.AdvanceTo(9h + 15min);
  EXPECT_EQ(Market.AuctionLimits(), (TPriceLimits{49'000, 50'500}));
}

TEST_F(TInstrumentAuctionTest, WithoutAskTheLowerLimitStaysAndWithoutBidTheUpper) {
  Market.AdvanceTo(9h);
  Rig.Bid(49'000, 100);
  Market.AdvanceTo(9h + 15min);
  EXPECT_EQ(Market.AuctionLimits(), (TPriceLimits{42'500, 49'000}));

  TMarketRig other;
  other.Market.AdvanceTo(9h);
  other.Ask(49'000, 100);
  other.Market.AdvanceTo(9h + 15min);
  EXPECT_EQ(other.Market.AuctionLimits(), (TPriceLimits{49'000, 57'500}));
}

TEST_F(TInstrumentAuctionTest, OpeningAuctionMatchesAtItsRandomMomentAndTheRestOpensTheMorning) {
  Market.AdvanceTo(9h);
  Rig.Bid(50'500, 300, 1111);
  Rig.Bid(49'000, 100);
  Rig.Ask(50'000, 500, 2222);
  EXPECT_EQ(Market.Equilibrium(), (TEquilibrium{50'000, 300, TImbalance::SellSurplus, 200}));
  EXPECT_EQ(Market.NominalPrice(), 50'000);
  const TTimeOfDay matching = Rig.Day.SpanOf(TPhase::OpeningMatching).End;
  Market.AdvanceTo(matching - 1us);
  EXPECT_TRUE(Trades.empty());
  Market.AdvanceTo(9h + 25min);
  ASSERT_EQ(Trades.size(), 1u);
  EXPECT_EQ(Trades[0].Time, matching);
  EXPECT_EQ(Trades[0].Price, 50'000);
  EXPECT_EQ(Trades[0].Quantity, 300);
  EXPECT_EQ(Trades[0].Buyer, 1111);
  EXPECT_EQ(Trades[0].Seller, 2222);
  EXPECT_EQ(Trades[0].Aggressor, std::nullopt);
  EXPECT_EQ(Market.Equilibrium(), std::nullopt);
  EXPECT_EQ(Market.AuctionLimits(), std::nullopt);
  EXPECT_EQ(Market.Figures().Open, 50'000);
  Market.AdvanceTo(9h + 30min);
  EXPECT_EQ(Market.Book().LevelAt(TSide::Ask, 50'000), (TBookLevel{50'000, 200, 1}));
  EXPECT_EQ(Market.Book().LevelAt(TSide::Bid, 49'000), (TBookLevel{49'000, 100, 1}));
  EXPECT_TRUE(Rig.Ears.LapsedOrders.empty());
}

TEST_F(TInstrumentAuctionTest, AtAuctionOrdersTradeFirstInTheOpeningAndLapseAfterIt) {
  Market.AdvanceTo(9h);
  Rig.Ask(50'000, 300);
  Rig.Bid(50'100, 200);
  Rig.AtMarket(TSide::Bid, 500);
  Rig.AtMarket(TSide::Ask, 100);
  EXPECT_EQ(Rig.AtMarket(TSide::Ask, 50).Rejection, TRej::QuantityNotInLots);
  Market.AdvanceTo(9h + 15min);
  EXPECT_EQ(Market.AuctionLimits(), (TPriceLimits{50'000, 50'100}));
  Market.AdvanceTo(9h + 30min);
  ASSERT_EQ(Trades.size(), 2u);
  for (const TMatch& trade : Trades) {
    EXPECT_EQ(trade.BuyOrder, 3u);
    EXPECT_EQ(trade.Price, 50'100);
  }
  EXPECT_EQ(Trades[0].SellOrder, 4u);
  EXPECT_EQ(Trades[0].Quantity, 100);
  EXPECT_EQ(Trades[1].SellOrder, 1u);
  EXPECT_EQ(Trades[1].Quantity, 300);
  ASSERT_EQ(Rig.Ears.LapsedOrders.size(), 1u);
  EXPECT_EQ(Rig.Ears.LapsedOrders[0].Id, 3u);
  EXPECT_EQ(Rig.Ears.LapsedOrders[0].Quantity, 100);
  EXPECT_EQ(Market.Book().BestPrice(TSide::Bid), 50'100);
}

TEST_F(TInstrumentAuctionTest, AtAuctionOrdersAloneMakeNoOpeningPrice) {
  Market.AdvanceTo(9h);
  Rig.AtMarket(TSide::Bid, 400);
  Rig.AtMarket(TSide::Ask, 400);
  EXPECT_EQ(Market.Equilibrium(), std::nullopt);
  Market.AdvanceTo(9h + 30min);
  EXPECT_TRUE(Trades.empty());
  EXPECT_EQ(Rig.Ears.LapsedOrders.size(), 2u);
}

TEST_F(TInstrumentAuctionTest, OrdersInAnAuctionOnlyGather) {
  Market.AdvanceTo(9h);
  Rig.Bid(50'500, 300);
  EXPECT_EQ(Rig.Ask(50'000, 300).Open, 300);
  EXPECT_TRUE(Trades.empty());
}

TEST_F(TInstrumentAuctionTest, AChangeInAnAuctionGathersToo) {
  Market.AdvanceTo(9h);
  Rig.Bid(49'500, 300);
  Rig.Ask(50'000, 300);
  EXPECT_EQ(Market.Change(1, 50'500, 400).Open, 400);
  EXPECT_EQ(Market.Change(1, 60'000, 400).Rejection, TRej::OutsideLimits);
  EXPECT_EQ(Market.Equilibrium()->Volume, 300);
}

TEST(MarketInstrumentNew, WithoutAPreviousCloseTheOpeningHasNoLimits) {
  TInstrumentSettings settings = TMarketRig::Usual();
  settings.PreviousClose.reset();
  TMarketRig rig(settings);
  rig.Market.AdvanceTo(9h);
  EXPECT_EQ(rig.Market.AuctionLimits(), std::nullopt);
  EXPECT_EQ(rig.Market.NominalPrice(), std::nullopt);
  EXPECT_EQ(rig.Bid(90'000, 100).Rejection, TRej::None);
  rig.Market.AdvanceTo(9h + 15min);
  EXPECT_EQ(rig.Market.AuctionLimits(), std::nullopt);
}

TEST(MarketInstrumentPlain, WithoutAuctionsItIsClosedWhileOthersHaveThem) {
  TInstrumentSettings settings = TMarketRig::Usual();
  settings.HasOpeningAuction = settings.HasClosingAuction = false;
  TMarketRig rig(settings);
  rig.Market.AdvanceTo(9h + 5min);
  EXPECT_EQ(rig.Market.Phase(), TPhase::Closed);
  EXPECT_EQ(rig.Bid(50'000, 100).Rejection, TRej::PhaseRefuses);
  rig.Market.AdvanceTo(9h + 30min);
  EXPECT_EQ(rig.Market.Phase(), TPhase::Morning);
  rig.Bid(49'900, 100);
  rig.Market.AdvanceTo(16h - 1us);
  EXPECT_TRUE(rig.Ears.LapsedOrders.empty());
  rig.Market.AdvanceTo(16h);
  EXPECT_EQ(rig.Market.Phase(), TPhase::Closed);
  ASSERT_EQ(rig.Ears.LapsedOrders.size(), 1u);
  EXPECT_EQ(rig.Market.Book().OrderCount(), 0u);
  EXPECT_EQ(rig.Market.ClosingPrice(), 50'000);
}

// --- the close ---

struct TClosingTest : TInstrumentAuctionTest {
  /// Nominal prices 50.00, 50.10, 50.20, 50.00, 50.00 in the last minute: the median is 50.00.
  TClosingTest() {
    Market.AdvanceTo(15h + 58min);
    Rig.TradeAt(50'000);
    Market.AdvanceTo(15h + 59min + 15s - 1us);
    Rig.TradeAt(50'100);
    Market.AdvanceTo(15h + 59min + 20s);
    Rig.TradeAt(50'200);
    Market.AdvanceTo(15h + 59min + 31s);
    Rig.TradeAt(50'000);
  }
};

TEST_F(TClosingTest, ReferenceIsTheMedianOfTheLastMinutesNominalPrices) {
  EXPECT_EQ(Market.ReferencePrice(), std::nullopt);
  Rig.Bid(47'500, 100);
  Market.AdvanceTo(16h);
  EXPECT_EQ(Market.Phase(), TPhase::ReferenceFixing);
  EXPECT_EQ(Market.ReferencePrice(), 50'000);
  EXPECT_EQ(Market.NominalPrice(), 50'000);
  EXPECT_EQ(Market.AuctionLimits(), std::nullopt);
  Market.AdvanceTo(16h + 1min);
  EXPECT_EQ(Market.AuctionLimits(), (TPriceLimits{47'500, 52'500}));
}

TEST_F(TClosingTest, LastNominalPriceIsTakenAtTheVeryEnd) {
  Market.AdvanceTo(15h + 59min + 44s);
  Rig.TradeAt(50'300);
  Market.AdvanceTo(15h + 59min + 59s);
  Rig.Bid(50'400, 100); // 50.00 50.10 50.20 50.30 50.40
  Market.AdvanceTo(16h);
  EXPECT_EQ(Market.ReferencePrice(), 50'200);
}

TEST_F(TClosingTest, OrdersOfTheDayWithinFivePerCentGoOnIntoTheAuction) {
  Rig.Bid(47'500, 100);
  Rig.Bid(47'450, 200);
  Rig.Ask(52'500, 300);
  Rig.Ask(52'550, 400);
  Market.AdvanceTo(16h + 1min - 1us);
  EXPECT_EQ(Market.Book().OrderCount(), 4u);
  Market.AdvanceTo(16h + 1min);
  ASSERT_EQ(Rig.Ears.LapsedOrders.size(), 2u);
  EXPECT_EQ(Rig.Ears.LapsedOrders[0].Price, 47'450);
  EXPECT_EQ(Rig.Ears.LapsedOrders[0].Quantity, 200);
  EXPECT_EQ(Rig.Ears.LapsedOrders[1].Price, 52'550);
  EXPECT_EQ(Market.Book().BestPrice(TSide::Bid), 47'500);
  EXPECT_EQ(Market.Book().BestPrice(TSide::Ask), 52'500);
}

TEST_F(TClosingTest, ClosingAuctionMatchesAtItsRandomMomentAndEmptiesTheBook) {
  Market.AdvanceTo(16h + 2min);
  Rig.Bid(50'100, 500);
  Rig.Ask(49'900, 300);
  EXPECT_EQ(Rig.Bid(52'550, 100).Rejection, TRej::OutsideLimits);
  Market.AdvanceTo(16h + 6min);
  EXPECT_EQ(Market.AuctionLimits(), (TPriceLimits{49'900, 50'100}));
  EXPECT_EQ(Market.Cancel(Rig.LastId), TRej::PhaseRefuses);
  const std::size_t before = Trades.size();
  const TTimeOfDay matching = Rig.Day.SpanOf(TPhase::ClosingMatching).End;
  Market.AdvanceTo(matching - 1us);
  EXPECT_EQ(Trades.size(), before);
  EXPECT_EQ(Market.ClosingPrice(), std::nullopt);
  Market.AdvanceTo(17h);
  ASSERT_EQ(Trades.size(), before + 1);
  EXPECT_EQ(Trades.back().Time, matching);
  EXPECT_EQ(Trades.back().Price, 50'100);
  EXPECT_EQ(Trades.back().Quantity, 300);
  EXPECT_EQ(Market.ClosingPrice(), 50'100);
  EXPECT_EQ(Market.NominalPrice(), 50'100);
  EXPECT_EQ(Market.Book().OrderCount(), 0u);
  ASSERT_EQ(Rig.Ears.LapsedOrders.size(), 1u);
  EXPECT_EQ(Rig.Ears.LapsedOrders[0].Quantity, 200);
}

TEST_F(TClosingTest, WithoutAnEquilibriumTheReferenceIsTheClosingPrice) {
  Rig.Ask(50'400, 100);
  Market.AdvanceTo(17h);
  EXPECT_EQ(Market.ClosingPrice(), 50'000);
  EXPECT_EQ(Market.AuctionLimits(), std::nullopt);
}

TEST_F(TClosingTest, WithoutAnEquilibriumAtAuctionOrdersTradeAtTheReference) {
  Market.AdvanceTo(16h + 2min);
  Rig.Ask(49'900, 100);
  Rig.Ask(50'100, 100);
  Rig.AtMarket(TSide::Bid, 300);
  EXPECT_EQ(Market.Equilibrium(), std::nullopt);
  const std::size_t before = Trades.size();
  Market.AdvanceTo(17h);
  ASSERT_EQ(Trades.size(), before + 1);
  EXPECT_EQ(Trades.back().Price, 50'000);
  EXPECT_EQ(Trades.back().Quantity, 100);
  EXPECT_EQ(Market.ClosingPrice(), 50'000);
}

} // namespace
} // namespace Market
