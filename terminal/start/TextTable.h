#pragma once

#include <string>

class QWidget;

namespace Platform {
class TcxGridTableView;
}

namespace Terminal {

enum class TColouring { None, Ansi };

/// Columns that `text` takes up on a console: two for a wide character.
int ConsoleWidth(const std::string& text);

/// The labels of a view that are to be seen, a line for those that stand beside each other; such as
/// the panels of an auction or of a cooling-off.
std::string LabelLines(const QWidget& view);

/// The cells as they are on the screen, as lines of aligned columns. Columns without a text are
/// left out.
std::string TextTable(const Platform::TcxGridTableView& view, TColouring colouring);

} // namespace Terminal
