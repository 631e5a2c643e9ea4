#include "model/QuorPerclickDataControl.h"

#include "host/BaseSubscribeAdapter.h"
#include "model/RecordFields.h"
#include "model/ResourceText.h"

namespace Quorpricedatacontrol {

using Basesubscribeadapter::TCustomSubscribeAdapter;

namespace {

/// Rows of the best-price grid.
enum TBestPriceRow { rowPrice, rowStep, rowSize, BestPriceRowCount };

std::string LabelText(int side, std::string_view ofBid, std::string_view ofAsk) {
  return ResourceText(side == Side::Bid ? ofBid : ofAsk);
}

/// The field that a click in a column of the best-price grid copies.
int BestPriceCellField(int column) {
  switch (column) {
  case Column::BidPrice:
  case Column::BidSize:
    return Field::BestBid;
  case Column::AskPrice:
  case Column::AskSize:
    return Field::BestAsk;
  case Column::HeaderValue:
    return Field::Nominal;
  default:
    return Field::None;
  }
}

/// Rows of the summary grid.
enum TInfoRow { rowUpperLabel, rowUpperValue, rowLowerLabel, rowLowerValue, InfoRowCount };

/// A label over a value, and the price field that a click on either copies.
struct TInfoPair {
  std::string_view LabelKey;
  int ValueField;
  int CopiedField;
};

/// A column of the summary grid.
struct TInfoColumn {
  TInfoPair Upper, Lower;
};

/// What is no price copies the nominal price.
constexpr TInfoColumn InfoColumns[] = {
    {{"Res_OpenPrice", Field::Open, Field::Open}, {"Res_Volume", Field::Volume, Field::Nominal}},
    {{"Res_HighPrice", Field::High, Field::High},
     {"Res_TurnOver", Field::Turnover, Field::Nominal}},
    {{"Res_LowPrice", Field::Low, Field::Low}, {"Res_LotSize", Field::LotSize, Field::Nominal}},
    {{"Res_PreClose", Field::PreviousClose, Field::PreviousClose},
     {"Res_High_52wks", Field::High52Weeks, Field::High52Weeks}},
    {{"Res_Currency", Field::Currency, Field::Nominal},
     {"Res_Low_52wks", Field::Low52Weeks, Field::Low52Weeks}},
};

/// Null for a cell that does not exist.
const TInfoPair* InfoPairAt(int row, int column) {
  if (row < 0 || row >= InfoRowCount || column < Column::InfoOpen || column > Column::InfoCurrency)
    return nullptr;
  const TInfoColumn& infoColumn = InfoColumns[column - Column::InfoOpen];
  return row <= rowUpperValue ? &infoColumn.Upper : &infoColumn.Lower;
}

} // namespace

int TPerclickQuorMarketDataControl::GetCount() const { return BestPriceRowCount; }

std::string TPerclickQuorMarketDataControl::GetDisplayValue(int row, int column) const {
  switch (column) {
  case Column::BidPrice:
    return GetPriceValue(row, Side::Bid);
  case Column::AskPrice:
    return GetPriceValue(row, Side::Ask);
  case Column::BidSize:
    return GetSizeValue(row, Side::Bid);
  case Column::AskSize:
    return GetSizeValue(row, Side::Ask);
  default:
    return {};
  }
}

std::string TPerclickQuorMarketDataControl::GetPriceValue(int row, int side) const {
  switch (row) {
  case rowPrice:
    return GetBestPrice(side);
  case rowStep:
    return GetBestPriceSpread(side);
  default:
    return {};
  }
}

std::string TPerclickQuorMarketDataControl::GetSizeValue(int row, int side) const {
  if (!FieldsOf(side))
    return {};
  switch (row) {
  case rowPrice:
    return LabelText(side, "Res_Bid", "Res_Ask");
  case rowStep:
    return LabelText(side, "Res_BidSize", "Res_AskSize");
  case rowSize:
    return LevelSizeText(Record(), 0, side);
  default:
    return {};
  }
}

void TPerclickQuorMarketDataControl::UpdateRelated() {
  if (OnRelatedChange)
    OnRelatedChange(this);
}

void TPerclickQuorMarketDataControl::CopyPrice(int, int column) {
  const int field = BestPriceCellField(column);
  if (!Record() || field == Field::None)
    return;
  StartOrder().FillFromField(CopySource(), field, column);
  SendOrder();
}

std::string TPerclickQuorMarketDataControl::GetLastUpdateTime() const {
  return std::string(TextOf(Record(), Field::UpdateTime));
}

void TPerclickQuorMarketDataControl::RefreshPrice() {
  if (Record())
    TCustomSubscribeAdapter::GetInstance()->Refresh(Record()->Symbol());
}

int TPerclickQuorInfoMarketDataControl::GetCount() const { return InfoRowCount; }

std::string TPerclickQuorInfoMarketDataControl::GetDisplayValue(int row, int column) const {
  const TInfoPair* pair = InfoPairAt(row, column);
  if (!pair)
    return {};
  const bool isLabel = row == rowUpperLabel || row == rowLowerLabel;
  return isLabel ? ResourceText(pair->LabelKey) : GetCellHeaderDisplayData(pair->ValueField);
}

void TPerclickQuorInfoMarketDataControl::CopyPrice(int row, int column) {
  const TInfoPair* pair = InfoPairAt(row, column);
  if (!Record() || !pair)
    return;
  StartOrder().FillFromHeader(CopySource(), pair->CopiedField);
  SendOrder();
}

} // namespace Quorpricedatacontrol
