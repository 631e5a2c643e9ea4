#include "market/SpreadTables.h"

#include <algorithm>

namespace Market {
namespace {

using namespace std::chrono_literals;
using std::chrono::year_month_day;

/// A band is given by its upper end; it begins where the last one ended.
struct TStep {
  TPrice To;
  TPrice Step;
};

std::vector<TTickGrid::TTickBand> Bands(TPrice from, std::initializer_list<TStep> steps) {
  std::vector<TTickGrid::TTickBand> bands;
  for (const auto& [to, step] : steps) {
    bands.push_back({from, to, step});
    from = to;
  }
  return bands;
}

/// The equities' table, in which only the steps between 0.50 and 50 have ever changed.
std::vector<TTickGrid::TTickBand> EquityBands(std::initializer_list<TStep> middle) {
  auto bands = Bands(0, {{250, 1}, {500, 5}});
  const auto changed = Bands(500, middle);
  const auto upper = Bands(50'000, {{100'000, 50},
                                    {200'000, 100},
                                    {500'000, 200},
                                    {1'000'000, 500},
                                    {2'000'000, 1000},
                                    {5'000'000, 2000},
                                    {9'995'000, 5000}});
  bands.insert(bands.end(), changed.begin(), changed.end());
  bands.insert(bands.end(), upper.begin(), upper.end());
  return bands;
}

constexpr year_month_day Always = 2000y / 1 / 1;

std::vector<TDatedSpreadTable> MakeTables() {
  const auto formerEquities = EquityBands({{10'000, 10}, {20'000, 20}, {50'000, 50}});
  return {
      {"01", Always, formerEquities},
      {"01", 2025y / 8 / 4, EquityBands({{10'000, 10}, {20'000, 10}, {50'000, 20}})},
      {"01", 2026y / 7 / 6, EquityBands({{10'000, 5}, {20'000, 10}, {50'000, 20}})},
      {"03", Always, Bands(450, {{9'999'950, 50}})},
      {"05", Always,
       Bands(0, {{1000, 1},
                 {5000, 2},
                 {10'000, 5},
                 {20'000, 10},
                 {100'000, 20},
                 {200'000, 50},
                 {500'000, 100},
                 {1'000'000, 200},
                 {2'000'000, 500},
                 {9'999'000, 1000}})},
      {"06", Always, formerEquities},
  };
}

} // namespace

const std::vector<TDatedSpreadTable>& AllSpreadTables() {
  static const std::vector<TDatedSpreadTable> tables = MakeTables();
  return tables;
}

std::vector<TDatedSpreadTable> SpreadTablesOn(year_month_day date) {
  std::vector<TDatedSpreadTable> inForce;
  for (const TDatedSpreadTable& table : AllSpreadTables()) {
    if (inForce.empty() || inForce.back().Code != table.Code)
      inForce.push_back(table);
    else if (table.From <= date)
      inForce.back() = table;
  }
  return inForce;
}

TReferenceData::TSpreadTable Published(const TDatedSpreadTable& table) {
  TReferenceData::TSpreadTable published;
  published.Code = table.Code;
  for (const auto& [from, to, step] : table.Bands)
    published.Bands.push_back({ToUnits(from), ToUnits(to), ToUnits(step)});
  return published;
}

} // namespace Market
