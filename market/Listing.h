#pragma once

#include "market/Brokers.h"
#include "market/PriceLimits.h"
#include "market/SpreadTables.h"

#include <array>
#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Market {

enum class TInstrumentKind { Share, Fund, Trust, Bond, Warrant, CallableContract };

/// Whether an instrument trades on the simulated day. An unknown one sends no data at all.
enum class TStanding { Trading, Halted, Unknown };

enum class TRight { Call, Put };

/// Size of the company, which decides its volatility-control limit. None: not under control.
enum class TCapitalisation { None, Small, Mid, Large };

/// What makes a warrant or a callable bull/bear contract.
struct TTerms {
  std::string Underlying;      ///< symbol
  TRight Right = TRight::Call; ///< a bull contract is a call, a bear contract a put
  double Strike = 0;           ///< currency units
  int UnitsPerUnderlying = 1;  ///< as the trade quotes the ratio: 10 where the record says 0.1
  std::chrono::year_month_day Expiry;
  double Volatility = 0;   ///< warrant: implied, a year; 0 for a contract
  TPrice CallLevel = 0;    ///< contract; 0 for a warrant
  char Category = ' ';     ///< contract: 'N' or 'R'
  bool IsAmerican = false; ///< warrant
  TBrokerId Provider = 0;  ///< number of the liquidity provider
};

/// How lively an instrument is on an ordinary day.
struct TTemper {
  double Volatility = 0;      ///< of the fair value, a year
  double OrdersPerSecond = 0; ///< limit orders, market orders and cancellations, average of the day
  double MeanLots = 1;        ///< of an order
};

/// One listed security. Nothing of it changes during a day.
struct TInstrument {
  std::string Symbol; ///< without leading zeros, such as "700"
  TInstrumentKind Kind = TInstrumentKind::Share;
  TStanding Standing = TStanding::Trading;
  std::string Name;            ///< English short name, at most 15 characters
  std::string TraditionalName; ///< at most 8 characters
  std::string SimplifiedName;
  std::string Exchange; ///< "HKG" unless listed elsewhere too
  std::string Currency; ///< "HKD" or "CNY"
  std::string SpreadCode;
  TQuantity BoardLot = 0;
  TPrice PreviousClose = 0;
  TPrice YearHigh = 0, YearLow = 0;       ///< of the last 52 weeks; 0 when listed too recently
  TQuantity Issued = 0;                   ///< shares, units or warrants
  std::optional<double> EarningsPerShare; ///< currency units; negative is a loss
  std::optional<double> DividendYield;    ///< per cent
  std::string AccruedInterest;            ///< of a bond, per 100 nominal; empty otherwise
  TCapitalisation Capitalisation = TCapitalisation::None;
  int DailyLimitPercent = 0; ///< of the previous close, either way; 0: none
  char Sector = ' ';         ///< shares of one trade have the same letter; blank: none
  std::string Counterpart;   ///< symbol of the same share in another currency; empty when none
  /// Lines that the feed sends with it; mostly empty. Of an unknown one the first is its status.
  std::array<std::string, 2> Messages;
  std::string Remark; ///< line shown when there are no messages
  TTemper Temper;
  std::optional<TTerms> Terms; ///< warrants and contracts only

  /// 1 share or trust, 2 bond, 3 fund, 4 warrant or contract.
  int ProductType() const;
  bool IsStructured() const { return Terms.has_value(); }
  /// Shares, funds and trusts take part in both auction sessions.
  bool HasAuctions() const { return !IsStructured() && Kind != TInstrumentKind::Bond; }
  /// Symbol of what its fair value follows: the underlying, or of a renminbi counter the same
  /// share in dollars; empty when it is worth something by itself.
  std::string_view Follows() const;
  /// Per cent of the volatility control: 10, 15 or 20; 0 when not under control.
  int VolatilityPercent() const;
  /// Previous close over earnings; empty without earnings or with a loss.
  std::optional<double> PriceEarnings() const;
};

/// Currency units of CNY that one HKD costs, for the renminbi counters.
inline constexpr double RenminbiPerDollar = 0.92;

/// The day for which the listing's figures were invented, a Monday.
inline constexpr std::chrono::year_month_day ListingDate{
    std::chrono::year{2026}, std::chrono::month{3}, std::chrono::day{16}};

/// Everything that is listed in the simulated market on one trading date: companies, names and
/// figures are invented.
class TListing {
public:
  explicit TListing(std::chrono::year_month_day date = ListingDate);

  std::chrono::year_month_day Date() const { return date_; }
  /// In the order in which a terminal should offer them: shares first, by symbol.
  const std::vector<TInstrument>& Instruments() const { return instruments_; }
  /// Null when not listed.
  const TInstrument* Find(std::string_view symbol) const;
  /// The tables in force on the date.
  const std::vector<TDatedSpreadTable>& SpreadTables() const { return spreadTables_; }
  /// The instrument's valid prices. Lives as long as the listing.
  const TTickGrid& Grid(const TInstrument& instrument) const;
  /// The previous close less and plus the daily limit, each the nearest valid price. Empty when the
  /// instrument has no daily limit.
  std::optional<TPriceLimits> DailyLimits(const TInstrument& instrument) const;

  // The related codes as the record carries them: symbols or broker numbers, a blank between.

  /// Of a share, fund or trust: the warrants and contracts on it; of those: their underlying.
  std::string WarrantCodes(const TInstrument& instrument) const;
  /// Of a warrant or contract: the others on the same underlying; else the counterpart in another
  /// currency and shares of the same trade.
  std::string RelatedCodes(const TInstrument& instrument) const;
  /// Liquidity providers' broker numbers, of an underlying those of everything on it; empty where
  /// there are none.
  std::string ProviderCodes(const TInstrument& instrument) const;

private:
  std::chrono::year_month_day date_;
  std::vector<TDatedSpreadTable> spreadTables_;
  std::map<std::string, TTickGrid, std::less<>> grids_; ///< by spread code
  std::vector<TInstrument> instruments_;
};

} // namespace Market
