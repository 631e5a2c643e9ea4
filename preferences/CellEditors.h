#pragma once

#include <QStyledItemDelegate>

namespace Quorpricepreference {

/// A cell of the list. A text that is cut off is told in full by a hint.
class TCellEditor : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

/// A cell that is a button with the host's image of deleting.
class TDeleteButton : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

} // namespace Quorpricepreference
