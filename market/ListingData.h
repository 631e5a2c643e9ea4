#pragma once

#include "market/Listing.h"

#include <span>

// The listing's rows as they are written down; TListing makes instruments of them.
namespace Market {

/// A security that is no derivative.
struct TSecurityRow {
  std::string_view Symbol;
  TNames Names;
  TInstrumentKind Kind;
  std::string_view SpreadCode;
  TQuantity BoardLot;
  TPrice PreviousClose, YearHigh, YearLow;
  TQuantity IssuedMillions;
  double EarningsPerShare; ///< 0: no figure
  double DividendYield;    ///< 0: no figure
  TCapitalisation Capitalisation;
  char Sector;
  TTemper Temper;
};

/// What sets a few securities apart.
struct TSpecialRow {
  std::string_view Symbol;
  TStanding Standing;
  std::string_view Exchange, Currency;
  int DailyLimitPercent;
  std::string_view Message, SecondMessage, Remark;
};

/// A share that trades in dollars and in renminbi.
struct TCounterRow {
  std::string_view Dollars, Renminbi;
};

/// What warrants and contracts are written on, as their short names have it.
struct TUnderlyingRow {
  std::string_view Symbol;
  std::string_view Code;                    ///< at most five characters
  std::string_view Traditional, Simplified; ///< two characters
};

/// Who writes warrants and contracts.
struct TIssuerRow {
  std::string_view Code;                    ///< two characters
  std::string_view Traditional, Simplified; ///< two characters
  TBrokerId Provider;
};

struct TWarrantRow {
  std::string_view Symbol, Underlying, Issuer;
  TRight Right;
  double Strike;
  int UnitsPerUnderlying;
  std::chrono::year_month_day Expiry;
  double Volatility;
  char Style; ///< 'E' European, 'A' American
  char Serial;
  TQuantity BoardLot, IssuedMillions;
};

struct TContractRow {
  std::string_view Symbol, Underlying, Issuer;
  TRight Right;
  char Category; ///< 'N' or 'R'
  double Strike;
  TPrice CallLevel;
  int UnitsPerUnderlying;
  std::chrono::year_month_day Expiry;
  char Serial;
  TQuantity BoardLot, IssuedMillions;
};

std::span<const TSecurityRow> SecurityRows();
std::span<const TSpecialRow> SpecialRows();
std::span<const TCounterRow> CounterRows();
std::span<const TUnderlyingRow> UnderlyingRows();
std::span<const TIssuerRow> IssuerRows();
std::span<const TWarrantRow> WarrantRows();
std::span<const TContractRow> ContractRows();

} // namespace Market
