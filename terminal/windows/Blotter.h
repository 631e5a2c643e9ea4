#pragma once

#include "terminal/windows/BlotterModels.h"

#include <QLabel>
#include <QTabWidget>
#include <QTableView>

namespace Terminal {

/// The user's orders and trades of the day on the simulated market, with what was bought and sold.
/// F2 or Enter changes the price or quantity of the order that is chosen, Delete cancels it.
class TBlotter : public QWidget {
  Q_OBJECT

public:
  /// Both outlive the blotter.
  TBlotter(TServices& services, TOrderDesk& desk, QWidget* parent = nullptr);

  /// Takes the texts of the present language.
  void SetTexts();
  /// Puts the keyboard into the table of orders.
  void FocusOrders();

  QSize sizeHint() const override { return {600, 180}; }

protected:
  void changeEvent(QEvent* event) override;

private:
  void BuildOrders();
  void FitRows();
  void Edit(TOrdersModel::TColumn column);
  void CancelChosen();
  void ShowCounts();
  void ShowTotals();
  /// It stays in sight until the user asks for something else.
  void ShowRefusal(int number, const QString& reason);
  void ForgetRefusal();

  TServices& services_;
  TOrderDesk& desk_;
  TOrdersModel ordersModel_;
  TTradesModel tradesModel_;
  QTabWidget* tabs_;
  QTableView *orders_, *trades_;
  QAction *changePrice_, *changeQuantity_, *cancel_;
  QLabel *totals_, *refusal_;
  int refused_ = 0;    ///< number of an order
  QString refusalKey_; ///< why; empty when nothing was refused
};

} // namespace Terminal
