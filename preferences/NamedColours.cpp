#include "preferences/NamedColours.h"

#include "platform/Colour.h"
#include "preferences/Resource.h"

#include <algorithm>
#include <array>

namespace Quorpricepreference {

using System::TColor;

namespace {

constexpr std::array<TColor, 12> Colours{0x000000FF, 0x000080FF, 0x0000D7FF, 0x0000C000,
                                         0x00A0A000, 0x00FF9030, 0x00FF0000, 0x00FF40A0,
                                         0x00B469FF, 0x00404080, 0x00808080, 0x00FFFFFF};

/// In the order of the colours.
constexpr std::array<const char*, Colours.size()> Keys{
    "Res_ColorRed",  "Res_ColorOrange",  "Res_ColorGold", "Res_ColorGreen",
    "Res_ColorTeal", "Res_ColorSkyBlue", "Res_ColorBlue", "Res_ColorPurple",
    "Res_ColorPink", "Res_ColorBrown",   "Res_ColorGrey", "Res_ColorWhite"};

} // namespace

std::span<const TColor> NamedColours() { return Colours; }

QString ColourName(std::optional<TColor> colour) {
  if (!colour)
    return GetResource("Res_ColorNone");
  if (*colour == System::clWindow)
    return GetResource("Res_ColorBackground");
  const auto* const named = std::ranges::find(Colours, *colour);
  if (named != Colours.end())
    return GetResource(Keys[static_cast<std::size_t>(named - Colours.begin())]);
  return GetResource("Res_ColorOther") + u' ' + Platform::ToQColor(*colour).name();
}

TColor NextColour(const std::vector<TColor>& used) {
  const auto* const unused = std::ranges::find_if(
      Colours, [&used](TColor colour) { return std::ranges::find(used, colour) == used.end(); });
  return unused == Colours.end() ? Colours.front() : *unused;
}

} // namespace Quorpricepreference
