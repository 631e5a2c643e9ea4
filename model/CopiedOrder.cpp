#include "model/CopiedOrder.h"

#include "host/BaseGlobalChannelManager.h"
#include "host/BaseOrderAdapter.h"
#include "host/ConstDef.h"
#include "host/DataDef.h"
#include "model/HeaderRows.h"
#include "text/Numbers.h"

namespace Quorpricedatacontrol {

using Baseglobalchannelmanager::TCustomGlobalChannelManager;
using Baseorderadapter::TCustomOrderAdapter;

namespace {

constexpr std::string_view OrderFlagsOfBid = "1";

double SizeDownTo(const TCustomSubItem& record, TLevelPosition position) {
  const auto& sizes = FieldsOf(position.Side)->Size;
  double sum = 0;
  for (int level = 0; level <= position.Level; ++level)
    sum += record.GetNumber(sizes[static_cast<std::size_t>(level)]);
  return sum;
}

/// The price of a level that is published without one: as many steps beyond the best price as the
/// level lies below it in the book.
std::optional<double> PriceFromBest(const TCustomSubItem& record, TLevelPosition position) {
  const auto* table = ReadySpreadTable(record);
  const auto best = Text::ParseNumber(record.GetText(FieldsOf(position.Side)->Price.front()));
  if (!table || !best)
    return std::nullopt;
  const int steps = position.Side == Side::Bid ? -position.Level : position.Level;
  const double price = table->PriceStepsAway(*best, steps);
  return price > 0 ? std::optional(price) : std::nullopt;
}

std::optional<double> LevelPrice(const TCopySource& source, int field, TLevelPosition position) {
  if (source.Record.HasValue(field))
    return source.Record.GetNumber(field);
  return source.DepthType == mdtOrderCount ? PriceFromBest(source.Record, position) : std::nullopt;
}

/// In the default style, a click on the best size asks for that size by its column.
int QuantityField(int field, TLevelPosition position, int column) {
  const bool isBestSize = position.Level == 0 &&
                          DepthColumnOf(column) == TDepthColumn{position.Side, TDepthColumn::Size};
  return isBestSize ? column : field;
}

} // namespace

int DepthCellField(TQuorMode mode, int row, int column) {
  const auto depthColumn = DepthColumnOf(column);
  if (!depthColumn)
    return Field::None;
  const auto& prices = FieldsOf(depthColumn->Side)->Price;
  const TDepthRow depthRow = DepthRowAt(mode, row);
  switch (depthRow.Content) {
  case TDepthRow::BestPrice:
    return prices.front();
  case TDepthRow::Level:
    return prices[static_cast<std::size_t>(depthRow.LevelIndex)];
  default:
    return Field::None;
  }
}

double CopyPriceQuantity(const TCustomSubItem* record, TCopyPriceQtyMode mode, int field) {
  if (!record)
    return 0;
  switch (mode) {
  case cpqmDefault:
    return field == Field::BestBidSize || field == Field::BestAskSize ? record->GetNumber(field)
                                                                      : 0;
  case cpqmOneLot:
    return record->GetNumber(Field::BoardLot);
  case cpqmSummary: {
    const auto position = LevelOfPriceField(field);
    return position ? SizeDownTo(*record, *position) : 0;
  }
  default:
    return 0;
  }
}

TCopiedOrder::TCopiedOrder() : order_(TCustomOrderAdapter::GetInstance()->NewOrder()) {}

void TCopiedOrder::Start(std::string_view symbol) {
  order_->Clear();
  order_->SetSymbol(symbol);
}

void TCopiedOrder::FillFromField(const TCopySource& source, int field, int column) {
  if (const auto position = LevelOfPriceField(field))
    FillFromLevel(source, field, *position, column);
  else if (CopiesPrice(field))
    FillFromHeader(source, field);
}

void TCopiedOrder::FillFromLevel(const TCopySource& source, int field, TLevelPosition position,
                                 int column) {
  if (const auto price = LevelPrice(source, field, position))
    order_->SetPrice(*price);
  const int quantityField =
      source.Mode == cpqmDefault ? QuantityField(field, position, column) : field;
  order_->SetQuantity(CopyPriceQuantity(&source.Record, source.Mode, quantityField));
  if (position.Side == Side::Bid)
    order_->SetValue(Constdef::OrderValue_Flags, OrderFlagsOfBid);
}

void TCopiedOrder::FillFromHeader(const TCopySource& source, int field) {
  if (source.Record.HasValue(field))
    order_->SetPrice(source.Record.GetNumber(field));
  if (source.Mode == cpqmOneLot)
    order_->SetQuantity(CopyPriceQuantity(&source.Record, source.Mode, field));
}

void TCopiedOrder::Send(System::TObject* sender, const std::string& group) {
  Datadef::TCopyOrderRecord message;
  message.Order = order_.get();
  message.Kind = Constdef::View_QuorPrice;
  message.Source = group;
  TCustomGlobalChannelManager::GetInstance()->Send(Constdef::Channel_CopyOrder, sender, &message);
}

} // namespace Quorpricedatacontrol
