#include "market/Auction.h"
#include "market/MarketRig.h"

#include <gtest/gtest.h>

#include <map>

namespace Market {

namespace {

struct TAuctionTest : testing::Test {
  void Bid(TPrice price, TQuantity quantity) { Add(TSide::Bid, price, quantity); }
  void Ask(TPrice price, TQuantity quantity) { Add(TSide::Ask, price, quantity); }
  void Add(TSide side, TPrice price, TQuantity quantity) {
    Book.Add(Order(++LastId, side, price, quantity));
  }

  void AtAuction(TSide side, TQuantity quantity) {
    const TPrice price = Grid.PriceAt(side == TSide::Bid ? Grid.Count() - 1 : 0);
    Book.Add({++LastId, side, price, quantity, 0, {}, TOrderKind::Market});
  }

  TTickGrid Grid = ShareGrid();
  TOrderBook Book{Grid};
  TOrderId LastId = 0;
};

using TAt = TEquilibrium;

TEST_F(TAuctionTest, ThereIsNoEquilibriumUnlessTheBookIsCrossed) {
  EXPECT_EQ(FindEquilibrium(Book, 50'000), std::nullopt);
  Bid(49'950, 100);
  EXPECT_EQ(FindEquilibrium(Book, 50'000), std::nullopt);
  Ask(50'000, 100);
  EXPECT_EQ(FindEquilibrium(Book, 50'000), std::nullopt);
  Bid(50'000, 100);
  EXPECT_EQ(FindEquilibrium(Book, 50'000), (TAt{50'000, 100, TImbalance::None, 0}));
}

TEST_F(TAuctionTest, ThePriceWithMostTradedWins) {
  Bid(50'100, 300); //  bid 300, asked 1500: 300
  Bid(50'050, 800); //  bid 1100, asked 900: 900
  Bid(50'000, 600); //  bid 1700, asked 500: 500
  Ask(50'000, 500);
  Ask(50'050, 400);
  Ask(50'100, 600);
  EXPECT_EQ(FindEquilibrium(Book, 50'000), (TAt{50'050, 900, TImbalance::BuySurplus, 200}));
}

TEST_F(TAuctionTest, OfTheSameVolumeTheSmallestImbalanceWins) {
  Bid(50'200, 500); // at 50.20: bid 500, asked 700; at 50.10 and 50.00: asked 500
  Bid(50'000, 100); // at 50.00: bid 600
  Ask(50'000, 500);
  Ask(50'200, 200);
  Bid(49'000, 100);
  EXPECT_EQ(FindEquilibrium(Book, 50'200), (TAt{50'000, 500, TImbalance::BuySurplus, 100}));
}

TEST_F(TAuctionTest, WithBuyersLeftOverAtEachTheHighestWins) {
  Bid(50'300, 900);
  Ask(50'000, 500);
  EXPECT_EQ(FindEquilibrium(Book, 49'000), (TAt{50'300, 500, TImbalance::BuySurplus, 400}));
}

TEST_F(TAuctionTest, WithSellersLeftOverAtEachTheLowestWins) {
  Bid(50'300, 500);
  Ask(50'000, 900);
  EXPECT_EQ(FindEquilibrium(Book, 51'000), (TAt{50'000, 500, TImbalance::SellSurplus, 400}));
}

TEST_F(TAuctionTest, WithoutPressureTheClosestToTheReferenceWinsAndOfTwoTheHigher) {
  Bid(50'300, 500);
  Ask(50'000, 500);
  EXPECT_EQ(FindEquilibrium(Book, 50'100)->Price, 50'000);
  EXPECT_EQ(FindEquilibrium(Book, 50'200)->Price, 50'300);
  EXPECT_EQ(FindEquilibrium(Book, 50'150)->Price, 50'300);
  EXPECT_EQ(FindEquilibrium(Book, 40'000)->Price, 50'000);
  EXPECT_EQ(FindEquilibrium(Book, std::nullopt)->Price, 50'300);
}

TEST_F(TAuctionTest, PressureOnEitherSideOfTheTiedPricesIsNoPressure) {
  Bid(50'300, 500); // at 50.30: bid 500, asked 600
  Bid(50'000, 100); // at 50.00: bid 600, asked 500
  Ask(50'000, 500);
  Ask(50'300, 100);
  EXPECT_EQ(FindEquilibrium(Book, 50'100), (TAt{50'000, 500, TImbalance::BuySurplus, 100}));
  EXPECT_EQ(FindEquilibrium(Book, 50'200), (TAt{50'300, 500, TImbalance::SellSurplus, 100}));
}

TEST_F(TAuctionTest, OrdersOutsideTheCrossedPricesCountForNothing) {
  Bid(50'000, 300);
  Ask(50'000, 300);
  Bid(49'950, 9'000);
  Ask(50'050, 7'000);
  EXPECT_EQ(FindEquilibrium(Book, 60'000), (TAt{50'000, 300, TImbalance::None, 0}));
}

TEST_F(TAuctionTest, AtAuctionOrdersCountButMakeNoPrice) {
  AtAuction(TSide::Bid, 900);
  AtAuction(TSide::Ask, 100);
  EXPECT_EQ(FindEquilibrium(Book, 50'000), std::nullopt);
  Ask(50'000, 300);
  EXPECT_EQ(FindEquilibrium(Book, 50'000), std::nullopt);
  EXPECT_EQ(BestLimitPrice(Book, TSide::Ask), 50'000);
  EXPECT_EQ(BestLimitPrice(Book, TSide::Bid), std::nullopt);
  Bid(50'100, 200);
  EXPECT_EQ(BestLimitPrice(Book, TSide::Bid), 50'100);
  EXPECT_EQ(FindEquilibrium(Book, 50'000), (TAt{50'100, 400, TImbalance::BuySurplus, 700}));
}

TEST_F(TAuctionTest, AtAuctionOrdersTradeBeforeEarlierLimitOrders) {
  Bid(50'100, 500);           // 1
  Ask(50'000, 500);           // 2
  AtAuction(TSide::Bid, 300); // 3
  std::vector<TOrderId> buyers;
  Uncross(Book, FindEquilibrium(Book, 50'000)->Price,
          [&](const TBookOrder& bid, const TBookOrder&, TQuantity) { buyers.push_back(bid.Id); });
  EXPECT_EQ(buyers, (std::vector<TOrderId>{3, 1}));
  EXPECT_EQ(Book.Find(1)->Quantity, 300);
}

TEST_F(TAuctionTest, UncrossingTradesInPriceTimePriorityOnBothSides) {
  Bid(50'050, 400); // 1
  Bid(50'100, 300); // 2
  Bid(50'050, 400); // 3
  Ask(50'050, 500); // 4
  Ask(50'000, 500); // 5
  std::vector<std::array<TQuantity, 3>> trades;
  Uncross(Book, 50'050, [&](const TBookOrder& bid, const TBookOrder& ask, TQuantity quantity) {
    trades.push_back({static_cast<TQuantity>(bid.Id), static_cast<TQuantity>(ask.Id), quantity});
  });
  EXPECT_EQ(trades, (std::vector<std::array<TQuantity, 3>>{
                        {2, 5, 300}, {1, 5, 200}, {1, 4, 200}, {3, 4, 300}}));
  ASSERT_TRUE(Book.Find(3));
  EXPECT_EQ(Book.Find(3)->Quantity, 100);
  EXPECT_EQ(Book.OrderCount(), 1u);
}

/// What trades at a price, and what is left over, as the sum over all orders.
struct TTrial {
  TQuantity Bid = 0;
  TQuantity Asked = 0;
};

/// At the prices of limit orders from the lowest ask to the highest bid; none when these do not
/// cross.
std::map<TPrice, TTrial> TrialsOf(const std::vector<TBookOrder>& orders) {
  TPrice lowestAsk = 1'000'000;
  TPrice highestBid = 0;
  for (const TBookOrder& order : orders)
    if (order.Kind == TOrderKind::Limit && order.Side == TSide::Ask)
      lowestAsk = std::min(lowestAsk, order.Price);
    else if (order.Kind == TOrderKind::Limit)
      highestBid = std::max(highestBid, order.Price);
  std::map<TPrice, TTrial> trials;
  for (const TBookOrder& order : orders)
    if (order.Price >= lowestAsk && order.Price <= highestBid)
      trials[order.Price] = {};
  for (auto& [price, trial] : trials)
    for (const TBookOrder& order : orders) {
      if (order.Side == TSide::Bid && order.Price >= price)
        trial.Bid += order.Quantity;
      if (order.Side == TSide::Ask && order.Price <= price)
        trial.Asked += order.Quantity;
    }
  return trials;
}

std::vector<TBookOrder> RandomOrders(std::mt19937_64& random, const TTickGrid& grid) {
  std::vector<TBookOrder> orders;
  const int count = 1 + Below(random, 40);
  for (int n = 1; n <= count; ++n) {
    const TSide side = Below(random, 2) ? TSide::Bid : TSide::Ask;
    const TPrice price = grid.Moved(20'000, Below(random, 25) - 12);
    orders.push_back(Order(static_cast<TOrderId>(n), side, price, 100 * (1 + Below(random, 5))));
    if (Below(random, 8) == 0) {
      orders.back().Kind = TOrderKind::Market;
      orders.back().Price = side == TSide::Bid ? 100'000 : 1;
    }
  }
  return orders;
}

/// The most that trades at one price, and the least that is left over when that much does.
TTrial BestOf(const std::map<TPrice, TTrial>& trials) {
  TTrial best;
  for (const auto& [price, trial] : trials) {
    const TQuantity more = std::min(trial.Bid, trial.Asked) - std::min(best.Bid, best.Asked);
    if (more > 0 ||
        (more == 0 && std::abs(trial.Bid - trial.Asked) < std::abs(best.Bid - best.Asked)))
      best = trial;
  }
  return best;
}

TEST(MarketAuctionProperty, NoPriceTradesMoreOrLeavesLessOverAndNothingStaysCrossed) {
  const TTickGrid grid = ShareGrid();
  int crossed = 0;
  for (std::uint64_t seed = 1; seed <= 500; ++seed) {
    std::mt19937_64 random(seed);
    const auto orders = RandomOrders(random, grid);
    TOrderBook book(grid);
    for (const TBookOrder& order : orders)
      book.Add(order);
    const auto trials = TrialsOf(orders);
    const auto at = FindEquilibrium(book, 20'000);
    ASSERT_EQ(at.has_value(), !trials.empty()) << seed;
    if (!at)
      continue;
    ++crossed;
    const TTrial best = BestOf(trials);
    ASSERT_TRUE(trials.contains(at->Price)) << seed;
    ASSERT_EQ(at->Volume, std::min(best.Bid, best.Asked)) << seed;
    ASSERT_EQ(at->Surplus, std::abs(best.Bid - best.Asked)) << seed;
    TQuantity traded = 0;
    Uncross(book, at->Price, [&](const TBookOrder& bid, const TBookOrder& ask, TQuantity quantity) {
      ASSERT_GE(bid.Price, at->Price);
      ASSERT_LE(ask.Price, at->Price);
      traded += quantity;
    });
    ASSERT_EQ(traded, at->Volume) << seed;
    ASSERT_FALSE(FindEquilibrium(book, 20'000)) << seed;
  }
  EXPECT_GT(crossed, 300);
}

} // namespace
} // namespace Market
