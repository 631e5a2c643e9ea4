#include "terminal/windows/Blotter.h"

#include "terminal/services/Services.h"
#include "terminal/windows/OrderDelegate.h"
#include "terminal/windows/Table.h"
#include "terminal/windows/WindowTexts.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include <map>

namespace Terminal {

using namespace Data;

TBlotter::TBlotter(TServices& services, TOrderDesk& desk, QWidget* parent)
    : QWidget(parent), services_(services), desk_(desk), ordersModel_(services, desk),
      tradesModel_(services, desk), tabs_(new QTabWidget), orders_(NewTable(ordersModel_)),
      trades_(NewTable(tradesModel_)), changePrice_(new QAction(orders_)),
      changeQuantity_(new QAction(orders_)), cancel_(new QAction(orders_)), totals_(new QLabel),
      refusal_(new QLabel) {
  orders_->setObjectName(QStringLiteral("orders"));
  trades_->setObjectName(QStringLiteral("trades"));
  totals_->setObjectName(QStringLiteral("totals"));
  refusal_->setObjectName(QStringLiteral("refusal"));
  BuildOrders();
  tabs_->setDocumentMode(true);
  tabs_->addTab(orders_, {});
  tabs_->addTab(trades_, {});
  for (auto* label : {totals_, refusal_})
    label->setWordWrap(true);
  for (auto* table : {orders_, trades_})
    table->horizontalHeader()->setStretchLastSection(true);
  refusal_->setAlignment(Qt::AlignRight);
  auto* line = new QHBoxLayout;
  line->addWidget(totals_, 1);
  line->addWidget(refusal_, 1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->addWidget(tabs_, 1);
  column->addLayout(line);
  connect(&desk, &TOrderDesk::OrderChanged, this, &TBlotter::ShowCounts);
  connect(&desk, &TOrderDesk::Traded, this, &TBlotter::ShowTotals);
  connect(&desk, &TOrderDesk::Refused, this, &TBlotter::ShowRefusal);
  connect(&ordersModel_, &TOrdersModel::Refused, this, &TBlotter::ShowRefusal);
  connect(&ordersModel_, &TOrdersModel::ChangeAsked, this, &TBlotter::ForgetRefusal);
  connect(&desk, &TOrderDesk::Reopened, this, [this] {
    ForgetRefusal();
    SetTexts();
  });
  FitRows();
  SetTexts();
}

void TBlotter::BuildOrders() {
  orders_->setEditTriggers(QAbstractItemView::DoubleClicked);
  orders_->setItemDelegate(new TOrderDelegate(services_, orders_));
  changePrice_->setShortcuts({Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter});
  changeQuantity_->setShortcut(Qt::SHIFT | Qt::Key_F2);
  cancel_->setShortcut(Qt::Key_Delete);
  const auto bind = [this](QAction* action, auto handler) {
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, handler);
    orders_->addAction(action);
  };
  bind(changePrice_, [this] {
    const bool isQuantity = orders_->currentIndex().column() == TOrdersModel::QuantityColumn;
    Edit(isQuantity ? TOrdersModel::QuantityColumn : TOrdersModel::PriceColumn);
  });
  bind(changeQuantity_, [this] { Edit(TOrdersModel::QuantityColumn); });
  bind(cancel_, &TBlotter::CancelChosen);
  orders_->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void TBlotter::FitRows() {
  const int height = fontMetrics().height() + 6;
  for (auto* table : {orders_, trades_}) {
    table->horizontalHeader()->setFont(font()); // headers have a font of their own
    table->verticalHeader()->setMinimumSectionSize(height);
    table->verticalHeader()->setDefaultSectionSize(height);
    for (int column = 0; column < table->model()->columnCount(); ++column)
      table->setColumnWidth(column, fontMetrics().horizontalAdvance(QStringLiteral("888,888.88")));
  }
}

void TBlotter::SetTexts() {
  changePrice_->setText(WindowText("Term_ChangePrice"));
  changeQuantity_->setText(WindowText("Term_ChangeQuantity"));
  cancel_->setText(WindowText("Term_CancelOrder"));
  emit ordersModel_.headerDataChanged(Qt::Horizontal, 0, TOrdersModel::Columns - 1);
  emit tradesModel_.headerDataChanged(Qt::Horizontal, 0, TTradesModel::Columns - 1);
  orders_->viewport()->update();
  trades_->viewport()->update();
  ShowRefusal(refused_, refusalKey_);
  ShowCounts();
  ShowTotals();
}

void TBlotter::FocusOrders() {
  tabs_->setCurrentWidget(orders_);
  orders_->setFocus(Qt::ShortcutFocusReason);
  if (!orders_->currentIndex().isValid())
    orders_->setCurrentIndex(ordersModel_.index(0, TOrdersModel::PriceColumn));
}

void TBlotter::Edit(TOrdersModel::TColumn column) {
  const QModelIndex index = orders_->currentIndex().siblingAtColumn(column);
  if (!index.isValid() || !index.flags().testFlag(Qt::ItemIsEditable))
    return;
  orders_->setCurrentIndex(index);
  orders_->edit(index);
}

void TBlotter::CancelChosen() {
  const QModelIndex index = orders_->currentIndex();
  if (!index.isValid() || !ordersModel_.Order(index).IsAlive())
    return;
  ForgetRefusal();
  desk_.Cancel(ordersModel_.Order(index).Number);
}

void TBlotter::ShowCounts() {
  const auto caption = [](const char* key, std::size_t count) {
    return QStringLiteral("%1 (%2)").arg(WindowText(key)).arg(count);
  };
  tabs_->setTabText(0, caption("Term_Orders", desk_.Orders().size()));
  tabs_->setTabText(1, caption("Term_Trades", desk_.Trades().size()));
}

// Amounts of different currencies do not add up.
void TBlotter::ShowTotals() {
  struct TTotal {
    double Bought = 0;
    double Sold = 0;
  };
  std::map<std::string, TTotal> totals;
  for (const auto& trade : desk_.Trades()) {
    const auto* instrument = services_.Market.GetInstrument(trade.Symbol);
    auto& total = totals[instrument ? std::string(instrument->Currency()) : std::string()];
    (trade.Side == TSide::Bid ? total.Bought : total.Sold) +=
        ToUnits(trade.Price) * static_cast<double>(trade.Quantity);
  }
  const auto figure = [this](const char* key, double amount) {
    return QStringLiteral("  %1 %2").arg(
        WindowText(key), QString::fromStdString(services_.Formatter.FormatNumber(amount, 1)));
  };
  QStringList texts;
  for (const auto& [currency, total] : totals)
    texts.append(QString::fromStdString(currency) + figure("Term_Bought", total.Bought) +
                 figure("Term_Sold", total.Sold) + figure("Term_Net", total.Sold - total.Bought));
  totals_->setText(texts.join(QStringLiteral("      ")));
  ShowCounts();
}

void TBlotter::ShowRefusal(int number, const QString& reason) {
  refused_ = number;
  refusalKey_ = reason;
  refusal_->setText(reason.isEmpty() ? QString()
                                     : WindowText("Term_OrderOutcome")
                                           .arg(number)
                                           .arg(WindowText(reason.toStdString().c_str())));
}

void TBlotter::ForgetRefusal() { ShowRefusal(0, {}); }

void TBlotter::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange)
    FitRows();
}

} // namespace Terminal
