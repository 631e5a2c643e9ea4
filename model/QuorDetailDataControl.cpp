#include "model/QuorDetailDataControl.h"

#include "host/BaseFormatter.h"
#include "host/BaseSubscribeAdapter.h"
#include "host/ConstDef.h"
#include "model/ResourceText.h"

#include <cmath>

namespace Quorpricedatacontrol {

using Baseformatter::TCustomFormatter;
using Basesubscribeadapter::TCustomSubscribeAdapter;

namespace {

/// Decimals at most.
constexpr int PricePrecision = 8;
constexpr int RatioPrecision = 6;
/// A conversion ratio below it reads as a fraction.
constexpr double SmallestPlainRatio = 0.05;

// Flags of number texts.
constexpr int WholeNumber = 0;
constexpr int TwoDecimals = 1;

std::vector<int> FieldsOfInstrument(int productType, bool isCBBC) {
  using namespace Field;
  if (productType == Constdef::ProductType_Stock)
    return {IssueSize, MarketCap, PriceEarnings, DividendYield};
  if (productType != Constdef::ProductType_Warrant)
    return {};
  if (isCBBC)
    return {Underlying,  ExpiryDate,      StrikePrice, CallPrice, CallPut, Category,
            OptionStyle, ConversionRatio, IssueSize,   Premium,   Gearing};
  return {Underlying,      ExpiryDate, StrikePrice, CallPut, OptionStyle,
          ConversionRatio, IssueSize,  Premium,     Gearing};
}

std::string_view HeaderKey(int field, int productType) {
  switch (field) {
  case Field::Underlying:
    return "Res_Underlyer";
  case Field::ExpiryDate:
    return "Res_ExpiryDate";
  case Field::StrikePrice:
    return "Res_StrikePrice";
  case Field::CallPrice:
    return "Res_Call_Price";
  case Field::CallPut:
    return "Res_CallPut";
  case Field::Category:
    return "Res_Category";
  case Field::OptionStyle:
    return "Res_OptionStyle";
  case Field::ConversionRatio:
    return "Res_Conversion_Ratio";
  case Field::IssueSize:
    return productType == Constdef::ProductType_Warrant ? "Res_IssueSize" : "Res_IssuedShares";
  case Field::Premium:
    return "Res_Premium";
  case Field::Gearing:
    return "Res_Gearing";
  case Field::MarketCap:
    return "Res_MarketCap";
  case Field::PriceEarnings:
    return "Res_PE";
  case Field::DividendYield:
    return "Res_Yield";
  default:
    return {};
  }
}

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

std::string CallPutText(const TCustomSubItem& record) {
  switch (GetCallPutFlag(&record)) {
  case cpfCall:
    return ResourceText("Res_Call");
  case cpfPut:
    return ResourceText("Res_Put");
  default:
    return {};
  }
}

std::string OptionStyleText(const TCustomSubItem& record) {
  const auto style = record.GetText(Field::OptionStyle);
  if (style == "1")
    return ResourceText("Res_OptionStyle_EU");
  return style == "2" ? ResourceText("Res_OptionStyle_US") : std::string(style);
}

std::string ConversionRatioText(const TCustomSubItem& record) {
  const double ratio = record.GetNumber(Field::ConversionRatio);
  if (!IsZero(ratio) && ratio < SmallestPlainRatio)
    return "1/" + std::to_string(std::llround(1 / ratio));
  return PriceTextUnlessZero(record, ratio, RatioPrecision);
}

/// The feed's own figure times `factor`.
std::string FeedFigureText(const TCustomSubItem& record, int field, double factor, int flag) {
  if (record.GetText(field).empty())
    return {};
  return NumberText(record.GetNumber(field) * factor, flag);
}

} // namespace

TCustomQuorDetailDataControl::TCustomQuorDetailDataControl(System::TObject* owner,
                                                           TIssueSizeStyle issueSizeStyle)
    : TCustomDataControl(owner), issueSizeStyle_(issueSizeStyle) {}

TCustomQuorDetailDataControl::~TCustomQuorDetailDataControl() { ReleaseRecords(); }

void TCustomQuorDetailDataControl::SetSymbol(std::string symbol) {
  if (symbol == symbol_)
    return;
  ReleaseRecords();
  symbol_ = std::move(symbol);
  record_ = Subscribe(symbol_);
  if (IsReady(record_))
    // A copy: subscribing may update the record.
    if (const std::string underlying(Trim(record_->GetText(Field::Underlying)));
        !underlying.empty())
      underlying_ = Subscribe(underlying);
  InitDataList();
  Changed();
}

TCustomSubItem* TCustomQuorDetailDataControl::Subscribe(std::string_view symbol) {
  auto* adapter = TCustomSubscribeAdapter::GetInstance();
  TCustomSubItem* record = adapter->Subscribe(symbol, Constdef::DataSet_Prices, true);
  if (record)
    adapter->SetUpdateHandler(
        record,
        [this](System::TObject* sender, System::TObject* data) { SymbolUpdate(sender, data); },
        this);
  return record;
}

void TCustomQuorDetailDataControl::ReleaseRecords() {
  for (TCustomSubItem* record : {record_, underlying_})
    if (record)
      TCustomSubscribeAdapter::GetInstance()->Release(record, this);
  record_ = nullptr;
  underlying_ = nullptr;
}

void TCustomQuorDetailDataControl::InitDataList() {
  const auto [isCBBC, category] = DetectCBBCWarrant(record_);
  category_ = category;
  productType_ =
      IsReady(record_) ? ParseInteger(record_->GetText(Field::ProductType)).value_or(0) : 0;
  fields_ = FieldsOfInstrument(productType_, isCBBC);
  InitHeaders();
}

void TCustomQuorDetailDataControl::InitHeaders() {
  headers_.clear();
  for (const int field : fields_)
    headers_.push_back(GetHeader(field));
}

void TCustomQuorDetailDataControl::UpdateLanguage() {
  InitHeaders();
  Changed();
}

void TCustomQuorDetailDataControl::SymbolUpdate(System::TObject*, System::TObject* data) {
  if (data && (data == record_ || data == underlying_))
    Changed();
}

std::string TCustomQuorDetailDataControl::GetDisplayValue(int row, int column) const {
  if (row < 0 || row >= GetCount())
    return {};
  switch (column) {
  case DetailColumn::Label:
    return headers_[static_cast<std::size_t>(row)];
  case DetailColumn::Value:
    return GetDisplayText(fields_[static_cast<std::size_t>(row)]);
  default:
    return {};
  }
}

std::string TCustomQuorDetailDataControl::GetHeader(int field) const {
  const auto key = HeaderKey(field, productType_);
  return key.empty() ? std::string() : ResourceText(key);
}

std::string TCustomQuorDetailDataControl::GetDisplayText(int field) const {
  if (!record_)
    return {};
  switch (field) {
  case Field::Underlying:
  case Field::ExpiryDate:
  case Field::PriceEarnings:
  case Field::DividendYield:
    return std::string(record_->GetText(field));
  case Field::StrikePrice:
  case Field::CallPrice:
    return PriceTextUnlessZero(*record_, record_->GetNumber(field), PricePrecision);
  case Field::CallPut:
    return CallPutText(*record_);
  case Field::Category:
    return category_;
  case Field::OptionStyle:
    return OptionStyleText(*record_);
  case Field::ConversionRatio:
    return ConversionRatioText(*record_);
  case Field::IssueSize:
    return IssueSizeText();
  case Field::Premium:
    return PremiumText();
  case Field::Gearing:
    return GearingText();
  case Field::MarketCap:
    return MarketCapText();
  default:
    return {};
  }
}

std::string TCustomQuorDetailDataControl::IssueSizeText() const {
  if (record_->GetText(Field::IssueSize).empty())
    return {};
  const double size = record_->GetNumber(Field::IssueSize);
  return issueSizeStyle_ == TIssueSizeStyle::Amount ? AmountText(*record_, size)
                                                    : NumberText(size, WholeNumber);
}

std::string TCustomQuorDetailDataControl::PremiumText() const {
  if (productType_ == Constdef::ProductType_Warrant)
    return NumberTextUnlessZero(GetPremium(record_, underlying_), TwoDecimals);
  return FeedFigureText(*record_, Field::Premium, 100, TwoDecimals);
}

std::string TCustomQuorDetailDataControl::GearingText() const {
  if (productType_ == Constdef::ProductType_Warrant)
    return NumberTextUnlessZero(GetGearing(record_, underlying_), TwoDecimals);
  return FeedFigureText(*record_, Field::Gearing, 1, TwoDecimals);
}

std::string TCustomQuorDetailDataControl::MarketCapText() const {
  if (productType_ != Constdef::ProductType_Stock)
    return FeedFigureText(*record_, Field::MarketCap, 1, WholeNumber);
  const double capitalisation = GetMarketCap(record_);
  return IsZero(capitalisation) ? std::string() : AmountText(*record_, capitalisation);
}

} // namespace Quorpricedatacontrol
