#include "view/LayoutData.h"

#include "model/RecordText.h"
#include "text/Numbers.h"
#include "text/Strings.h"

#include <algorithm>
#include <cctype>

namespace Quorpriceview {

using Text::ParseInteger;
using Text::ParseNumber;
using Text::Trim;

int IntegerOf(const TLayoutData& layout, std::string_view name) {
  return ParseInteger(layout.Value(name)).value_or(0);
}

std::optional<bool> ParseBoolean(std::string_view text) {
  std::string word(Trim(text));
  std::transform(word.begin(), word.end(), word.begin(),
                 [](unsigned char c) { return std::tolower(c); });
  if (word == "true")
    return true;
  if (word == "false")
    return false;
  const auto number = ParseNumber(word);
  return number ? std::optional(*number != 0) : std::nullopt;
}

} // namespace Quorpriceview
