#include "terminal/services/Formatters.h"

#include "host/ConstDef.h"
#include "host/RecordFields.h"
#include "text/Numbers.h"
#include "text/Strings.h"

#include <algorithm>
#include <cmath>

namespace Terminal {

using Basesubscribedata::TCustomSubItem;

namespace {

/// Amounts from here on are shortened.
constexpr double ShortenedFrom = 10'000'000;

constexpr Text::TUnit TraditionalUnits[] = {{1e4, "萬"}, {1e8, "億"}, {1e12, "萬億"}};
constexpr Text::TUnit SimplifiedUnits[] = {{1e4, "万"}, {1e8, "亿"}, {1e12, "万亿"}};
constexpr Text::TUnit EnglishUnits[] = {{1e3, "K"}, {1e6, "M"}, {1e9, "B"}, {1e12, "T"}};

std::span<const Text::TUnit> UnitsOf(int language) {
  if (language == Constdef::Language_TraditionalChinese)
    return TraditionalUnits;
  if (language == Constdef::Language_SimplifiedChinese)
    return SimplifiedUnits;
  return EnglishUnits;
}

/// The price that decides in which band the symbol trades; 0 when there is none.
double ReferencePrice(const TCustomSubItem& record) {
  for (const int field : {Host::Field::Nominal, Host::Field::PreviousClose, Host::Field::BestBid,
                          Host::Field::BestAsk})
    if (const auto price = record.GetNumber(field); price != 0)
      return price;
  return 0;
}

/// Empty when the formatter must refuse.
std::string_view FieldText(const TCustomSubItem& record, int field) {
  return record.GetState() == Constdef::RecordState_Ready ? record.GetText(field)
                                                          : std::string_view();
}

/// The nominal price and the previous close, while there are both.
struct TMove {
  double Nominal;
  double PreviousClose;
};

std::optional<TMove> MoveOf(const TCustomSubItem& record) {
  if (record.GetState() != Constdef::RecordState_Ready)
    return std::nullopt;
  const TMove move{record.GetNumber(Host::Field::Nominal),
                   record.GetNumber(Host::Field::PreviousClose)};
  const bool complete = move.Nominal != 0 && move.PreviousClose != 0;
  return complete ? std::optional(move) : std::nullopt;
}

void WritePercent(std::string& text, double percent) {
  Text::WriteNumber(text, percent, 2, 2, Text::TGrouping::None, Text::TSign::Always);
  text += '%';
}

} // namespace

std::optional<int> PriceDecimals(const TCustomSubItem& record, TMarketAdapter& market) {
  const auto code = record.GetText(Host::Field::SpreadCode);
  const auto* table = code.empty() ? nullptr : market.GetSpreadTable(code);
  if (!table || table->State() != Constdef::SpreadState_Ready)
    return std::nullopt;
  return table->Decimals(ReferencePrice(record));
}

std::optional<int> LadderDecimals(const TCustomSubItem& record, TMarketAdapter& market) {
  auto decimals = PriceDecimals(record, market);
  const auto* table =
      decimals ? market.GetSpreadTable(record.GetText(Host::Field::SpreadCode)) : nullptr;
  // Of a book, the bands are known by its two ends.
  for (const auto* side : {&Host::Field::Bid, &Host::Field::Ask}) {
    const auto end = std::find_if(side->Price.rbegin(), side->Price.rend(),
                                  [&record](int field) { return record.HasValue(field); });
    if (table && end != side->Price.rend())
      decimals = std::max(decimals, table->Decimals(record.GetNumber(*end)));
  }
  return decimals;
}

std::string TFormatter::FormatNumber(double value, int flag) {
  const int decimals = flag == 0 ? 0 : 2;
  std::string text;
  Text::WriteNumber(text, value, decimals, decimals, Text::TGrouping::Thousands);
  return text;
}

std::string TFormatter::FormatQuantity(double value) {
  std::string text;
  Text::WriteNumber(text, value, 0, Text::MaxDecimals, Text::TGrouping::Thousands);
  return text;
}

std::string TFormatter::FormatAmount(std::string_view, double value) {
  // What would not fit a column of figures is shortened.
  if (std::abs(value) >= ShortenedFrom)
    return FormatAbbreviatedAmount(value, 2);
  const bool isWhole = std::round(value * 100) == std::round(value) * 100;
  return FormatNumber(value, isWhole ? 0 : 1);
}

std::string TFormatter::FormatAbbreviatedAmount(double value, int precision) {
  return Text::AbbreviatedNumber(value, precision, UnitsOf(languages_.CurrentLanguage()));
}

std::string TFormatter::FormatPrice(std::string_view symbol, int precision, double value) {
  const auto* record = precision == 0 ? records_.Find(symbol) : nullptr;
  const int least = record ? LadderDecimals(*record, market_).value_or(0) : 0;
  const int most = precision == 0 ? Text::MaxDecimals : std::clamp(precision, 0, Text::MaxDecimals);
  std::string text;
  Text::WriteNumber(text, value, least, most, Text::TGrouping::None);
  return text;
}

bool TMarketDataFormatter::FormatPrice(const TCustomSubItem& record, int field, std::string& text) {
  text.clear();
  const auto given = FieldText(record, field);
  if (given.empty())
    return false;
  Text::WritePriceText(text, given, LadderDecimals(record, market_));
  return true;
}

bool TMarketDataFormatter::FormatVolume(const TCustomSubItem& record, int field,
                                        std::string& text) {
  text.clear();
  const auto given = FieldText(record, field);
  if (given.empty())
    return false;
  Text::WriteQuantityText(text, given);
  return true;
}

bool TMarketDataFormatter::FormatChange(const TCustomSubItem& record, std::string& text) {
  text.clear();
  const auto given = FieldText(record, Host::Field::Change);
  const auto decimals = PriceDecimals(record, market_);
  if (given.empty()) {
    const auto move = MoveOf(record);
    if (!move)
      return false;
    const int least =
        decimals.value_or(std::max(Text::DecimalsIn(record.GetText(Host::Field::Nominal)),
                                   Text::DecimalsIn(record.GetText(Host::Field::PreviousClose))));
    Text::WriteNumber(text, move->Nominal - move->PreviousClose, least, Text::MaxDecimals,
                      Text::TGrouping::None, Text::TSign::Always);
  } else if (const auto change = Text::ParseNumber(given)) {
    Text::WriteNumber(text, *change, decimals.value_or(Text::DecimalsIn(given)), Text::MaxDecimals,
                      Text::TGrouping::None, Text::TSign::Always);
  } else {
    text = given;
  }
  return true;
}

bool TMarketDataFormatter::FormatChangePercent(const TCustomSubItem& record, std::string& text) {
  text.clear();
  const auto given = FieldText(record, Host::Field::ChangePercent);
  auto number = Text::Trim(given);
  if (!number.empty() && number.back() == '%')
    number.remove_suffix(1);
  if (given.empty()) {
    const auto move = MoveOf(record);
    if (!move)
      return false;
    WritePercent(text, (move->Nominal - move->PreviousClose) / move->PreviousClose * 100);
  } else if (const auto percent = Text::ParseNumber(number)) {
    WritePercent(text, *percent);
  } else {
    text = given;
  }
  return true;
}

} // namespace Terminal
