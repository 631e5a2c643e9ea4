#include "market/LiquidityProvider.h"
#include "market/MarketRig.h"

#include <gtest/gtest.h>

namespace Market {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::year_month_day Today = 2026y / 3 / 16;
constexpr std::chrono::year_month_day NextYear = 2027y / 3 / 16;

TTerms Warrant(TRight right) {
  return {.Underlying = "1",
          .Right = right,
          .Strike = 100,
          .UnitsPerUnderlying = 10,
          .Expiry = NextYear,
          .Volatility = 0.2};
}

TTerms Contract(TRight right, double strike, TPrice callLevel) {
  return {.Underlying = "1",
          .Right = right,
          .Strike = strike,
          .UnitsPerUnderlying = 100,
          .Expiry = NextYear,
          .CallLevel = callLevel,
          .Category = 'R'};
}

// At 100 with a strike of 100, a year, 20 % and 3 % interest: d1 = 0.25, d2 = 0.05, N(d1) =
// 0.598706, N(d2) = 0.519939, discounted strike 97.044553: 59.8706 - 50.4572 = 9.4134.
TEST(StructuredFairValue, OfAWarrantIsBlackAndScholes) {
  EXPECT_NEAR(FairValue(Warrant(TRight::Call), 100, Today), 941.34, 0.01);
  EXPECT_NEAR(FairValue(Warrant(TRight::Put), 100, Today), 645.80, 0.01);
}

TEST(StructuredFairValue, OfAWarrantAtExpiryIsWhatItIsExercisedFor) {
  EXPECT_NEAR(FairValue(Warrant(TRight::Call), 103, NextYear), 300, 1e-9);
  EXPECT_EQ(FairValue(Warrant(TRight::Put), 103, NextYear), 0);
  EXPECT_NEAR(FairValue(Warrant(TRight::Put), 95, 2028y / 1 / 1), 500, 1e-9);
}

TEST(StructuredFairValue, OfAContractIsTheDistanceFromTheStrikePlusFunding) {
  // (110 - 100 + 4.5 % of 100) / 100 and (120 - 110 + 4.5 % of 120) / 100.
  EXPECT_NEAR(FairValue(Contract(TRight::Call, 100, 102'000), 110, Today), 145, 1e-9);
  EXPECT_NEAR(FairValue(Contract(TRight::Put, 120, 118'000), 110, Today), 154, 1e-9);
  EXPECT_EQ(FairValue(Contract(TRight::Call, 100, 102'000), 90, Today), 0);
}

TEST(StructuredFairValue, OfAContractNearItsCallHoldsLessFunding) {
  // A call level of 108.9, 1 % from the spot price: a quarter of the funding is left.
  EXPECT_NEAR(FairValue(Contract(TRight::Call, 100, 108'900), 110, Today), 111.25, 1e-9);
  EXPECT_NEAR(FairValue(Contract(TRight::Call, 100, 110'000), 110, Today), 100, 1e-9);
}

TEST(MandatoryCall, ComesWhenTheUnderlyingTouchesTheCallLevel) {
  const TTerms bull = Contract(TRight::Call, 100, 102'000);
  const TTerms bear = Contract(TRight::Put, 120, 118'000);
  TDayFigures figures;
  EXPECT_FALSE(IsCalled(bull, figures));
  figures.Low = 102'050;
  figures.High = 117'950;
  EXPECT_FALSE(IsCalled(bull, figures));
  EXPECT_FALSE(IsCalled(bear, figures));
  figures.Low = 102'000;
  EXPECT_TRUE(IsCalled(bull, figures));
  EXPECT_FALSE(IsCalled(bear, figures));
  figures.High = 118'000;
  EXPECT_TRUE(IsCalled(bear, figures));
  EXPECT_FALSE(IsCalled(Warrant(TRight::Call), figures));
}

/// A liquidity provider in a bull contract, or a warrant, on an underlying at 49.95 to 50.05.
struct TLiquidityProviderTest : testing::Test {
  TLiquidityProviderTest() : Contracts(Product(TInstrumentKind::CallableContract)) { Start(); }

  static TInstrument Product(TInstrumentKind kind) {
    TInstrument instrument;
    instrument.Symbol = "50001";
    instrument.Kind = kind;
    instrument.BoardLot = 10'000;
    instrument.Terms = TTerms{.Underlying = "1",
                              .Right = TRight::Call,
                              .Strike = 40,
                              .UnitsPerUnderlying = 100,
                              .Expiry = Today,
                              .Provider = 9711};
    if (kind == TInstrumentKind::CallableContract)
      instrument.Terms->CallLevel = 42'000;
    return instrument;
  }

  void Start() {
    Underlying.Market.AdvanceTo(9h + 31min);
    Underlying.Bid(49'950, 1000);
    Underlying.Ask(50'050, 1000);
    Product_.emplace(TInstrumentSettings{.Symbol = "50001",
                                         .BoardLot = 10'000,
                                         .PreviousClose = 100,
                                         .HasOpeningAuction = false},
                     Underlying.Grid, Underlying.Day, Ears);
    Provider.emplace(Contracts, Today, Underlying.Day, TRandom(1, 1));
  }

  TInstrumentMarket& Market() { return *Product_; }
  const TOrderBook& Book() { return Market().Book(); }

  /// Lets the provider look once.
  void Look() {
    ASSERT_TRUE(Provider->Due());
    Market().AdvanceTo(*Provider->Due());
    Provider->Act(Market(), Underlying.Market, [this] { return ++LastId; });
  }
  void MoveUnderlying(TPrice bid, TPrice ask) {
    Underlying.Market.Enter({900, TSide::Bid, TOrderKind::Limit, bid, 5000, 1});
    Underlying.Market.Enter({901, TSide::Ask, TOrderKind::Limit, ask, 5000, 1});
  }
  std::array<TOrderId, 2> Best() {
    return {Book().Front(TSide::Bid)->Id, Book().Front(TSide::Ask)->Id};
  }

  TMarketRig Underlying;
  TMarketEars Ears;
  TInstrument Contracts;
  std::optional<TInstrumentMarket> Product_;
  std::optional<TLiquidityProvider> Provider;
  TOrderId LastId = 1000;
};

TEST_F(TLiquidityProviderTest, QuotesBothSidesOfTheFairValue) {
  Look();
  EXPECT_NEAR(Provider->Fair(), 100, 1e-9); // (50 - 40) / 100
  EXPECT_EQ(Book().BestPrice(TSide::Bid), 99);
  EXPECT_EQ(Book().BestPrice(TSide::Ask), 101);
  EXPECT_EQ(Provider->Width(), 2);
}

TEST_F(TLiquidityProviderTest, QuotesLargeLotsUnderItsOwnNumberTheLargestAtTheBest) {
  Look();
  for (const TSide side : {TSide::Bid, TSide::Ask}) {
    std::array<TBookLevel, 10> levels;
    ASSERT_EQ(Book().ReadLevels(side, levels), std::size_t(TLiquidityProvider::Levels));
    EXPECT_GE(levels[0].Quantity, 60 * 10'000);
    EXPECT_LT(levels[0].Quantity, 120 * 10'000);
    EXPECT_GT(levels[0].Quantity, levels[4].Quantity);
    Book().VisitOrders(side, [](const TBookOrder& order, int) {
      EXPECT_EQ(order.Broker, 9711);
      EXPECT_EQ(order.Quantity % 10'000, 0);
      return true;
    });
  }
}

TEST_F(TLiquidityProviderTest, QuotesAWarrantThreeTicksWide) {
  Contracts = Product(TInstrumentKind::Warrant);
  Provider.emplace(Contracts, Today, Underlying.Day, TRandom(1, 1));
  Look();
  EXPECT_EQ(Provider->Width(), 3);
  EXPECT_EQ(*Book().BestPrice(TSide::Ask) - *Book().BestPrice(TSide::Bid), 3);
  EXPECT_LT(*Book().BestPrice(TSide::Bid), 100);
  EXPECT_GT(*Book().BestPrice(TSide::Ask), 100);
}

TEST_F(TLiquidityProviderTest, LeavesItsQuotesWhileTheFairValueStays) {
  Look();
  const auto before = Best();
  Look();
  EXPECT_EQ(Best(), before);
}

TEST_F(TLiquidityProviderTest, MovesItsQuotesWithTheFairValue) {
  Look();
  const TOrderId third = [&] {
    TOrderId id = 0;
    Book().VisitOrders(TSide::Ask, [&](const TBookOrder& order, int ticks) {
      id = ticks == 2 ? order.Id : id;
      return true;
    });
    return id;
  }();
  MoveUnderlying(50'100, 50'300); // takes the ask of 50.05
  Look();
  EXPECT_NEAR(Provider->Fair(), 102, 1e-9);
  EXPECT_EQ(Book().BestPrice(TSide::Bid), 101);
  EXPECT_EQ(Book().BestPrice(TSide::Ask), 103);
  EXPECT_EQ(Book().Front(TSide::Ask)->Id, third); // kept its place in the queue
  EXPECT_TRUE(Ears.Trades.empty());
}

TEST_F(TLiquidityProviderTest, FillsUpAQuoteOfWhichLittleIsLeft) {
  Look();
  const TQuantity whole = Book().LevelAt(TSide::Ask, 101).Quantity;
  Market().Enter({1, TSide::Bid, TOrderKind::Limit, 101, whole - 10'000, 2});
  ASSERT_EQ(Book().LevelAt(TSide::Ask, 101).Quantity, 10'000);
  Look();
  EXPECT_EQ(Book().LevelAt(TSide::Ask, 101).Quantity, whole);
  Market().Enter({2, TSide::Bid, TOrderKind::Limit, 101, whole, 2});
  ASSERT_EQ(Book().BestPrice(TSide::Ask), 102);
  Look();
  EXPECT_EQ(Book().LevelAt(TSide::Ask, 101).Quantity, whole);
}

TEST_F(TLiquidityProviderTest, ReachesOverOthersNoFurtherThanTheExchangeAccepts) {
  Market().AdvanceTo(9h + 30min);
  Market().Enter({1, TSide::Ask, TOrderKind::Limit, 80, 10'000, 2});
  Look();
  ASSERT_EQ(Ears.Trades.size(), 1U);
  EXPECT_EQ(Ears.Trades[0].Price, 80);
  EXPECT_GT(Book().LevelAt(TSide::Bid, 89).Quantity, 0); // nine ticks beyond 80
  EXPECT_EQ(Book().LevelAt(TSide::Bid, 99).Quantity, 0);
  Look();
  EXPECT_EQ(Book().BestPrice(TSide::Bid), 99);
}

TEST_F(TLiquidityProviderTest, WithdrawsWhileTheUnderlyingHasNoTwoPrices) {
  Look();
  ASSERT_EQ(Underlying.Market.Cancel(1), TRejection::None);
  Look();
  EXPECT_EQ(Book().OrderCount(), 0U);
  EXPECT_EQ(Provider->Fair(), 0);
  EXPECT_TRUE(Provider->Due());
}

TEST_F(TLiquidityProviderTest, LooksOnlyInContinuousTrading) {
  EXPECT_EQ(*Provider->Due(), TTimeOfDay(9h + 30min));
  while (*Provider->Due() < TTimeOfDay(12h))
    Look();
  EXPECT_EQ(*Provider->Due(), TTimeOfDay(13h));
  while (Provider->Due())
    Look();
  EXPECT_GE(Market().Now(), TTimeOfDay(15h + 59min));
  EXPECT_LT(Market().Now(), TTimeOfDay(16h));
}

} // namespace
} // namespace Market
