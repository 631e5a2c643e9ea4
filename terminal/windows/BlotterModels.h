#pragma once

#include "terminal/trading/OrderDesk.h"
#include "terminal/trading/OrderFigures.h"

#include <QAbstractTableModel>

namespace Terminal {

/// The user's orders, the latest first. Price and quantity of an order that is alive can be edited;
/// the change is asked of the market, and shows once the market has made it.
class TOrdersModel : public QAbstractTableModel {
  Q_OBJECT

public:
  enum TColumn {
    NumberColumn,
    TimeColumn,
    SymbolColumn,
    SideColumn,
    PriceColumn,
    QuantityColumn,
    FilledColumn,
    AverageColumn,
    StatusColumn,
    ReasonColumn,
    Columns
  };

  /// Both outlive the model.
  TOrdersModel(TServices& services, TOrderDesk& desk, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// `value` is the text of a price or quantity; false for any other, which is told as refused.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  const Data::TUserOrder& Order(const QModelIndex& index) const;

signals:
  /// The user has given an order another figure, and the market is asked next.
  void ChangeAsked();
  /// What the user typed is no figure, and order `number` stays as it is; `reason` is a language
  /// key.
  void Refused(int number, const QString& reason);

private:
  QString Text(const Data::TUserOrder& order, int column) const;
  int RowOf(int number) const;
  void ApplyOrder(const Data::TUserOrder& order);

  TOrderDesk& desk_;
  TOrderFigures figures_;
  int rows_ = 0; ///< as told to the views
};

/// The user's trades, the latest first.
class TTradesModel : public QAbstractTableModel {
  Q_OBJECT

public:
  enum TColumn {
    TimeColumn,
    OrderColumn,
    SymbolColumn,
    SideColumn,
    PriceColumn,
    QuantityColumn,
    AmountColumn,
    Columns
  };

  /// Both outlive the model.
  TTradesModel(TServices& services, TOrderDesk& desk, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  QString Text(const Data::TUserTrade& trade, int column) const;

  TOrderDesk& desk_;
  TOrderFigures figures_;
  int rows_ = 0; ///< as told to the views
};

} // namespace Terminal
