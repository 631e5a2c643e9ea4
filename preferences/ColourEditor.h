#pragma once

#include "preferences/CellEditors.h"

namespace Quorpricepreference {

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

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace Quorpricepreference
