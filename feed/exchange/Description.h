#pragma once

#include <string>
#include <string_view>

namespace Feed::Exchange {

/// A message in words, by its layout: its title and type, and each field by name with what it
/// holds; the entries behind it in brackets. A type that is unknown, or a message that is too
/// short, says so.
std::string Describe(std::string_view message);

} // namespace Feed::Exchange
