// Books that are told by levels and books that are told by orders.

#include "feed/exchange/Books.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <tuple>

namespace Feed::Exchange {
namespace {

constexpr int Bid = 0, Offer = 1;

std::vector<std::int32_t> Prices(const TAggregateBook& book, int side) {
  std::vector<std::int32_t> prices;
  for (const auto& level : book.Levels(side))
    prices.push_back(level.Price);
  return prices;
}

using TPrices = std::vector<std::int32_t>;

TEST(AggregateBook, ANewLevelPushesTheLowerOnesDownAndADeletedOneLiftsThem) {
  TAggregateBook book;
  EXPECT_TRUE(book.Apply(baNew, Bid, 1, {100, 5, 1}));
  EXPECT_TRUE(book.Apply(baNew, Bid, 2, {98, 5, 1}));
  EXPECT_TRUE(book.Apply(baNew, Bid, 2, {99, 5, 1}));
  EXPECT_TRUE(book.Apply(baNew, Offer, 1, {101, 7, 2}));
  EXPECT_EQ(Prices(book, Bid), (TPrices{100, 99, 98}));
  EXPECT_EQ(Prices(book, Offer), TPrices{101});
  EXPECT_TRUE(book.Apply(baDelete, Bid, 1, {}));
  EXPECT_EQ(Prices(book, Bid), (TPrices{99, 98}));
  EXPECT_TRUE(book.Apply(baChange, Bid, 2, {98, 1'000'000'000'000, 3}));
  EXPECT_EQ(book.Levels(Bid)[1], (TBookLevel{98, 1'000'000'000'000, 3}));
}

TEST(AggregateBook, HasTenLevelsAtMost) {
  TAggregateBook book;
  for (int price = 1; price <= 12; ++price)
    EXPECT_TRUE(book.Apply(baNew, Bid, 1, {price, 1, 1}));
  EXPECT_EQ(Prices(book, Bid), (TPrices{12, 11, 10, 9, 8, 7, 6, 5, 4, 3}));
  EXPECT_TRUE(book.Apply(baDelete, Bid, 10, {}));
  EXPECT_EQ(book.Levels(Bid).size(), 9U) << "what was pushed out does not come back";
}

TEST(AggregateBook, AClearEmptiesBothSides) {
  TAggregateBook book;
  book.Apply(baNew, Bid, 1, {100, 5, 1});
  book.Apply(baNew, Offer, 1, {101, 5, 1});
  EXPECT_TRUE(book.Apply(baClear, Bid, 0, {}));
  EXPECT_TRUE(book.Levels(Bid).empty());
  EXPECT_TRUE(book.Levels(Offer).empty());
}

TEST(AggregateBook, RefusesWhatItHasNot) {
  TAggregateBook book;
  book.Apply(baNew, Bid, 1, {100, 5, 1});
  EXPECT_FALSE(book.Apply(baNew, Bid, 3, {98, 5, 1})) << "a level under a hole";
  EXPECT_FALSE(book.Apply(baNew, Bid, 0, {98, 5, 1}));
  EXPECT_FALSE(book.Apply(baNew, Bid, 11, {98, 5, 1}));
  EXPECT_FALSE(book.Apply(baChange, Bid, 2, {98, 5, 1}));
  EXPECT_FALSE(book.Apply(baDelete, Offer, 1, {}));
  EXPECT_FALSE(book.Apply(baNew, 2, 1, {98, 5, 1}));
  EXPECT_FALSE(book.Apply(static_cast<TBookAction>(3), Bid, 1, {98, 5, 1}));
  EXPECT_EQ(Prices(book, Bid), TPrices{100});
  EXPECT_TRUE(book.Levels(2).empty());
}

TEST(OrderedBook, OrdersOfAPriceAreOneLevel) {
  TOrderedBook book;
  EXPECT_TRUE(book.Add(1, Bid, 100, 5));
  EXPECT_TRUE(book.Add(2, Bid, 101, 7));
  EXPECT_TRUE(book.Add(3, Bid, 100, 3));
  EXPECT_TRUE(book.Add(4, Offer, 103, 1));
  EXPECT_TRUE(book.Add(5, Offer, 102, 2));
  EXPECT_EQ(book.Levels(Bid), (std::vector<TBookLevel>{{101, 7, 1}, {100, 8, 2}}));
  EXPECT_EQ(book.Levels(Offer), (std::vector<TBookLevel>{{102, 2, 1}, {103, 1, 1}}));
  EXPECT_TRUE(book.Modify(3, Bid, 1)) << "the whole new quantity";
  EXPECT_TRUE(book.Delete(2, Bid));
  EXPECT_EQ(book.Levels(Bid), (std::vector<TBookLevel>{{100, 6, 2}}));
}

TEST(OrderedBook, AnOrderWithoutAPriceStandsInNoLevel) {
  TOrderedBook book;
  EXPECT_TRUE(book.Add(1, Bid, TOrderedBook::NoPrice, 5));
  EXPECT_TRUE(book.Levels(Bid).empty());
  EXPECT_TRUE(book.Modify(1, Bid, 4));
  EXPECT_TRUE(book.Delete(1, Bid));
  EXPECT_EQ(book.OrderCount(), 0U);
}

TEST(OrderedBook, RefusesWhatItHasNot) {
  TOrderedBook book;
  book.Add(1, Bid, 100, 5);
  EXPECT_FALSE(book.Add(1, Bid, 100, 5)) << "it is known";
  EXPECT_FALSE(book.Add(2, 2, 100, 5));
  EXPECT_FALSE(book.Modify(1, Offer, 5)) << "it is on the other side";
  EXPECT_FALSE(book.Delete(7, Bid));
  EXPECT_EQ(book.Levels(Bid), (std::vector<TBookLevel>{{100, 5, 1}}));
  EXPECT_TRUE(book.Levels(2).empty());
  book.Clear();
  EXPECT_TRUE(book.Levels(Bid).empty());
  EXPECT_TRUE(book.Add(1, Bid, 100, 5)) << "forgotten";
}

TEST(OrderedBook, IsAsOneThatIsCountedAnew) {
  TOrderedBook book;
  std::map<std::uint64_t, std::tuple<int, std::int32_t, std::uint64_t>> orders;
  std::mt19937 random(7);
  for (int i = 0; i < 20'000; ++i) {
    const std::uint64_t id = random() % 300;
    const auto known = orders.find(id);
    if (known == orders.end()) {
      const std::tuple order{static_cast<int>(random() % 2),
                             static_cast<std::int32_t>(90 + random() % 20),
                             static_cast<std::uint64_t>(1 + random() % 50)};
      orders.emplace(id, order);
      ASSERT_TRUE(book.Add(id, std::get<0>(order), std::get<1>(order), std::get<2>(order)));
    } else if (random() % 2) {
      std::get<2>(known->second) = 1 + random() % 50;
      ASSERT_TRUE(book.Modify(id, std::get<0>(known->second), std::get<2>(known->second)));
    } else {
      ASSERT_TRUE(book.Delete(id, std::get<0>(known->second)));
      orders.erase(known);
    }
    if (i % 100)
      continue;
    for (const int side : {Bid, Offer}) {
      std::map<std::int32_t, TBookLevel> levels;
      for (const auto& [key, order] : orders) {
        if (std::get<0>(order) != side)
          continue;
        auto& level = levels[std::get<1>(order)];
        level = {std::get<1>(order), level.Quantity + std::get<2>(order), level.Orders + 1};
      }
      std::vector<TBookLevel> expected;
      for (const auto& [price, level] : levels)
        expected.push_back(level);
      if (side == Bid)
        std::ranges::reverse(expected);
      expected.resize(std::min(expected.size(), ShownLevels));
      ASSERT_EQ(book.Levels(side), expected) << i;
    }
  }
}

} // namespace
} // namespace Feed::Exchange
