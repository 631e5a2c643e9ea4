#include "terminal/windows/LayoutSymbol.h"

#include <iomanip>
#include <sstream>

namespace Terminal {

namespace {

constexpr std::string_view Name = "Symbol=";

/// The first item of comma-separated text, without its quotes.
std::string FirstItem(const std::string& text) {
  std::string item;
  if (!text.starts_with('"'))
    return text.substr(0, text.find(','));
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '"' && text.compare(i + 1, 1, "\"") != 0)
      break;
    if (text[i] == '"')
      ++i;
    item += text[i];
  }
  return item;
}

} // namespace

std::string SymbolItem(const std::string& symbol) {
  const std::string item = std::string(Name) + symbol;
  if (item.find_first_of(" ,\"\t") == std::string::npos)
    return item;
  std::ostringstream quoted;
  quoted << std::quoted(item, '"', '"');
  return quoted.str();
}

std::string SymbolOf(const std::string& layoutData) {
  const std::string item = FirstItem(layoutData);
  return item.starts_with(Name) ? item.substr(Name.size()) : std::string();
}

} // namespace Terminal
