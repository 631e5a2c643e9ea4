#include "platform/ColourText.h"

#include <charconv>
#include <cstdio>

namespace Platform {

namespace {

template <typename TInteger> std::optional<TColor> WholeInteger(std::string_view text, int base) {
  TInteger value = 0;
  const auto* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value, base);
  if (error != std::errc() || stop != end)
    return std::nullopt;
  return static_cast<TColor>(value);
}

} // namespace

std::optional<TColor> ParseColour(std::string_view text) {
  if (text.starts_with('$'))
    return WholeInteger<std::uint32_t>(text.substr(1), 16);
  return WholeInteger<std::int32_t>(text, 10);
}

std::string ColourText(TColor colour) {
  char text[10];
  std::snprintf(text, sizeof text, "$%08X", colour);
  return text;
}

} // namespace Platform
