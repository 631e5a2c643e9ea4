#include "model/DetailRows.h"

#include "host/BaseFormatter.h"
#include "host/ConstDef.h"
#include "model/QuorTypes.h"
#include "model/ResourceText.h"
#include "text/Numbers.h"

#include <cmath>

namespace Quorpricedatacontrol {

using Baseformatter::TCustomFormatter;

namespace {

/// Decimals at most.
constexpr int PricePrecision = 8;
constexpr int RatioPrecision = 6;
/// A conversion ratio below it reads as a fraction.
constexpr double SmallestPlainRatio = 0.05;

// Flags of number texts.
constexpr int WholeNumber = 0;
constexpr int TwoDecimals = 1;

std::string NumberText(double number, int flag) {
  return TCustomFormatter::GetInstance()->FormatNumber(number, flag);
}

std::string NumberTextUnlessZero(double number, int flag) {
  return IsZero(number) ? std::string() : NumberText(number, flag);
}

std::string PriceTextUnlessZero(const TCustomSubItem& record, double price, int precision) {
  if (IsZero(price))
    return {};
  return TCustomFormatter::GetInstance()->FormatPrice(record.Symbol(), precision, price);
}

std::string AmountText(const TCustomSubItem& record, double amount) {
  return TCustomFormatter::GetInstance()->FormatAmount(record.Symbol(), amount);
}

/// The feed's own figure times `factor`.
std::string FeedFigureText(const TCustomSubItem& record, int field, double factor, int flag) {
  if (record.GetText(field).empty())
    return {};
  return NumberText(record.GetNumber(field) * factor, flag);
}

// Texts of the rows; there is a record.

std::string PlainText(const TInstrument& instrument, int field) {
  return std::string(instrument.Record->GetText(field));
}

std::string EightDecimalsText(const TInstrument& instrument, int field) {
  return PriceTextUnlessZero(*instrument.Record, instrument.Record->GetNumber(field),
                             PricePrecision);
}

std::string CallPutText(const TInstrument& instrument, int) {
  switch (GetCallPutFlag(instrument.Record)) {
  case cpfCall:
    return ResourceText("Res_Call");
  case cpfPut:
    return ResourceText("Res_Put");
  default:
    return {};
  }
}

std::string CategoryText(const TInstrument& instrument, int) { return instrument.Category; }

std::string OptionStyleText(const TInstrument& instrument, int field) {
  const auto style = instrument.Record->GetText(field);
  if (style == "1")
    return ResourceText("Res_OptionStyle_EU");
  return style == "2" ? ResourceText("Res_OptionStyle_US") : std::string(style);
}

std::string ConversionRatioText(const TInstrument& instrument, int field) {
  const double ratio = instrument.Record->GetNumber(field);
  if (!IsZero(ratio) && ratio < SmallestPlainRatio)
    return "1/" + std::to_string(std::llround(1 / ratio));
  return PriceTextUnlessZero(*instrument.Record, ratio, RatioPrecision);
}

std::string IssueSizeText(const TInstrument& instrument, int field) {
  if (instrument.Record->GetText(field).empty())
    return {};
  const double size = instrument.Record->GetNumber(field);
  return instrument.IssueSizeStyle == TIssueSizeStyle::Amount ? AmountText(*instrument.Record, size)
                                                              : NumberText(size, WholeNumber);
}

constexpr unsigned Structured = ikWarrant | ikCBBC;

std::string PremiumText(const TInstrument& instrument, int field) {
  if (instrument.Kind & Structured)
    return NumberTextUnlessZero(GetPremium(instrument.Record, instrument.Underlying), TwoDecimals);
  return FeedFigureText(*instrument.Record, field, 100, TwoDecimals);
}

std::string GearingText(const TInstrument& instrument, int field) {
  if (instrument.Kind & Structured)
    return NumberTextUnlessZero(GetGearing(instrument.Record, instrument.Underlying), TwoDecimals);
  return FeedFigureText(*instrument.Record, field, 1, TwoDecimals);
}

std::string MarketCapText(const TInstrument& instrument, int field) {
  if (instrument.Kind != ikStock)
    return FeedFigureText(*instrument.Record, field, 1, WholeNumber);
  const double capitalisation = GetMarketCap(instrument.Record);
  return IsZero(capitalisation) ? std::string() : AmountText(*instrument.Record, capitalisation);
}

struct TDetailRow {
  int Field;
  std::string_view CaptionKey;
  unsigned Kinds; ///< of instrument, that have the row
  TRowCopies Copies;
  std::string (*Text)(const TInstrument& instrument, int field);
};

using enum TRowCopies;

/// Every row that there can be, from the top.
constexpr TDetailRow Table[] = {
    {Field::IssueSize, "Res_IssuedShares", ikStock, SymbolAlone, IssueSizeText},
    {Field::MarketCap, "Res_MarketCap", ikStock, SymbolAlone, MarketCapText},
    {Field::PriceEarnings, "Res_PE", ikStock, SymbolAlone, PlainText},
    {Field::DividendYield, "Res_Yield", ikStock, SymbolAlone, PlainText},
    {Field::Underlying, "Res_Underlyer", Structured, SymbolAlone, PlainText},
    {Field::ExpiryDate, "Res_ExpiryDate", Structured, SymbolAlone, PlainText},
    {Field::StrikePrice, "Res_StrikePrice", Structured, Price, EightDecimalsText},
    {Field::CallPrice, "Res_Call_Price", ikCBBC, SymbolAlone, EightDecimalsText},
    {Field::CallPut, "Res_CallPut", Structured, SymbolAlone, CallPutText},
    {Field::Category, "Res_Category", ikCBBC, SymbolAlone, CategoryText},
    {Field::OptionStyle, "Res_OptionStyle", Structured, SymbolAlone, OptionStyleText},
    {Field::ConversionRatio, "Res_Conversion_Ratio", Structured, SymbolAlone, ConversionRatioText},
    {Field::IssueSize, "Res_IssueSize", Structured, SymbolAlone, IssueSizeText},
    {Field::Premium, "Res_Premium", Structured, SymbolAlone, PremiumText},
    {Field::Gearing, "Res_Gearing", Structured, SymbolAlone, GearingText},
};

/// The kind's own line of a field, else its first; null for a field that is never a row.
const TDetailRow* LineOf(TInstrumentKind kind, int field) {
  const TDetailRow* line = nullptr;
  for (const TDetailRow& row : Table)
    if (row.Field == field && (!line || (row.Kinds & kind)))
      line = &row;
  return line;
}

TInstrumentKind KindOf(const TCustomSubItem* record, bool isCBBC) {
  switch (IsReady(record) ? Text::ParseInteger(record->GetText(Field::ProductType)).value_or(0)
                          : 0) {
  case Constdef::ProductType_Stock:
    return ikStock;
  case Constdef::ProductType_Warrant:
    return isCBBC ? ikCBBC : ikWarrant;
  default:
    return ikOther;
  }
}

} // namespace

void TInstrument::Update() {
  TCBBCMark mark = DetectCBBCWarrant(Record);
  Kind = KindOf(Record, mark.IsCBBC);
  Category = std::move(mark.Category);
}

std::vector<int> DetailFieldsOf(TInstrumentKind kind) {
  std::vector<int> fields;
  for (const TDetailRow& row : Table)
    if (row.Kinds & kind)
      fields.push_back(row.Field);
  return fields;
}

std::string DetailCaption(TInstrumentKind kind, int field) {
  const TDetailRow* line = LineOf(kind, field);
  return line ? ResourceText(line->CaptionKey) : std::string();
}

std::string DetailText(const TInstrument& instrument, int field) {
  const TDetailRow* line = instrument.Record ? LineOf(instrument.Kind, field) : nullptr;
  return line ? line->Text(instrument, field) : std::string();
}

bool DetailCopiesPrice(int field) {
  const TDetailRow* line = LineOf(ikOther, field);
  return line && line->Copies == Price;
}

} // namespace Quorpricedatacontrol
