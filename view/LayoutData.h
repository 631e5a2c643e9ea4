#pragma once

#include "host/LayoutData.h"

#include <optional>
#include <string_view>

namespace Quorpriceview {

using Host::TLayoutData;

/// 0 when there is no such item or its value is not an integer.
int IntegerOf(const TLayoutData& layout, std::string_view name);

/// "0" is false, any other number true, "True" and "False" are words in any case. Empty for any
/// other text.
std::optional<bool> ParseBoolean(std::string_view text);

} // namespace Quorpriceview
