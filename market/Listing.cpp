#include "market/Listing.h"

#include "market/LiquidityProvider.h"
#include "market/ListingData.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace Market {
namespace {

using std::chrono::year_month_day;

/// Orders in warrants and contracts beside the liquidity provider's.
constexpr TTemper StructuredTemper = {.Volatility = 0, .OrdersPerSecond = 0.25, .MeanLots = 4};

/// How far the underlying was from its previous close when a warrant or contract on it stood
/// highest and lowest, as a part of the price in the holder's favour.
constexpr double BestTime = 0.09;
constexpr double WorstTime = -0.06;

/// Below it no warrant or contract trades.
constexpr TPrice LeastPrice = 10;

template <class TRow> const TRow& RowOf(std::span<const TRow> rows, std::string_view key,
                                        std::string_view TRow::*member) {
  return *std::ranges::find(rows, key, member);
}

TInstrument Instrument(const TSecurityRow& row) {
  TInstrument made;
  made.Symbol = row.Symbol;
  made.Kind = row.Kind;
  made.Name = row.Names.English;
  made.TraditionalName = row.Names.Traditional;
  made.SimplifiedName = row.Names.Simplified;
  made.Exchange = "HKG";
  made.Currency = "HKD";
  made.SpreadCode = row.SpreadCode;
  made.BoardLot = row.BoardLot;
  made.PreviousClose = row.PreviousClose;
  made.YearHigh = row.YearHigh;
  made.YearLow = row.YearLow;
  made.Issued = row.IssuedMillions * 1'000'000;
  if (row.EarningsPerShare != 0)
    made.EarningsPerShare = row.EarningsPerShare;
  if (row.DividendYield != 0)
    made.DividendYield = row.DividendYield;
  made.Capitalisation = row.Capitalisation;
  made.Sector = row.Sector;
  made.Temper = row.Temper;
  return made;
}

void SetApart(TInstrument& instrument, const TSpecialRow& row) {
  instrument.Standing = row.Standing;
  instrument.Exchange = row.Exchange;
  instrument.Currency = row.Currency;
  instrument.DailyLimitPercent = row.DailyLimitPercent;
  instrument.Messages = {std::string(row.Message), std::string(row.SecondMessage)};
  instrument.Remark = row.Remark;
}

/// What the bond's coupon has earned since it was last paid, per 100 nominal. It is paid twice a
/// year, in May and November.
std::string AccruedInterest(year_month_day date) {
  using namespace std::chrono;
  constexpr double Coupon = 3.8;
  const month_day paid[] = {May / 21, November / 21};
  sys_days last = sys_days((date.year() - years(1)) / paid[1]);
  for (const month_day& each : paid)
    if (sys_days(date.year() / each) <= sys_days(date))
      last = sys_days(date.year() / each);
  const auto days = (sys_days(date) - last).count();
  const std::string text = std::to_string(Coupon * static_cast<double>(days) / 365);
  return text.substr(0, text.find('.') + 5);
}

std::string TwoDigits(unsigned number) {
  return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

std::string ExpiryCode(year_month_day expiry) {
  return TwoDigits(static_cast<unsigned>(static_cast<int>(expiry.year())) % 100) +
         TwoDigits(static_cast<unsigned>(expiry.month()));
}

/// Year and month as Chinese short names have them: a digit, and the month of one character.
std::string ChineseExpiry(year_month_day expiry) {
  static constexpr std::string_view Digits[] = {"零", "一", "二", "三", "四",
                                                "五", "六", "七", "八", "九"};
  static constexpr std::string_view Months[] = {"一", "二", "三", "四", "五", "六",
                                                "七", "八", "九", "十", "甲", "乙"};
  return std::string(Digits[static_cast<int>(expiry.year()) % 10]) +
         std::string(Months[static_cast<unsigned>(expiry.month()) - 1]);
}

std::string Padded(std::string_view text, std::size_t width) {
  std::string padded(text);
  padded.resize(width, ' ');
  return padded;
}

/// What warrants and contracts have in common. Prices come later.
template <class TRow> TInstrument Structured(const TRow& row, TInstrumentKind kind) {
  const TIssuerRow& issuer = RowOf(IssuerRows(), row.Issuer, &TIssuerRow::Code);
  TInstrument made;
  made.Symbol = row.Symbol;
  made.Kind = kind;
  made.Exchange = "HKG";
  made.Currency = "HKD";
  made.SpreadCode = "06";
  made.BoardLot = row.BoardLot;
  made.Issued = row.IssuedMillions * 1'000'000;
  made.Temper = StructuredTemper;
  made.Terms = TTerms{.Underlying = std::string(row.Underlying),
                      .Right = row.Right,
                      .Strike = row.Strike,
                      .UnitsPerUnderlying = row.UnitsPerUnderlying,
                      .Expiry = row.Expiry,
                      .Provider = issuer.Provider};
  return made;
}

/// Underlying, issuer, expiry, kind and serial letter in eight characters.
template <class TRow>
void NameInChinese(TInstrument& instrument, const TRow& row, TNames kindNames) {
  const TIssuerRow& issuer = RowOf(IssuerRows(), row.Issuer, &TIssuerRow::Code);
  const TUnderlyingRow& underlying =
      RowOf(UnderlyingRows(), row.Underlying, &TUnderlyingRow::Symbol);
  const auto name = [&](std::string_view of, std::string_view by, std::string_view kind) {
    return std::string(of) + std::string(by) + ChineseExpiry(row.Expiry) + std::string(kind) +
           row.Serial;
  };
  instrument.TraditionalName =
      name(underlying.Traditional, issuer.Traditional, kindNames.Traditional);
  instrument.SimplifiedName = name(underlying.Simplified, issuer.Simplified, kindNames.Simplified);
}

TInstrument Instrument(const TWarrantRow& row) {
  TInstrument made = Structured(row, TInstrumentKind::Warrant);
  made.Terms->Volatility = row.Volatility;
  made.Terms->IsAmerican = row.Style == 'A';
  const auto& underlying = RowOf(UnderlyingRows(), row.Underlying, &TUnderlyingRow::Symbol);
  const bool isCall = row.Right == TRight::Call;
  made.Name = std::string(row.Issuer) + Padded(underlying.Code, 5) + '@' + row.Style +
              (isCall ? 'C' : 'P') + ExpiryCode(row.Expiry) + row.Serial;
  NameInChinese(made, row, isCall ? TNames{"", "購", "购"} : TNames{"", "沽", "沽"});
  return made;
}

TInstrument Instrument(const TContractRow& row) {
  TInstrument made = Structured(row, TInstrumentKind::CallableContract);
  made.Terms->CallLevel = row.CallLevel;
  made.Terms->Category = row.Category;
  const auto& underlying = RowOf(UnderlyingRows(), row.Underlying, &TUnderlyingRow::Symbol);
  const bool isBull = row.Right == TRight::Call;
  made.Name = std::string(row.Issuer) + '#' + Padded(underlying.Code, 5) + row.Category +
              (isBull ? 'C' : 'P') + ExpiryCode(row.Expiry) + row.Serial;
  NameInChinese(made, row, isBull ? TNames{"", "牛", "牛"} : TNames{"", "熊", "熊"});
  return made;
}

/// Prices of a warrant or contract follow from its underlying's previous close.
void Price(TInstrument& instrument, const TInstrument& underlying, const TTickGrid& grid,
           year_month_day date) {
  const TTerms& terms = *instrument.Terms;
  const double favour = terms.Right == TRight::Call ? 1 : -1;
  const auto price = [&](double move) {
    const double spot = ToUnits(underlying.PreviousClose) * (1 + favour * move);
    const TPrice fair = std::llround(FairValue(terms, spot, date));
    return std::max(grid.Moved(fair, 0), LeastPrice);
  };
  instrument.PreviousClose = price(0);
  instrument.YearHigh = price(BestTime);
  instrument.YearLow = price(WorstTime);
}

/// The texts that are not empty, each once, a blank between.
std::string Joined(const std::vector<std::string>& texts) {
  std::set<std::string_view> seen;
  std::string joined;
  for (const std::string& text : texts)
    if (!text.empty() && seen.insert(text).second)
      joined += (joined.empty() ? "" : " ") + text;
  return joined;
}

} // namespace

int TInstrument::ProductType() const {
  switch (Kind) {
  case TInstrumentKind::Share:
  case TInstrumentKind::Trust:
    return 1;
  case TInstrumentKind::Bond:
    return 2;
  case TInstrumentKind::Fund:
    return 3;
  case TInstrumentKind::Warrant:
  case TInstrumentKind::CallableContract:
    break;
  }
  return 4;
}

std::string_view TInstrument::Follows() const {
  if (Terms)
    return Terms->Underlying;
  return Currency == "CNY" ? std::string_view(Counterpart) : std::string_view();
}

int TInstrument::VolatilityPercent() const {
  switch (Capitalisation) {
  case TCapitalisation::Large:
    return 10;
  case TCapitalisation::Mid:
    return 15;
  case TCapitalisation::Small:
    return 20;
  case TCapitalisation::None:
    break;
  }
  return 0;
}

std::optional<double> TInstrument::PriceEarnings() const {
  if (EarningsPerShare.value_or(0) <= 0)
    return std::nullopt;
  return ToUnits(PreviousClose) / *EarningsPerShare;
}

TListing::TListing(year_month_day date) : date_(date), spreadTables_(SpreadTablesOn(date)) {
  for (const TDatedSpreadTable& table : spreadTables_)
    grids_.emplace(table.Code, TTickGrid(table.Bands));
  for (const TSecurityRow& row : SecurityRows())
    instruments_.push_back(Instrument(row));
  for (TInstrument& instrument : instruments_) {
    if (instrument.Kind == TInstrumentKind::Bond)
      instrument.AccruedInterest = AccruedInterest(date);
    for (const TSpecialRow& row : SpecialRows())
      if (row.Symbol == instrument.Symbol)
        SetApart(instrument, row);
    for (const TCounterRow& row : CounterRows()) {
      if (row.Dollars == instrument.Symbol)
        instrument.Counterpart = row.Renminbi;
      if (row.Renminbi == instrument.Symbol)
        instrument.Counterpart = row.Dollars;
    }
  }
  for (const TWarrantRow& row : WarrantRows())
    instruments_.push_back(Instrument(row));
  for (const TContractRow& row : ContractRows())
    instruments_.push_back(Instrument(row));
  for (TInstrument& instrument : instruments_)
    if (instrument.IsStructured())
      Price(instrument, *Find(instrument.Terms->Underlying), Grid(instrument), date);
}

const TInstrument* TListing::Find(std::string_view symbol) const {
  const auto found = std::ranges::find(instruments_, symbol, &TInstrument::Symbol);
  return found == instruments_.end() ? nullptr : &*found;
}

const TTickGrid& TListing::Grid(const TInstrument& instrument) const {
  return grids_.at(instrument.SpreadCode);
}

std::optional<TPriceLimits> TListing::DailyLimits(const TInstrument& instrument) const {
  if (instrument.DailyLimitPercent == 0)
    return std::nullopt;
  const TPrice move = instrument.PreviousClose * instrument.DailyLimitPercent / 100;
  const auto nearest = [&grid = Grid(instrument)](TPrice price) {
    return grid.Moved(price + grid.StepAbove(price) / 2, 0);
  };
  return TPriceLimits{nearest(instrument.PreviousClose - move),
                      nearest(instrument.PreviousClose + move)};
}

std::string TListing::WarrantCodes(const TInstrument& instrument) const {
  if (instrument.IsStructured())
    return instrument.Terms->Underlying;
  std::vector<std::string> codes;
  for (const TInstrument& each : instruments_)
    if (each.IsStructured() && each.Terms->Underlying == instrument.Symbol)
      codes.push_back(each.Symbol);
  return Joined(codes);
}

std::string TListing::RelatedCodes(const TInstrument& instrument) const {
  std::vector<std::string> codes = {instrument.Counterpart};
  for (const TInstrument& each : instruments_) {
    const bool isRelated =
        instrument.IsStructured()
            ? each.IsStructured() && each.Terms->Underlying == instrument.Terms->Underlying
            : instrument.Sector != ' ' && each.Sector == instrument.Sector;
    if (isRelated && each.Symbol != instrument.Symbol)
      codes.push_back(each.Symbol);
  }
  return Joined(codes);
}

std::string TListing::ProviderCodes(const TInstrument& instrument) const {
  if (instrument.IsStructured())
    return std::to_string(instrument.Terms->Provider);
  std::vector<std::string> codes;
  for (const TInstrument& each : instruments_)
    if (each.IsStructured() && each.Terms->Underlying == instrument.Symbol)
      codes.push_back(std::to_string(each.Terms->Provider));
  return Joined(codes);
}

} // namespace Market
