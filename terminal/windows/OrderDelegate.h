#pragma once

#include "terminal/trading/OrderFigures.h"

#include <QStyledItemDelegate>

namespace Terminal {

/// Edits price and quantity of an order where they stand, by steps of price and board lots.
class TOrderDelegate : public QStyledItemDelegate {
public:
  /// The services outlive the delegate.
  TOrderDelegate(TServices& services, QObject* parent);

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  /// What the user has typed stays while the order changes.
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;

private:
  TOrderFigures figures_;
};

} // namespace Terminal
