#pragma once

#include "host/view/ColumnInfo.h"
#include "preferences/BrokerList.h"

#include <QAbstractTableModel>

namespace Quorpricepreference {

/// Tags of the columns.
enum TBrokerColumn { tagDelete = 25, tagBrokerID = 45, tagColour = 200 };

/// The rows of highlighted brokers behind the page's list. Columns are known by their tags. A
/// value that is absent is an invalid variant; a colour is a 32-bit number, and may be set as a
/// QColor too. What is no ID of a broker is refused. The texts to be shown are the broker with its
/// name, and the name of the colour.
class TBrokerListModel : public QAbstractTableModel {
public:
  /// Roles of the header: the column's tag, and its width as the list of columns says it.
  static constexpr int TagRole = Qt::UserRole;
  static constexpr int WidthRole = Qt::UserRole + 1;

  TBrokerListModel(std::vector<Columninfo::TColumnInfo> columns, QObject* parent);

  int TagOf(int column) const;
  /// The column with the tag; -1 for none.
  int ColumnOf(int tag) const;
  const std::vector<TBrokerRow>& Rows() const { return rows_; }
  /// Cells that are there before and after stay: focused, and their open editor with the new value.
  void SetRows(std::vector<TBrokerRow> rows);
  /// Empty rows are added, or rows removed, at the end.
  void SetRowCount(int count);
  void RemoveRow(int row);
  void SetCaption(int tag, const QString& caption);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
  std::vector<Columninfo::TColumnInfo> columns_;
  std::vector<QString> captions_; ///< a column each
  std::vector<TBrokerRow> rows_;
};

} // namespace Quorpricepreference
