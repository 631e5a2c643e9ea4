#pragma once

#include <QStyledItemDelegate>

namespace Quorpricepreference {

/// A cell of the list, edited as text unless a derived class edits it otherwise. A text that is cut
/// off is told in full by a hint.
class TCellEditor : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

/// Editor of a colour cell: a drop-down of named colours, whose last entry opens the platform's
/// colour dialog. The cell shows the drop-down's arrow, and a swatch while it has a colour.
class TColourEditor : public TCellEditor {
public:
  using TCellEditor::TCellEditor;

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
