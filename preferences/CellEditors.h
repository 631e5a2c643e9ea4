#pragma once

#include <QStyledItemDelegate>

namespace Quorpricepreference {

/// Editor of a colour cell: a drop-down of named colours, whose last entry opens the platform's
/// colour dialog. The cell shows a swatch, and nothing while it has no colour.
class TColourEditor : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
};

/// A cell that is a button with the host's image of deleting.
class TDeleteButton : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

} // namespace Quorpricepreference
