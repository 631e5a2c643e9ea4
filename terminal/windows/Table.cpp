#include "terminal/windows/Table.h"

#include <QHeaderView>

namespace Terminal {

QTableView* NewTable(QAbstractItemModel& model) {
  auto* table = new QTableView;
  table->setModel(&model);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->setShowGrid(false);
  table->setWordWrap(false);
  table->setTabKeyNavigation(false);
  table->verticalHeader()->hide();
  table->horizontalHeader()->setHighlightSections(false);
  return table;
}

int AlignmentOf(TCellKind kind) {
  return int(Qt::AlignVCenter | (kind == TCellKind::Figure ? Qt::AlignRight : Qt::AlignLeft));
}

} // namespace Terminal
