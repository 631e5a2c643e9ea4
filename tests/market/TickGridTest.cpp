#include "market/MarketRig.h"
#include "market/PriceLimits.h"
#include "market/TickSet.h"

#include <gtest/gtest.h>

#include <set>

namespace Market {
namespace {

TEST(MarketTickGrid, NumbersThePricesOfAllBandsWithoutAGap) {
  const TTickGrid grid = ShareGrid();
  EXPECT_EQ(grid.Count(), 250 + 50 + 950 + 500 + 1600);
  EXPECT_EQ(grid.PriceAt(0), 1);
  EXPECT_EQ(grid.PriceAt(249), 250);
  EXPECT_EQ(grid.PriceAt(250), 255);
  EXPECT_EQ(grid.PriceAt(299), 500);
  EXPECT_EQ(grid.PriceAt(300), 510);
  EXPECT_EQ(grid.PriceAt(grid.Count() - 1), 100'000);
}

TEST(MarketTickGrid, EveryPriceLeadsBackToItsNumber) {
  const TTickGrid grid = ShareGrid();
  for (int tick = 0; tick < grid.Count(); ++tick) {
    EXPECT_EQ(grid.TickAtOrBelow(grid.PriceAt(tick)), tick);
    EXPECT_EQ(grid.TickAtOrAbove(grid.PriceAt(tick)), tick);
    EXPECT_TRUE(grid.IsValid(grid.PriceAt(tick)));
  }
}

TEST(MarketTickGrid, APriceBetweenTwoStepsIsNotValidAndHasANeighbourOnEachSide) {
  const TTickGrid grid = ShareGrid();
  EXPECT_FALSE(grid.IsValid(252));
  EXPECT_EQ(grid.PriceAt(grid.TickAtOrBelow(252)), 250);
  EXPECT_EQ(grid.PriceAt(grid.TickAtOrAbove(252)), 255);
  EXPECT_EQ(grid.PriceAt(grid.TickAtOrBelow(20'049)), 20'000);
  EXPECT_EQ(grid.PriceAt(grid.TickAtOrAbove(20'001)), 20'050);
}

TEST(MarketTickGrid, PricesBeyondTheEndsAreNotValid) {
  const TTickGrid grid({{450, 1000, 50}, {1000, 2000, 100}});
  for (const TPrice price : {-500, 0, 450, 499, 2001, 2100})
    EXPECT_FALSE(grid.IsValid(price)) << price;
  for (const TPrice price : {-500, 0, 450, 499})
    EXPECT_EQ(grid.TickAtOrBelow(price), -1) << price;
  EXPECT_EQ(grid.TickAtOrAbove(-500), 0);
  EXPECT_EQ(grid.TickAtOrBelow(5000), grid.Count() - 1);
  EXPECT_EQ(grid.TickAtOrAbove(2001), grid.Count());
}

TEST(MarketTickGrid, MovesAcrossBandsAndStopsAtTheEnds) {
  const TTickGrid grid = ShareGrid();
  EXPECT_EQ(grid.Moved(10'000, 1), 10'020);
  EXPECT_EQ(grid.Moved(10'000, -1), 9'990);
  EXPECT_EQ(grid.Moved(19'980, 3), 20'100);
  EXPECT_EQ(grid.Moved(20'100, -3), 19'980);
  EXPECT_EQ(grid.Moved(10'010, 1), 10'020);
  EXPECT_EQ(grid.Moved(3, -9), 1);
  EXPECT_EQ(grid.Moved(99'950, 9), 100'000);
}

TEST(MarketTickGrid, ABoundaryStepsUpByTheBandAbove) {
  const TTickGrid grid = ShareGrid();
  EXPECT_EQ(grid.StepAbove(9'990), 10);
  EXPECT_EQ(grid.StepAbove(10'000), 20);
  EXPECT_EQ(grid.StepAbove(20'000), 50);
  EXPECT_EQ(grid.StepAbove(100'000), 50);
}

TEST(MarketPriceLimits, AreBroughtInwardToValidPrices) {
  const TTickGrid grid = ShareGrid();
  EXPECT_EQ(LimitsAround(130, 10, grid), (TPriceLimits{117, 143}));
  EXPECT_EQ(LimitsAround(50'000, 15, grid), (TPriceLimits{42'500, 57'500}));
  EXPECT_EQ(LimitsAround(253, 10, grid), (TPriceLimits{228, 275}));
  EXPECT_EQ(LimitsAround(20'050, 5, grid), (TPriceLimits{19'060, 21'050}));
  EXPECT_EQ(LimitsAround(10, 5, grid), (TPriceLimits{10, 10}));
}

TEST(MarketPriceLimits, HoldTheirOwnEnds) {
  const TPriceLimits limits{117, 143};
  EXPECT_FALSE(limits.Hold(116));
  EXPECT_TRUE(limits.Hold(117));
  EXPECT_TRUE(limits.Hold(143));
  EXPECT_FALSE(limits.Hold(144));
}

TEST(MarketTickSet, FindsTheNearestMemberAcrossLongGaps) {
  TTickSet set(200'000);
  EXPECT_EQ(set.AtOrAbove(0), TTickSet::None);
  EXPECT_EQ(set.AtOrBelow(199'999), TTickSet::None);
  for (const int tick : {63, 64, 150'000})
    set.Insert(tick);
  EXPECT_EQ(set.AtOrAbove(0), 63);
  EXPECT_EQ(set.AtOrAbove(64), 64);
  EXPECT_EQ(set.AtOrAbove(65), 150'000);
  EXPECT_EQ(set.AtOrAbove(150'001), TTickSet::None);
  EXPECT_EQ(set.AtOrBelow(199'999), 150'000);
  EXPECT_EQ(set.AtOrBelow(149'999), 64);
  EXPECT_EQ(set.AtOrBelow(62), TTickSet::None);
  set.Erase(64);
  EXPECT_EQ(set.AtOrBelow(149'999), 63);
}

TEST(MarketTickSet, AgreesWithASortedSet) {
  for (const int count : {1, 63, 64, 65, 4095, 4096, 4097, 10'000}) {
    std::mt19937_64 random(static_cast<std::uint64_t>(count));
    TTickSet set(count);
    std::set<int> members;
    for (int step = 0; step < 2000; ++step) {
      const int tick = Below(random, count);
      if (Below(random, 3) == 0) {
        set.Insert(tick);
        members.insert(tick);
      } else {
        set.Erase(tick);
        members.erase(tick);
      }
      const int from = Below(random, count + 1);
      const auto above = members.lower_bound(from);
      const auto past = members.upper_bound(from - 1);
      ASSERT_EQ(set.AtOrAbove(from), above == members.end() ? TTickSet::None : *above);
      ASSERT_EQ(set.AtOrBelow(from - 1),
                past == members.begin() ? TTickSet::None : *std::prev(past));
    }
  }
}

} // namespace
} // namespace Market
