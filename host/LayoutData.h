#pragma once

#include "host/Export.h"

#include <string>
#include <string_view>
#include <vector>

namespace Host {

/// The layout data of a view as text: a comma-separated list of "name=value" items. An item that
/// holds a blank, a comma or a double quote is enclosed in double quotes, with inner double quotes
/// doubled. The names are Constdef::Layout_...
class QUOR_EXPORT TLayoutData {
public:
  TLayoutData() = default;
  /// Reads any text; blanks outside quotes separate items as commas do.
  explicit TLayoutData(std::string_view commaText);

  void Add(std::string_view name, std::string_view value);
  void Add(std::string_view name, int value);
  std::string CommaText() const;

  /// Value of the first item of that name, whatever its case; empty when there is none.
  std::string Value(std::string_view name) const;

private:
  std::vector<std::string> items_;
};

} // namespace Host
