#pragma once

#include "preferences/CellEditors.h"

namespace Quorpricepreference {

/// Editor of a broker: its number, or a part of its name in any language, under which the brokers
/// that are called so are offered. A text that means no broker, or several, changes nothing and
/// says so in a hint.
class TBrokerIDEditor : public TCellEditor {
public:
  using TCellEditor::TCellEditor;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
};

} // namespace Quorpricepreference
