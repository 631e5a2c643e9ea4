#include "market/MarketRig.h"
#include "market/NaiveBook.h"
#include "market/PublishedQueue.h"

#include <gtest/gtest.h>

#include <string>

namespace Market {

void PrintTo(const TNaiveFill& fill, std::ostream* out) {
  *out << fill.Quantity << " of " << fill.Resting << " at " << fill.Price;
}

namespace {

struct TBookTest : testing::Test {
  std::vector<TNaiveFill> Match(TSide side, TPrice limit, TQuantity quantity) {
    std::vector<TNaiveFill> fills;
    Left = Book.Match(side, limit, quantity, [&](const TBookOrder& resting, TQuantity filled) {
      fills.push_back({resting.Id, resting.Price, filled});
    });
    return fills;
  }
  std::vector<TBookLevel> Levels(TSide side, std::size_t most = 1000) {
    std::vector<TBookLevel> levels(most);
    levels.resize(Book.ReadLevels(side, levels));
    return levels;
  }
  std::vector<TOrderId> Ids(TSide side) {
    std::vector<TOrderId> ids;
    Book.VisitOrders(side, [&](const TBookOrder& order, int) {
      ids.push_back(order.Id);
      return true;
    });
    return ids;
  }
  /// "1234 -2 56": markers signed.
  std::string Queue(TSide side) {
    std::string text;
    for (const TQueueEntry& entry : BrokerQueueOf(Book, side)) {
      const bool isPlus = entry.Kind == TQueueEntry::TContent::Spread && entry.Number > 0;
      text +=
          (text.empty() ? "" : " ") + std::string(isPlus ? "+" : "") + std::to_string(entry.Number);
    }
    return text;
  }

