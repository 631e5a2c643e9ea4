#pragma once

#include "platform/Colour.h"

#include <optional>
#include <string>
#include <string_view>

namespace Platform {

/// The colour that a text stands for: a decimal integer, or up to eight hexadecimal digits after
/// "$". Empty when the text is neither.
Q_DECL_EXPORT std::optional<TColor> ParseColour(std::string_view text);

/// "$" and eight upper-case hexadecimal digits.
Q_DECL_EXPORT std::string ColourText(TColor colour);

} // namespace Platform
