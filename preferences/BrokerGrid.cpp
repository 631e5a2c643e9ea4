#include "preferences/BrokerGrid.h"

#include <QComboBox>
#include <QKeyEvent>

namespace Quorpricepreference {

TBrokerGrid::TBrokerGrid() {
  setSelectionMode(NoSelection);
  setEditTriggers(AllEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
}

void TBrokerGrid::EnterCell(const QModelIndex& cell) {
  // A row that was just added can be scrolled to.
  executeDelayedItemsLayout();
  setCurrentIndex(cell);
  OpenEditor(cell);
  auto* box = qobject_cast<QComboBox*>(indexWidget(cell));
  if (box && box->currentIndex() < 0)
    box->showPopup();
}

void TBrokerGrid::OpenEditor(const QModelIndex& cell) {
  if (cell.flags().testFlag(Qt::ItemIsEditable) && !indexWidget(cell))
    edit(cell);
}

QModelIndex TBrokerGrid::CellAt(int place) const {
  const int columns = model()->columnCount();
  return place < 0 ? QModelIndex() : model()->index(place / columns, place % columns);
}

void TBrokerGrid::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  const int cells = model()->rowCount() * model()->columnCount();
  if (event->reason() == Qt::TabFocusReason)
    EnterCell(CellAt(0));
  else if (event->reason() == Qt::BacktabFocusReason)
    EnterCell(CellAt(cells - 1));
}

bool TBrokerGrid::focusNextPrevChild(bool next) {
  const auto from = currentIndex();
  const int place = from.row() * model()->columnCount() + from.column();
  const auto cell = from.isValid() ? CellAt(place + (next ? 1 : -1)) : QModelIndex();
  if (!cell.isValid())
    return QTableView::focusNextPrevChild(next);
  EnterCell(cell);
  return true;
}

// A key that an editor leaves comes here too.
void TBrokerGrid::keyPressEvent(QKeyEvent* event) {
  const bool isPress = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                       event->key() == Qt::Key_Enter;
  if (isPress && hasFocus() && currentIndex().isValid())
    emit clicked(currentIndex());
  else
    QTableView::keyPressEvent(event);
}

// The toolkit tells of no click on a cell whose editor was opened by the press.
void TBrokerGrid::mouseReleaseEvent(QMouseEvent* event) {
  const auto cell = state() == EditingState ? currentIndex() : QModelIndex();
  QTableView::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && cell.isValid() && cell == indexAt(event->pos()))
    emit clicked(cell);
}

// The toolkit goes from the last cell to the first again.
void TBrokerGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  const bool walksOn = hint == QAbstractItemDelegate::EditNextItem ||
                       hint == QAbstractItemDelegate::EditPreviousItem;
  QTableView::closeEditor(editor, walksOn ? QAbstractItemDelegate::NoHint : hint);
  if (walksOn)
    focusNextPrevChild(hint == QAbstractItemDelegate::EditNextItem);
}

} // namespace Quorpricepreference
