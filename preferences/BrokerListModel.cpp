#include "preferences/BrokerListModel.h"

#include "platform/Colour.h"
#include "preferences/BrokerNames.h"
#include "preferences/NamedColours.h"

#include <algorithm>

namespace Quorpricepreference {

namespace {

std::optional<System::TColor> ColourOf(const QVariant& value) {
  if (!value.isValid())
    return std::nullopt;
  if (value.typeId() == QMetaType::QColor)
    return Platform::FromQColor(value.value<QColor>());
  return value.toUInt();
}

std::optional<std::string> IDOf(const QVariant& value) {
  if (!value.isValid())
    return std::nullopt;
  return value.toString().toStdString();
}

/// The value that is edited.
QVariant ValueOf(const TBrokerRow& row, int tag) {
  if (tag == tagBrokerID && row.ID)
    return QString::fromStdString(*row.ID);
  if (tag == tagColour && row.Colour)
    return *row.Colour;
  return {};
}

QString TextOf(const TBrokerRow& row, int tag) {
  if (tag == tagBrokerID && row.ID)
    return BrokerText(QString::fromStdString(*row.ID));
  return tag == tagColour ? ColourName(row.Colour) : QString();
}

} // namespace

TBrokerListModel::TBrokerListModel(std::vector<Columninfo::TColumnInfo> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)), captions_(columns_.size()) {}

int TBrokerListModel::TagOf(int column) const {
  return columns_[static_cast<std::size_t>(column)].ID;
}

int TBrokerListModel::ColumnOf(int tag) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(),
                                  [tag](const auto& column) { return column.ID == tag; });
  return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

void TBrokerListModel::SetRows(std::vector<TBrokerRow> rows) {
  SetRowCount(static_cast<int>(rows.size()));
  rows_ = std::move(rows);
  // An open editor takes a changed value only when told of its cell alone.
  for (int row = 0; row < rowCount(); ++row)
    for (int column = 0; column < columnCount(); ++column)
      emit dataChanged(index(row, column), index(row, column));
}

void TBrokerListModel::SetRowCount(int count) {
  const int before = rowCount();
  if (count > before) {
    beginInsertRows({}, before, count - 1);
    rows_.resize(static_cast<std::size_t>(count));
    endInsertRows();
  } else if (count < before) {
    beginRemoveRows({}, count, before - 1);
    rows_.resize(static_cast<std::size_t>(count));
    endRemoveRows();
  }
}

void TBrokerListModel::RemoveRow(int row) {
  if (row < 0 || row >= rowCount())
    return;
  beginRemoveRows({}, row, row);
  rows_.erase(rows_.begin() + row);
  endRemoveRows();
}

void TBrokerListModel::SetCaption(int tag, const QString& caption) {
  const int column = ColumnOf(tag);
  if (column < 0)
    return;
  captions_[static_cast<std::size_t>(column)] = caption;
  emit headerDataChanged(Qt::Horizontal, column, column);
}

int TBrokerListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int TBrokerListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant TBrokerListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  const auto& row = rows_[static_cast<std::size_t>(index.row())];
  const int tag = TagOf(index.column());
  switch (role) {
  case Qt::EditRole:
    return ValueOf(row, tag);
  case Qt::DisplayRole:
    return TextOf(row, tag);
  case Qt::AccessibleTextRole:
    return tag == tagDelete ? captions_[static_cast<std::size_t>(index.column())]
                            : TextOf(row, tag);
  default:
    return {};
  }
}

bool TBrokerListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole)
    return false;
  auto& row = rows_[static_cast<std::size_t>(index.row())];
  switch (TagOf(index.column())) {
  case tagBrokerID: {
    auto id = IDOf(value);
    if (id && !IsBrokerID(*id))
      return false;
    row.ID = std::move(id);
    break;
  }
  case tagColour:
    row.Colour = ColourOf(value);
    break;
  default:
    return false;
  }
  emit dataChanged(index, index);
  return true;
}

QVariant TBrokerListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal)
    return {};
  const auto column = static_cast<std::size_t>(section);
  switch (role) {
  case Qt::DisplayRole:
    return captions_[column];
  case Qt::TextAlignmentRole:
    return int((columns_[column].RightAligned ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  case TagRole:
    return columns_[column].ID;
  case WidthRole:
    return columns_[column].Width;
  default:
    return {};
  }
}

Qt::ItemFlags TBrokerListModel::flags(const QModelIndex& index) const {
  const auto flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (!index.isValid() || TagOf(index.column()) == tagDelete)
    return flags;
  return flags | Qt::ItemIsEditable;
}

} // namespace Quorpricepreference
