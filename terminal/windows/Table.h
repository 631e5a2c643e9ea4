#pragma once

#include <QTableView>

namespace Terminal {

/// A table of rows that are chosen one at a time, with the keyboard as with the mouse. Tab leaves
/// it. The caller owns it; `model` outlives it.
QTableView* NewTable(QAbstractItemModel& model);

enum class TCellKind { Text, Figure };

/// Figures are aligned by their digits; as the toolkit takes it from a model.
int AlignmentOf(TCellKind kind);

} // namespace Terminal
