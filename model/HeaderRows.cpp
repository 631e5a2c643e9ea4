#include "model/HeaderRows.h"

#include "host/BaseFormatter.h"
#include "host/BaseLanguageManager.h"
#include "host/BaseMarketAdapter.h"
#include "host/ICommon.h"
#include "model/DetailRows.h"
#include "model/QuorDetailDataControl.h"
#include "model/QuorTypes.h"
#include "model/ResourceText.h"

#include <algorithm>
#include <iterator>

namespace Quorpricedatacontrol {

using Baseformatter::TCustomFormatter;
using Baselanguagemanager::TCustomLanguageManager;
using Basemarketadapter::TCustomMarketAdapter;
using Icommon::TCustomMarketDataFormatter;

namespace {

/// From this turnover upward, it shows abbreviated.
constexpr double AbbreviatedTurnover = 1'000'000;
constexpr int AbbreviatedTurnoverPrecision = 2;

std::string PlainText(const TCustomSubItem* record, int field) {
  return std::string(record->GetText(field));
}

std::string TurnoverText(const TCustomSubItem* record, int field) {
  if (record->GetText(field).empty())
    return {};
  const double turnover = record->GetNumber(field);
  auto* formatter = TCustomFormatter::GetInstance();
  return turnover < AbbreviatedTurnover
             ? formatter->FormatAmount(record->Symbol(), turnover)
             : formatter->FormatAbbreviatedAmount(turnover, AbbreviatedTurnoverPrecision);
}

std::string CurrencyText(const TCustomSubItem* record, int field) {
  if (const auto text = record->GetText(field); !text.empty())
    return std::string(text);
  const auto* instrument = TCustomMarketAdapter::GetInstance()->GetInstrument(record->Symbol());
  if (!instrument || instrument->Currency().empty())
    return {};
  std::string text;
  TCustomLanguageManager::GetInstance()->GetText(text, Constdef::Const_CurrencyTag,
                                                 instrument->Currency(), 3, 0, 0);
  return text.empty() ? std::string(instrument->Currency()) : text;
}

std::string ChangeText(const TCustomSubItem* record, int) {
  std::string text;
  TCustomMarketDataFormatter::GetInstance()->FormatChange(*record, text);
  return text;
}

std::string ChangePercentText(const TCustomSubItem* record, int) {
  std::string text;
  TCustomMarketDataFormatter::GetInstance()->FormatChangePercent(*record, text);
  return text;
}

/// When a row stands in the header.
enum class TShown {
  Always,
  WithValue,        ///< while the record gives it
  WithBothLimits,   ///< while the record gives the upper and the lower limit
  EmptyWithoutValue ///< always, but empty while the record does not give it
};

struct THeaderRow {
  int Field;
  std::string_view CaptionKey;
  TShown Shown;
  TRowCopies Copies;
  std::string (*Text)(const TCustomSubItem* record, int field); ///< of a record that holds data
};

using enum TShown;
using enum TRowCopies;

/// Every row that there can be, from the top.
constexpr THeaderRow Table[] = {
    {Field::Open, "Res_OpenPrc", EmptyWithoutValue, Price, PriceText},
    {Field::UpperLimit, "Res_Price_UpLimit", WithBothLimits, Price, PriceText},
    {Field::LowerLimit, "Res_Price_DownLimit", WithBothLimits, Price, PriceText},
    {Field::High, "Res_HighPrice", Always, Price, PriceText},
    {Field::Low, "Res_LowPrice", Always, Price, PriceText},
    {Field::PreviousClose, "Res_PreClose", Always, Price, PriceText},
    {Field::Change, "Res_PRCChange", Always, SymbolAlone, ChangeText},
    {Field::ChangePercent, "Res_ChangePercent", Always, SymbolAlone, ChangePercentText},
    {Field::Nominal, "Res_Nominal", Always, Price, PriceText},
    {Field::Volume, "Res_Volume", Always, SymbolAlone, VolumeText},
    {Field::Turnover, "Res_TurnOver", Always, SymbolAlone, TurnoverText},
    {Field::BoardLot, "Res_LotSize", Always, SymbolAlone, QuantityText},
    {Field::AccruedInterest, "Res_AccruedInt", WithValue, SymbolAlone, PlainText},
    {Field::Currency, "Res_Currency", Always, SymbolAlone, CurrencyText},
    {Field::High52Weeks, "Res_High_52wks", WithValue, SymbolAlone, PriceText},
    {Field::Low52Weeks, "Res_Low_52wks", WithValue, SymbolAlone, PriceText},
};

/// The line of a field; null for a field that is never a row.
const THeaderRow* LineOf(int field) {
  const auto* line = std::find_if(std::begin(Table), std::end(Table),
                                  [field](const THeaderRow& row) { return row.Field == field; });
  return line == std::end(Table) ? nullptr : line;
}

bool Gives(const TCustomSubItem* record, int field) { return record && record->HasValue(field); }

bool Stands(const THeaderRow& row, const TCustomSubItem* record) {
  switch (row.Shown) {
  case WithValue:
    return Gives(record, row.Field);
  case WithBothLimits:
    return Gives(record, Field::UpperLimit) && Gives(record, Field::LowerLimit);
  default:
    return true;
  }
}

bool StandsEmpty(const THeaderRow& row, const TCustomSubItem* record) {
  return row.Shown == EmptyWithoutValue && !Gives(record, row.Field);
}

} // namespace

const int THeaderRows::MostOwn = static_cast<int>(std::size(Table));

std::string HeaderCaption(int field) {
  const THeaderRow* line = LineOf(field);
  return line ? ResourceText(line->CaptionKey) : std::string();
}

std::string HeaderValueText(const TCustomSubItem* record, int field) {
  if (!IsReady(record))
    return {};
  const THeaderRow* line = LineOf(field);
  return line ? line->Text(record, field) : PlainText(record, field);
}

bool CopiesPrice(int field) {
  const THeaderRow* line = LineOf(field);
  return line ? line->Copies == Price : DetailCopiesPrice(field);
}

int THeaderRows::Attribute(int row) const {
  return row >= 0 && row < Count() ? attributes_[static_cast<std::size_t>(row)] : Field::None;
}

std::string THeaderRows::Caption(int row) const {
  return row >= 0 && row < static_cast<int>(captions_.size())
             ? captions_[static_cast<std::size_t>(row)]
             : std::string();
}

int THeaderRows::RowOf(int field) const {
  const auto found = std::find(attributes_.begin(), attributes_.end(), field);
  return found == attributes_.end() ? -1 : static_cast<int>(found - attributes_.begin());
}

void THeaderRows::SetHeaderAttribute(const TCustomSubItem* record) {
  attributes_.clear();
  for (const THeaderRow& row : Table)
    if (Stands(row, record))
      attributes_.push_back(StandsEmpty(row, record) ? Field::None : row.Field);
  ownCount_ = Count();
}

void THeaderRows::AppendDetail(const TCustomQuorDetailDataControl& detail, int rowCount) {
  for (const int field : detail.DisplayFields()) {
    if (Count() >= rowCount)
      return;
    if (!detail.GetDisplayText(field).empty())
      attributes_.push_back(field);
  }
}

void THeaderRows::UpdateCaptions(const TCustomQuorDetailDataControl* detail) {
  captions_.clear();
  for (int row = 0; row < Count(); ++row) {
    const int field = Attribute(row);
    captions_.push_back(detail && row >= ownCount_ ? detail->GetHeader(field)
                                                   : HeaderCaption(field));
  }
}

} // namespace Quorpricedatacontrol
