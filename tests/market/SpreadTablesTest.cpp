#include "market/SpreadTables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Market {
namespace {

using namespace std::chrono_literals;
using std::chrono::year_month_day;

constexpr year_month_day BeforeReform = 2025y / 8 / 1;
constexpr year_month_day Reform = 2025y / 8 / 4;
constexpr year_month_day SecondReform = 2026y / 7 / 6;

struct TBoundary {
  TPrice Price;
  TPrice Below; ///< step below the price
  TPrice Above; ///< step above it
};

TDatedSpreadTable TableOn(year_month_day date, std::string_view code) {
  const auto tables = SpreadTablesOn(date);
  const auto found = std::ranges::find(tables, code, &TDatedSpreadTable::Code);
  if (found == tables.end())
    throw std::invalid_argument("no table " + std::string(code));
  return *found;
}

void ExpectBoundaries(year_month_day date, std::string_view code,
                      const std::vector<TBoundary>& boundaries) {
  const TTickGrid grid(TableOn(date, code).Bands);
  for (const auto& [price, below, above] : boundaries) {
    SCOPED_TRACE(price);
    EXPECT_TRUE(grid.IsValid(price));
    EXPECT_EQ(price - grid.Moved(price, -1), below);
    EXPECT_EQ(grid.Moved(price, 1) - price, above);
  }
}

TEST(SpreadTables, EquitiesHadTheFormerStepsBeforeTheReform) {
  ExpectBoundaries(BeforeReform, "01",
                   {{250, 1, 5},
                    {500, 5, 10},
                    {10'000, 10, 20},
                    {20'000, 20, 50},
                    {100'000, 50, 100},
                    {200'000, 100, 200},
                    {500'000, 200, 500},
                    {1'000'000, 500, 1000},
                    {2'000'000, 1000, 2000},
                    {5'000'000, 2000, 5000}});
}

TEST(SpreadTables, EquitiesStepFinerFromTenToFiftySinceTheReform) {
  ExpectBoundaries(Reform, "01",
                   {{250, 1, 5},
                    {500, 5, 10},
                    {10'000, 10, 10},
                    {20'000, 10, 20},
                    {50'000, 20, 50},
                    {100'000, 50, 100},
                    {200'000, 100, 200},
                    {500'000, 200, 500},
                    {1'000'000, 500, 1000},
                    {2'000'000, 1000, 2000},
                    {5'000'000, 2000, 5000}});
}

TEST(SpreadTables, EquitiesStepFinerBelowTenSinceTheSecondReform) {
  ExpectBoundaries(SecondReform, "01",
                   {{250, 1, 5},
                    {500, 5, 5},
                    {10'000, 5, 10},
                    {20'000, 10, 20},
                    {50'000, 20, 50},
                    {100'000, 50, 100}});
}

TEST(SpreadTables, ATableIsInForceFromItsFirstDayOn) {
  const auto stepAt = [](year_month_day date, TPrice price) {
    return TTickGrid(TableOn(date, "01").Bands).StepAbove(price);
  };
  EXPECT_EQ(stepAt(2025y / 8 / 3, 15'000), 20);
  EXPECT_EQ(stepAt(Reform, 15'000), 10);
  EXPECT_EQ(stepAt(2026y / 7 / 5, 5000), 10);
  EXPECT_EQ(stepAt(SecondReform, 5000), 5);
}

TEST(SpreadTables, StructuredProductsKeepTheFormerSteps) {
  for (const year_month_day date : {BeforeReform, Reform, SecondReform})
    ExpectBoundaries(date, "06",
                     {{250, 1, 5},
                      {500, 5, 10},
                      {10'000, 10, 20},
                      {20'000, 20, 50},
                      {100'000, 50, 100},
                      {5'000'000, 2000, 5000}});
}

TEST(SpreadTables, FundsHaveTheirOwnSteps) {
  ExpectBoundaries(Reform, "05",
                   {{1000, 1, 2},
                    {5000, 2, 5},
                    {10'000, 5, 10},
                    {20'000, 10, 20},
                    {100'000, 20, 50},
                    {200'000, 50, 100},
                    {500'000, 100, 200},
                    {1'000'000, 200, 500},
                    {2'000'000, 500, 1000}});
}

TEST(SpreadTables, EveryTableEndsWhereTheExchangeEndsIt) {
  const auto range = [](std::string_view code) {
    const TTickGrid grid(TableOn(Reform, code).Bands);
    return std::pair(grid.PriceAt(0), grid.PriceAt(grid.Count() - 1));
  };
  EXPECT_EQ(range("01"), (std::pair<TPrice, TPrice>(1, 9'995'000)));
  EXPECT_EQ(range("03"), (std::pair<TPrice, TPrice>(500, 9'999'950)));
  EXPECT_EQ(range("05"), (std::pair<TPrice, TPrice>(1, 9'999'000)));
  EXPECT_EQ(range("06"), (std::pair<TPrice, TPrice>(1, 9'995'000)));
}

TEST(SpreadTables, DebtStepsByFiveCentsThroughout) {
  ExpectBoundaries(Reform, "03", {{550, 50, 50}, {101'350, 50, 50}, {9'999'900, 50, 50}});
}

TEST(SpreadTables, EachCodeIsInForceOnceAndABandEndsOnAStep) {
  for (const year_month_day date : {BeforeReform, Reform, SecondReform}) {
    std::vector<std::string_view> codes;
    for (const TDatedSpreadTable& table : SpreadTablesOn(date)) {
      codes.push_back(table.Code);
      for (std::size_t band = 0; band < table.Bands.size(); ++band) {
        const auto& [from, to, step] = table.Bands[band];
        EXPECT_EQ((to - from) % step, 0) << table.Code << " to " << to;
        EXPECT_TRUE(band == 0 || from == table.Bands[band - 1].To) << table.Code;
      }
    }
    EXPECT_EQ(codes, (std::vector<std::string_view>{"01", "03", "05", "06"}));
  }
}

TEST(SpreadTables, ArePublishedInCurrencyUnits) {
  const auto published = Published(TableOn(Reform, "05"));
  EXPECT_EQ(published.Code, "05");
  EXPECT_EQ(published.State, 1);
  ASSERT_EQ(published.Bands.size(), 10U);
  const TReferenceData::TSpreadBand second = {1, 5, 0.002};
  EXPECT_EQ(published.Bands[1], second);
}

} // namespace
} // namespace Market
