#include "model/HeaderRows.h"

#include "host/BaseFormatter.h"
#include "host/BaseLanguageManager.h"
#include "host/BaseMarketAdapter.h"
#include "host/ICommon.h"
#include "model/QuorDetailDataControl.h"
#include "model/QuorTypes.h"
#include "model/ResourceText.h"

#include <algorithm>

namespace Quorpricedatacontrol {

using Baseformatter::TCustomFormatter;
using Baselanguagemanager::TCustomLanguageManager;
using Basemarketadapter::TCustomMarketAdapter;
using Icommon::TCustomMarketDataFormatter;

namespace {

/// From this turnover upward, it shows abbreviated.
constexpr double AbbreviatedTurnover = 1'000'000;
constexpr int AbbreviatedTurnoverPrecision = 2;

constexpr int AccruedInterestRow = 10;
constexpr int PriceUpperLimitRow = 1;
constexpr int PriceLowerLimitRow = 2;

std::string TurnoverText(const TCustomSubItem& record) {
  if (record.GetText(Field::Turnover).empty())
    return {};
  const double turnover = record.GetNumber(Field::Turnover);
  auto* formatter = TCustomFormatter::GetInstance();
  return turnover < AbbreviatedTurnover
             ? formatter->FormatAmount(record.Symbol(), turnover)
             : formatter->FormatAbbreviatedAmount(turnover, AbbreviatedTurnoverPrecision);
}

std::string CurrencyText(const TCustomSubItem& record) {
  if (const auto text = record.GetText(Field::Currency); !text.empty())
    return std::string(text);
  const auto* instrument = TCustomMarketAdapter::GetInstance()->GetInstrument(record.Symbol());
  if (!instrument || instrument->Currency().empty())
    return {};
  std::string text;
  TCustomLanguageManager::GetInstance()->GetText(text, Constdef::Const_CurrencyTag,
                                                 instrument->Currency(), 3, 0, 0);
  return text.empty() ? std::string(instrument->Currency()) : text;
}

std::string ChangeText(const TCustomSubItem& record) {
  std::string text;
  TCustomMarketDataFormatter::GetInstance()->FormatChange(record, text);
  return text;
}

std::string ChangePercentText(const TCustomSubItem& record) {
  std::string text;
  TCustomMarketDataFormatter::GetInstance()->FormatChangePercent(record, text);
  return text;
}

std::string_view CaptionKey(int field) {
  switch (field) {
  case Field::Nominal:
    return "Res_Nominal";
  case Field::Volume:
    return "Res_Volume";
  case Field::Currency:
    return "Res_Currency";
  case Field::BoardLot:
    return "Res_LotSize";
  case Field::PreviousClose:
    return "Res_PreClose";
  case Field::Low:
    return "Res_LowPrice";
  case Field::High:
    return "Res_HighPrice";
  case Field::Turnover:
    return "Res_TurnOver";
  case Field::Change:
    return "Res_PRCChange";
  case Field::UpperLimit:
    return "Res_Price_UpLimit";
  case Field::LowerLimit:
    return "Res_Price_DownLimit";
  case Field::AccruedInterest:
    return "Res_AccruedInt";
  case Field::ChangePercent:
    return "Res_ChangePercent";
  case Field::High52Weeks:
    return "Res_High_52wks";
  case Field::Low52Weeks:
    return "Res_Low_52wks";
  case Field::Open:
    return "Res_OpenPrc";
  default:
    return {};
  }
}

} // namespace

std::string HeaderCaption(int field) {
  const std::string_view key = CaptionKey(field);
  return key.empty() ? std::string() : ResourceText(key);
}

std::string HeaderValueText(const TCustomSubItem* record, int field) {
  if (!IsReady(record))
    return {};
  switch (field) {
  case Field::Nominal:
  case Field::PreviousClose:
  case Field::Low:
  case Field::High:
  case Field::UpperLimit:
  case Field::LowerLimit:
  case Field::High52Weeks:
  case Field::Low52Weeks:
  case Field::Open:
    return PriceText(record, field);
  case Field::Volume:
    return VolumeText(record, field);
  case Field::BoardLot:
    return QuantityText(record, field);
  case Field::Turnover:
    return TurnoverText(*record);
  case Field::Currency:
    return CurrencyText(*record);
  case Field::Change:
    return ChangeText(*record);
  case Field::ChangePercent:
    return ChangePercentText(*record);
  default:
    return std::string(record->GetText(field));
  }
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

void THeaderRows::SetHeaderAttribute() {
  attributes_ = {Field::None,     Field::High,          Field::Low,     Field::PreviousClose,
                 Field::Change,   Field::ChangePercent, Field::Nominal, Field::Volume,
                 Field::Turnover, Field::BoardLot,      Field::Currency};
}

void THeaderRows::Build(const TCustomSubItem& record) {
  SetHeaderAttribute();
  for (const int field : {Field::High52Weeks, Field::Low52Weeks})
    if (record.HasValue(field))
      attributes_.push_back(field);
  if (record.HasValue(Field::Open))
    attributes_.front() = Field::Open;
  if (record.HasValue(Field::AccruedInterest))
    attributes_.insert(attributes_.begin() + AccruedInterestRow, Field::AccruedInterest);
  if (record.HasValue(Field::UpperLimit) && record.HasValue(Field::LowerLimit)) {
    attributes_.insert(attributes_.begin() + PriceUpperLimitRow, Field::UpperLimit);
    attributes_.insert(attributes_.begin() + PriceLowerLimitRow, Field::LowerLimit);
  }
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

void THeaderRows::UpdateCellHeaderList(const TCustomQuorDetailDataControl* detail) {
  captions_.clear();
  for (int row = 0; row < Count(); ++row) {
    const int field = Attribute(row);
    captions_.push_back(detail && row >= ownCount_ ? detail->GetHeader(field)
                                                   : HeaderCaption(field));
  }
}

} // namespace Quorpricedatacontrol
