#pragma once

#include <string>

namespace Platform {
class TcxGridTableView;
}

namespace Terminal {

enum class TColouring { None, Ansi };

/// Columns that `text` takes up on a console: two for a wide character.
int ConsoleWidth(const std::string& text);

/// The cells as they are on the screen, as lines of aligned columns. Columns without a text are
/// left out.
std::string TextTable(const Platform::TcxGridTableView& view, TColouring colouring);

} // namespace Terminal
