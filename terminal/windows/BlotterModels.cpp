#include "terminal/windows/BlotterModels.h"

#include "terminal/services/Services.h"
#include "terminal/windows/Table.h"
#include "terminal/windows/WindowTexts.h"
#include "text/TimeOfDay.h"

namespace Terminal {

using namespace Data;

namespace {

constexpr const char* orderKeys[TOrdersModel::Columns] = {
    "Term_OrderNumber", "Term_Time",   "Term_Symbol",       "Term_Side",   "Term_Price",
    "Term_Quantity",    "Term_Filled", "Term_AveragePrice", "Term_Status", "Term_Reason"};
constexpr const char* tradeKeys[TTradesModel::Columns] = {
    "Term_Time",  "Term_OrderNumber", "Term_Symbol", "Term_Side",
    "Term_Price", "Term_Quantity",    "Term_Amount"};

QString TimeText(Text::TTimeOfDay time) { return QString::fromStdString(Text::ClockText(time)); }

TCellKind KindOf(TOrdersModel::TColumn column) {
  const bool isFigure =
      column == TOrdersModel::NumberColumn ||
      (column >= TOrdersModel::PriceColumn && column <= TOrdersModel::AverageColumn);
  return isFigure ? TCellKind::Figure : TCellKind::Text;
}

TCellKind KindOf(TTradesModel::TColumn column) {
  const bool isFigure = column == TTradesModel::OrderColumn || column >= TTradesModel::PriceColumn;
  return isFigure ? TCellKind::Figure : TCellKind::Text;
}

} // namespace

TOrdersModel::TOrdersModel(TServices& services, TOrderDesk& desk, QObject* parent)
    : QAbstractTableModel(parent), desk_(desk), figures_(services),
      rows_(static_cast<int>(desk.Orders().size())) {
  connect(&desk, &TOrderDesk::OrderChanged, this, &TOrdersModel::ApplyOrder);
  connect(&desk, &TOrderDesk::Reopened, this, [this] {
    beginResetModel();
    rows_ = static_cast<int>(desk_.Orders().size());
    endResetModel();
  });
}

int TOrdersModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int TOrdersModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : Columns;
}

const TUserOrder& TOrdersModel::Order(const QModelIndex& index) const {
  return desk_.Orders().at(static_cast<std::size_t>(rows_ - 1 - index.row()));
}

int TOrdersModel::RowOf(int number) const {
  const auto& orders = desk_.Orders();
  const auto found = std::find_if(orders.begin(), orders.end(),
                                  [&](const TUserOrder& order) { return order.Number == number; });
  return static_cast<int>(orders.end() - found) - 1;
}

void TOrdersModel::ApplyOrder(const TUserOrder& order) {
  const int row = RowOf(order.Number);
  if (static_cast<int>(desk_.Orders().size()) == rows_) {
    emit dataChanged(index(row, 0), index(row, Columns - 1));
    return;
  }
  beginInsertRows({}, row, row);
  ++rows_;
  endInsertRows();
}

QString TOrdersModel::Text(const TUserOrder& order, int column) const {
  switch (column) {
  case NumberColumn:
    return QString::number(order.Number);
  case TimeColumn:
    return TimeText(order.Entered);
  case SymbolColumn:
    return QString::fromStdString(order.Symbol);
  case SideColumn:
    return SideText(order.Side);
  case PriceColumn:
    return figures_.PriceText(order.Symbol, order.Price);
  case QuantityColumn:
    return figures_.QuantityText(order.Quantity);
  case FilledColumn:
    return figures_.QuantityText(order.Filled);
  case AverageColumn:
    return order.Filled > 0 ? QString::number(order.AveragePrice, 'f', 3) : QString();
  case StatusColumn:
    return WindowText(StatusKey(order.Status));
  case ReasonColumn:
    return order.Reason.empty() ? QString() : WindowText(order.Reason.c_str());
  default:
    return {};
  }
}

QVariant TOrdersModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole)
    return Text(Order(index), index.column());
  if (role == Qt::TextAlignmentRole)
    return AlignmentOf(KindOf(static_cast<TColumn>(index.column())));
  return {};
}

QVariant TOrdersModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal)
    return {};
  if (role == Qt::DisplayRole)
    return WindowText(orderKeys[section]);
  return role == Qt::TextAlignmentRole
             ? QVariant(AlignmentOf(KindOf(static_cast<TColumn>(section))))
             : QVariant();
}

Qt::ItemFlags TOrdersModel::flags(const QModelIndex& index) const {
  auto flags = QAbstractTableModel::flags(index);
  const bool isFigure = index.column() == PriceColumn || index.column() == QuantityColumn;
  flags.setFlag(Qt::ItemIsEditable, isFigure && Order(index).IsAlive());
  return flags;
}

bool TOrdersModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  const bool isPrice = index.column() == PriceColumn;
  if (role != Qt::EditRole || (!isPrice && index.column() != QuantityColumn))
    return false;
  const TUserOrder& order = Order(index);
  const QString text = value.toString();
  const auto price = isPrice ? TOrderFigures::ParsePrice(text) : order.Price;
  const auto quantity = isPrice ? order.Quantity : TOrderFigures::ParseQuantity(text);
  if (!price || !quantity) {
    emit Refused(order.Number, QString::fromLatin1(price ? "Term_NoQuantity" : "Term_NoPrice"));
    return false;
  }
  if (*price == order.Price && *quantity == order.Quantity)
    return true;
  // The order may be done by now; that the market says.
  emit ChangeAsked();
  desk_.Change(order.Number, *price, *quantity);
  return true;
}

TTradesModel::TTradesModel(TServices& services, TOrderDesk& desk, QObject* parent)
    : QAbstractTableModel(parent), desk_(desk), figures_(services),
      rows_(static_cast<int>(desk.Trades().size())) {
  connect(&desk, &TOrderDesk::Traded, this, [this] {
    beginInsertRows({}, 0, 0);
    ++rows_;
    endInsertRows();
  });
  connect(&desk, &TOrderDesk::Reopened, this, [this] {
    beginResetModel();
    rows_ = static_cast<int>(desk_.Trades().size());
    endResetModel();
  });
}

int TTradesModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int TTradesModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : Columns;
}

QString TTradesModel::Text(const TUserTrade& trade, int column) const {
  switch (column) {
  case TimeColumn:
    return TimeText(trade.Time);
  case OrderColumn:
    return QString::number(trade.Order);
  case SymbolColumn:
    return QString::fromStdString(trade.Symbol);
  case SideColumn:
    return SideText(trade.Side);
  case PriceColumn:
    return figures_.PriceText(trade.Symbol, trade.Price);
  case QuantityColumn:
    return figures_.QuantityText(trade.Quantity);
  case AmountColumn:
    return figures_.AmountText(trade.Symbol, trade.Price, trade.Quantity);
  default:
    return {};
  }
}

QVariant TTradesModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::DisplayRole)
    return Text(desk_.Trades().at(static_cast<std::size_t>(rows_ - 1 - index.row())),
                index.column());
  if (role == Qt::TextAlignmentRole)
    return AlignmentOf(KindOf(static_cast<TColumn>(index.column())));
  return {};
}

QVariant TTradesModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal)
    return {};
  if (role == Qt::DisplayRole)
    return WindowText(tradeKeys[section]);
  return role == Qt::TextAlignmentRole
             ? QVariant(AlignmentOf(KindOf(static_cast<TColumn>(section))))
             : QVariant();
}

} // namespace Terminal
