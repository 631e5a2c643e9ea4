#include "model/QuorPerclickDataControl.h"

#include "host/BaseSubscribeAdapter.h"
#include "model/ResourceText.h"

namespace Quorpricedatacontrol {

using Basesubscribeadapter::TCustomSubscribeAdapter;

namespace {

/// The field that a click in a column of the best-price grid copies.
int BestPriceCellField(int column) {
  if (const auto depthColumn = DepthColumnOf(column))
    return FieldsOf(depthColumn->Side)->Price.front();
  return column == Column::HeaderValue ? Field::Nominal : Field::None;
}

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
    {{"Res_LowPrice", Field::Low, Field::Low}, {"Res_LotSize", Field::BoardLot, Field::Nominal}},
    {{"Res_PreClose", Field::PreviousClose, Field::PreviousClose},
     {"Res_High_52wks", Field::High52Weeks, Field::High52Weeks}},
    {{"Res_Currency", Field::Currency, Field::Nominal},
     {"Res_Low_52wks", Field::Low52Weeks, Field::Low52Weeks}},
};

/// Null for a cell that does not exist.
const TInfoPair* InfoPairAt(int row, int column) {
  if (row < 0 || row >= InfoRow::Count || column < Column::InfoOpen ||
      column > Column::InfoCurrency)
    return nullptr;
  const TInfoColumn& infoColumn = InfoColumns[column - Column::InfoOpen];
  return row <= InfoRow::UpperValue ? &infoColumn.Upper : &infoColumn.Lower;
}

} // namespace

int TPerclickQuorMarketDataControl::GetCount() const { return BestPriceRow::Count; }

std::string TPerclickQuorMarketDataControl::GetDisplayValue(int row, int column) const {
  const auto depthColumn = DepthColumnOf(column);
  return depthColumn ? GetDepthValue(row, *depthColumn) : std::string();
}

std::string TPerclickQuorMarketDataControl::GetPriceValue(int row, int side) const {
  switch (row) {
  case BestPriceRow::Price:
    return GetBestPrice(side);
  case BestPriceRow::Step:
    return GetBestPriceSpread(side);
  default:
    return {};
  }
}

std::string TPerclickQuorMarketDataControl::GetSizeValue(int row, int side) const {
  if (!FieldsOf(side))
    return {};
  switch (row) {
  case BestPriceRow::Price:
    return SizeLabel(TDepthRow::BestPrice, side);
  case BestPriceRow::Step:
    return SizeLabel(TDepthRow::PriceStep, side);
  case BestPriceRow::Size:
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

int TPerclickQuorInfoMarketDataControl::GetCount() const { return InfoRow::Count; }

std::string TPerclickQuorInfoMarketDataControl::GetDisplayValue(int row, int column) const {
  const TInfoPair* pair = InfoPairAt(row, column);
  if (!pair)
    return {};
  const bool isLabel = row == InfoRow::UpperLabel || row == InfoRow::LowerLabel;
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
