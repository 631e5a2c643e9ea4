#pragma once

#include "host/System.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace Quorpricepreference {

/// Colours that stay apart from each other on a dark and on a light ground, in the order in which
/// they are offered.
std::span<const System::TColor> NamedColours();

/// What a colour is called in the user's language; one that has no name by its hexadecimal digits
/// too.
QString ColourName(std::optional<System::TColor> colour);

/// The first named colour that is not among the used ones; the first of all when every one is.
System::TColor NextColour(const std::vector<System::TColor>& used);

} // namespace Quorpricepreference
