#include "model/DepthLadder.h"

#include "host/BaseFormatter.h"
#include "host/BaseMarketAdapter.h"
#include "host/ConstDef.h"
#include "model/ResourceText.h"
#include "text/Numbers.h"

namespace Quorpricedatacontrol {

using Baseformatter::TCustomFormatter;
using Basemarketadapter::TCustomMarketAdapter;

namespace {

bool IsLevel(int level) { return level >= 0 && level < Field::DepthLevels; }

int FieldOf(const std::array<int, Field::DepthLevels>& fields, int level) {
  return fields[static_cast<std::size_t>(level)];
}

/// The best level is no evidence: its fields exist in every feed.
TMarketDataType DetectOnSide(const TCustomSubItem& record, const Field::TSideFields& fields) {
  for (int level = 1; level < Field::DepthLevels; ++level)
    if (record.HasValue(FieldOf(fields.Size, level)))
      return record.HasValue(FieldOf(fields.Price, level)) ? mdtPriced : mdtOrderCount;
  return mdtUnknown;
}

std::string OrderCountText(const TCustomSubItem* record, int field) {
  const int count = IsReady(record) ? Text::ParseInteger(record->GetText(field)).value_or(0) : 0;
  if (count <= 0)
    return {};
  return '(' + TCustomFormatter::GetInstance()->FormatNumber(count, 0) + ')';
}

} // namespace

const Field::TSideFields* FieldsOf(int side) {
  if (side == Side::Bid)
    return &Field::Bid;
  return side == Side::Ask ? &Field::Ask : nullptr;
}

std::optional<TLevelPosition> LevelOfPriceField(int field) {
  for (const int side : {Side::Bid, Side::Ask})
    for (int level = 0; level < Field::DepthLevels; ++level)
      if (FieldOf(FieldsOf(side)->Price, level) == field)
        return TLevelPosition{side, level};
  return std::nullopt;
}

std::optional<TDepthColumn> DepthColumnOf(int column) {
  switch (column) {
  case Column::BidPrice:
    return TDepthColumn{Side::Bid, TDepthColumn::Price};
  case Column::BidSize:
    return TDepthColumn{Side::Bid, TDepthColumn::Size};
  case Column::AskPrice:
    return TDepthColumn{Side::Ask, TDepthColumn::Price};
  case Column::AskSize:
    return TDepthColumn{Side::Ask, TDepthColumn::Size};
  default:
    return std::nullopt;
  }
}

TDepthRow DepthRowAt(TQuorMode mode, int row) {
  const TDepthRows rows = DepthRowsOf(mode);
  if (row == rows.BestPrice)
    return {TDepthRow::BestPrice};
  if (row == rows.PriceStep)
    return {TDepthRow::PriceStep};
  if (row >= rows.FirstLevel && row < rows.FirstLevel + Field::DepthLevels)
    return {TDepthRow::Level, row - rows.FirstLevel};
  return {};
}

TDepthRow ShownDepthRowAt(TQuorMode mode, int row) {
  const TDepthRow depthRow = DepthRowAt(mode, row);
  return depthRow.LevelIndex < DepthRowsOf(mode).Levels ? depthRow : TDepthRow{};
}

std::string SizeLabel(TDepthRow::TContent content, int side) {
  if (content == TDepthRow::BestPrice)
    return ResourceText(side == Side::Bid ? "Res_Bid" : "Res_Ask");
  return ResourceText(side == Side::Bid ? "Res_BidSize" : "Res_AskSize");
}

TMarketDataType DetectMarketDataType(const TCustomSubItem& record) {
  const TMarketDataType type = DetectOnSide(record, Field::Bid);
  return type != mdtUnknown ? type : DetectOnSide(record, Field::Ask);
}

std::string BestPriceText(const TCustomSubItem* record, int side) {
  const Field::TSideFields* fields = FieldsOf(side);
  return fields ? PriceText(record, fields->Price.front()) : std::string();
}

std::string BestPriceStepText(const TCustomSubItem* record, int side) {
  const Field::TSideFields* fields = FieldsOf(side);
  if (!fields || !IsReady(record) || record->GetText(fields->Price.front()).empty())
    return {};
  const auto* table = ReadySpreadTable(*record);
  if (!table)
    return {};
  const double step = table->PriceStep(record->GetNumber(fields->Price.front()));
  return step > 0 ? TCustomFormatter::GetInstance()->FormatPrice(record->Symbol(), 0, step)
                  : std::string();
}

std::string LevelPriceText(const TCustomSubItem* record, TMarketDataType type, int level,
                           int side) {
  const Field::TSideFields* fields = FieldsOf(side);
  if (!fields || !IsLevel(level) || type == mdtUnknown)
    return {};
  return type == mdtPriced ? PriceText(record, FieldOf(fields->Price, level))
                           : OrderCountText(record, FieldOf(fields->Count, level));
}

std::string LevelSizeText(const TCustomSubItem* record, int level, int side) {
  const Field::TSideFields* fields = FieldsOf(side);
  return fields && IsLevel(level) ? VolumeText(record, FieldOf(fields->Size, level))
                                  : std::string();
}

const Basemarketadapter::TCustomSpreadTable* ReadySpreadTable(const TCustomSubItem& record) {
  const std::string_view code = record.GetText(Field::SpreadCode);
  const auto* table =
      code.empty() ? nullptr : TCustomMarketAdapter::GetInstance()->GetSpreadTable(code);
  return table && table->State() == Constdef::SpreadState_Ready ? table : nullptr;
}

} // namespace Quorpricedatacontrol