  TTickGrid Grid = ShareGrid();
  TOrderBook Book{Grid};
  TQuantity Left = 0;
};

using TFills = std::vector<TNaiveFill>;
using TLevels = std::vector<TBookLevel>;
using TIds = std::vector<TOrderId>;

TEST_F(TBookTest, BestPriceFillsFirstAndThenTheLongestStanding) {
  Book.Add(Order(1, TSide::Ask, 50'100, 300));
  Book.Add(Order(2, TSide::Ask, 50'050, 200));
  Book.Add(Order(3, TSide::Ask, 50'050, 400));
  EXPECT_EQ(Match(TSide::Bid, 50'100, 700),
            (TFills{{2, 50'050, 200}, {3, 50'050, 400}, {1, 50'100, 100}}));
  EXPECT_EQ(Left, 0);
  EXPECT_EQ(Levels(TSide::Ask), (TLevels{{50'100, 200, 1}}));
}

TEST_F(TBookTest, ASellerTakesTheHighestBidsDownToItsLimit) {
  Book.Add(Order(1, TSide::Bid, 49'900, 100));
  Book.Add(Order(2, TSide::Bid, 50'000, 100));
  Book.Add(Order(3, TSide::Bid, 49'950, 100));
  EXPECT_EQ(Match(TSide::Ask, 49'950, 500), (TFills{{2, 50'000, 100}, {3, 49'950, 100}}));
  EXPECT_EQ(Left, 300);
  EXPECT_EQ(Book.BestPrice(TSide::Bid), 49'900);
}

TEST_F(TBookTest, AnEmptySideMatchesNothing) {
  Book.Add(Order(1, TSide::Bid, 50'000, 100));
  EXPECT_EQ(Match(TSide::Bid, 60'000, 100), TFills{});
  EXPECT_EQ(Left, 100);
  EXPECT_EQ(Book.BestPrice(TSide::Ask), std::nullopt);
  EXPECT_EQ(Book.Front(TSide::Ask), nullptr);
  EXPECT_FALSE(Book.Crosses(TSide::Bid, 60'000));
  EXPECT_TRUE(Book.Crosses(TSide::Ask, 50'000));
  EXPECT_FALSE(Book.Crosses(TSide::Ask, 50'050));
}

TEST_F(TBookTest, AFilledOrderIsToldWithNothingLeft) {
  Book.Add(Order(1, TSide::Ask, 50'000, 200, 1234));
  TBookOrder told;
  Book.Match(TSide::Bid, 50'000, 200,
             [&](const TBookOrder& resting, TQuantity) { told = resting; });
  EXPECT_EQ(told.Id, 1u);
  EXPECT_EQ(told.Broker, 1234);
  EXPECT_EQ(told.Quantity, 0);
  EXPECT_EQ(Book.Find(1), nullptr);
  EXPECT_EQ(Book.OrderCount(), 0u);
}

TEST_F(TBookTest, CancellingLeavesTheOthersInTheirOrder) {
  for (TOrderId id = 1; id <= 4; ++id)
    Book.Add(Order(id, TSide::Bid, 50'000, 100 * static_cast<TQuantity>(id)));
  const auto cancelled = Book.Cancel(2);
  ASSERT_TRUE(cancelled);
  EXPECT_EQ(cancelled->Quantity, 200);
  EXPECT_EQ(Ids(TSide::Bid), (TIds{1, 3, 4}));
  Book.Cancel(4);
  Book.Add(Order(5, TSide::Bid, 50'000, 500));
  Book.Cancel(1);
  EXPECT_EQ(Ids(TSide::Bid), (TIds{3, 5}));
  EXPECT_EQ(Levels(TSide::Bid), (TLevels{{50'000, 800, 2}}));
}

TEST_F(TBookTest, CancellingWhatIsNotThereDoesNothing) {
  Book.Add(Order(1, TSide::Bid, 50'000, 100));
  EXPECT_FALSE(Book.Cancel(2));
  EXPECT_TRUE(Book.Cancel(1));
  EXPECT_FALSE(Book.Cancel(1));
  EXPECT_EQ(Levels(TSide::Bid), TLevels{});
}

TEST_F(TBookTest, AReducedOrderKeepsItsPlace) {
  Book.Add(Order(1, TSide::Ask, 50'000, 500));
  Book.Add(Order(2, TSide::Ask, 50'000, 500));
  EXPECT_TRUE(Book.Reduce(1, 100));
  EXPECT_FALSE(Book.Reduce(1, 100));
  EXPECT_FALSE(Book.Reduce(2, 600));
  EXPECT_FALSE(Book.Reduce(3, 100));
  EXPECT_EQ(Levels(TSide::Ask), (TLevels{{50'000, 600, 2}}));
  EXPECT_EQ(Match(TSide::Bid, 50'000, 200), (TFills{{1, 50'000, 100}, {2, 50'000, 100}}));
}

TEST_F(TBookTest, LevelsAreReadFromTheBestAsFarAsAsked) {
  Book.Add(Order(1, TSide::Bid, 9'990, 100));
  Book.Add(Order(2, TSide::Bid, 20'000, 100));
  Book.Add(Order(3, TSide::Bid, 50'000, 100));
  Book.Add(Order(4, TSide::Bid, 50'000, 200));
  EXPECT_EQ(Levels(TSide::Bid), (TLevels{{50'000, 300, 2}, {20'000, 100, 1}, {9'990, 100, 1}}));
  EXPECT_EQ(Levels(TSide::Bid, 2), (TLevels{{50'000, 300, 2}, {20'000, 100, 1}}));
  EXPECT_EQ(Book.LevelAt(TSide::Bid, 20'000), (TBookLevel{20'000, 100, 1}));
  EXPECT_EQ(Book.LevelAt(TSide::Ask, 20'000), (TBookLevel{20'000, 0, 0}));
}

TEST_F(TBookTest, BothSidesMayStandAtOnePriceInAnAuction) {
  Book.Add(Order(1, TSide::Bid, 50'000, 100));
  Book.Add(Order(2, TSide::Ask, 50'000, 300));
  EXPECT_EQ(Levels(TSide::Bid), (TLevels{{50'000, 100, 1}}));
  EXPECT_EQ(Levels(TSide::Ask), (TLevels{{50'000, 300, 1}}));
}

TEST_F(TBookTest, QueueNamesBrokersFrontToBackWithMarkersBeforeFurtherLevels) {
  Book.Add(Order(1, TSide::Bid, 50'000, 100, 2820));
  Book.Add(Order(2, TSide::Bid, 50'000, 100, 56));
  Book.Add(Order(3, TSide::Bid, 49'950, 100, 1234));
  Book.Add(Order(4, TSide::Bid, 49'750, 100, 2820));
  EXPECT_EQ(Queue(TSide::Bid), "2820 56 -1 1234 -5 2820");
  Book.Add(Order(5, TSide::Ask, 50'100, 100, 7));
  Book.Add(Order(6, TSide::Ask, 50'200, 100, 8));
  EXPECT_EQ(Queue(TSide::Ask), "7 +2 8");
}

TEST_F(TBookTest, QueueCountsTicksAcrossAChangeOfStep) {
  Book.Add(Order(1, TSide::Ask, 19'980, 100, 1));
  Book.Add(Order(2, TSide::Ask, 20'050, 100, 2));
  EXPECT_EQ(Queue(TSide::Ask), "1 +2 2");
}

TEST_F(TBookTest, QueueHoldsFortyEntriesAndEndsWithABroker) {
  for (TOrderId id = 1; id <= 38; ++id)
    Book.Add(Order(id, TSide::Ask, 50'000, 100, 1));
  Book.Add(Order(100, TSide::Ask, 50'050, 100, 2));
  Book.Add(Order(101, TSide::Ask, 50'050, 100, 3));
  auto queue = BrokerQueueOf(Book, TSide::Ask);
  ASSERT_EQ(queue.size(), 40u);
  EXPECT_EQ(queue[38], (TQueueEntry{TQueueEntry::TContent::Spread, 1}));
  EXPECT_EQ(queue[39], (TQueueEntry{TQueueEntry::TContent::Broker, 2}));
  Book.Add(Order(39, TSide::Ask, 50'000, 100, 1));
  queue = BrokerQueueOf(Book, TSide::Ask);
  ASSERT_EQ(queue.size(), 39u);
  EXPECT_EQ(queue.back(), (TQueueEntry{TQueueEntry::TContent::Broker, 1}));
}

TEST(MarketOrderPool, FindsEveryOrderWhateverItsNumber) {
  for (const TOrderId stride : {1ULL, 256ULL, 1ULL << 32, 1ULL << 40}) {
    TOrderPool pool;
    for (TOrderId n = 1; n <= 2000; ++n)
      pool.Add(Order(n * stride, TSide::Bid, 100, static_cast<TQuantity>(n)));
    for (TOrderId n = 2; n <= 2000; n += 2)
      pool.Release(*pool.Find(n * stride));
    EXPECT_EQ(pool.Count(), 1000u);
    for (TOrderId n = 1; n <= 2000; ++n) {
      const TQueuedOrder* found = pool.Find(n * stride);
      ASSERT_EQ(found != nullptr, n % 2 == 1) << n << " times " << stride;
      if (found) {
        ASSERT_EQ(found->Quantity, static_cast<TQuantity>(n));
      }
    }
  }
}

/// A stream of orders around a price, the same into both books.
class TBookPair {
public:
  explicit TBookPair(std::uint64_t seed) : random_(seed) {}

  void Step() {
    const int what = Below(random_, 10);
    if (what < 5)
      Enter();
    else if (what < 8)
      Cancel();
    else
      Reduce();
  }

  void Compare() const {
    for (const TSide side : {TSide::Bid, TSide::Ask}) {
      const auto levels = naive_.Levels(side);
      std::vector<TBookLevel> read(levels.size() + 1);
      read.resize(book_.ReadLevels(side, read));
      ASSERT_EQ(read, levels);
      auto expected = naive_.SideOf(side).begin();
      book_.VisitOrders(side, [&](const TBookOrder& order, int ticks) {
        EXPECT_EQ(order.Id, expected->Id);
        EXPECT_EQ(order.Quantity, expected->Quantity);
        EXPECT_EQ(ticks, std::abs(grid_.TickAtOrBelow(order.Price) -
                                  grid_.TickAtOrBelow(levels[0].Price)));
        EXPECT_EQ(book_.Find(order.Id), &order);
        ++expected;
        return true;
      });
      ASSERT_TRUE(expected == naive_.SideOf(side).end());
    }
    ASSERT_EQ(book_.OrderCount(),
              naive_.SideOf(TSide::Bid).size() + naive_.SideOf(TSide::Ask).size());
    if (book_.Front(TSide::Bid)) {
      ASSERT_FALSE(book_.Crosses(TSide::Bid, *book_.BestPrice(TSide::Bid)));
    }
  }

private:
  void Enter() {
    const TSide side = Below(random_, 2) ? TSide::Bid : TSide::Ask;
    const int offset = Below(random_, 30) - 5;
    const TPrice price = grid_.Moved(20'000, side == TSide::Bid ? -offset : offset);
    const TQuantity quantity = 100 * (1 + Below(random_, 20));
    std::vector<TNaiveFill> fills;
    const TQuantity left =
        book_.Match(side, price, quantity, [&](const TBookOrder& resting, TQuantity filled) {
          fills.push_back({resting.Id, resting.Price, filled});
        });
    ASSERT_EQ(fills, naive_.Match(side, price, quantity));
    ++lastId_;
    if (left > 0) {
      book_.Add(Order(lastId_, side, price, left));
      naive_.Add(Order(lastId_, side, price, left));
    }
  }
  void Cancel() {
    const TOrderId id = AnyId();
    ASSERT_EQ(book_.Cancel(id).has_value(), naive_.Cancel(id));
  }
  void Reduce() {
    const TOrderId id = AnyId();
    const TQuantity quantity = 100 * (1 + Below(random_, 10));
    ASSERT_EQ(book_.Reduce(id, quantity), naive_.Reduce(id, quantity));
  }
  TOrderId AnyId() { return 1 + random_() % (lastId_ + 1); }

  std::mt19937_64 random_;
  TTickGrid grid_ = ShareGrid();
  TOrderBook book_{grid_};
  TNaiveBook naive_;
  TOrderId lastId_ = 0;
};

TEST(MarketBookProperty, AgreesWithAListOfOrdersAfterEveryStep) {
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    TBookPair books(seed);
    for (int step = 0; step < 1500; ++step) {
      books.Step();
      books.Compare();
      ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed << ", step " << step;
    }
  }
}

} // namespace
} // namespace Market
