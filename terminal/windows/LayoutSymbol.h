#pragma once

#include <string>

namespace Terminal {

/// The item of a view's layout data that names its symbol, in double quotes (inner ones doubled)
/// where the symbol holds a blank, a comma or a double quote.
std::string SymbolItem(const std::string& symbol);

/// The symbol of a view's layout data, where it is the first item, as views write it; empty when
/// there is none.
std::string SymbolOf(const std::string& layoutData);

} // namespace Terminal
