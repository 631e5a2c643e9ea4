#pragma once

#include <QTableView>

namespace Quorpricepreference {

/// The list of highlighted brokers, to be used with the keys alone: Tab walks through its cells
/// and leaves it at either end, Space and Enter on a cell are a click.
class TBrokerGrid : public QTableView {
public:
  TBrokerGrid();

  /// Makes the cell the focused one and opens its editor; a list of choices of which none is
  /// chosen drops down.
  void EnterCell(const QModelIndex& cell);
  void OpenEditor(const QModelIndex& cell);

protected:
  void focusInEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
  /// The cells row by row; an invalid index before the first and behind the last.
  QModelIndex CellAt(int place) const;
};

} // namespace Quorpricepreference
