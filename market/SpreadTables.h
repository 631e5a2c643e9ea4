#pragma once

#include "data/ReferenceData.h"
#include "market/TickGrid.h"

#include <chrono>
#include <string_view>
#include <vector>

namespace Market {

/// A spread table of the exchange from the day it came into force. A later table of the same code
/// replaces it.
struct TDatedSpreadTable {
  std::string_view Code;
  std::chrono::year_month_day From;
  std::vector<TTickGrid::TTickBand> Bands; ///< ascending
};

/// Every table ever in force, by code and then by date.
const std::vector<TDatedSpreadTable>& AllSpreadTables();

/// The tables in force on `date`, one a code, by code. A date before a code's first table has that
/// first one.
std::vector<TDatedSpreadTable> SpreadTablesOn(std::chrono::year_month_day date);

/// The table as recordings and the market adapter have it, ready for use.
TReferenceData::TSpreadTable Published(const TDatedSpreadTable& table);

} // namespace Market
