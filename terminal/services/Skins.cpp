#include "terminal/services/SkinService.h"

namespace Terminal {

namespace {

/// From the usual order of red, green and blue.
constexpr System::TColor Rgb(System::TColor rgb) {
  return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

// Blue buys and amber sells can be told apart by everybody, and are no market's up and down.
TSkin Dark() {
  TSkin skin;
  skin.Name = "Dark";
  skin.Colours = {{"coLabelBground", Rgb(0x232833)},  {"coLabelInvalidBground", Rgb(0x7A1F24)},
                  {"coBuyColorLabel", Rgb(0x1F4464)}, {"coSellColorLabel", Rgb(0x5E3A1F)},
                  {"coVCMBgColor", Rgb(0xE8B44A)},    {"coCASBgColor", Rgb(0x6FC1C9)},
                  {"coPOSBgColor", Rgb(0xB3ADEE)}};
  skin.StandardColours = {
      {6, Rgb(0x152A3D)}, {7, Rgb(0xA6D4FF)}, {8, Rgb(0x352316)}, {9, Rgb(0xFFCFA3)}};
  skin.ContentColour = Rgb(0x16191F);
  skin.ContentTextColour = Rgb(0xD7DCE3);
  skin.WindowColour = Rgb(0x1E222A);
  skin.WindowTextColour = Rgb(0xD7DCE3);
  skin.HighlightColour = Rgb(0x2F6AA3);
  skin.HighlightTextColour = Rgb(0xFFFFFF);
  return skin;
}

TSkin Light() {
  TSkin skin;
  skin.Name = "Light";
  skin.Colours = {{"coLabelBground", Rgb(0xE9EDF2)},  {"coLabelInvalidBground", Rgb(0xFF9A94)},
                  {"coBuyColorLabel", Rgb(0xC2DEF5)}, {"coSellColorLabel", Rgb(0xF6D3B0)},
                  {"coVCMBgColor", Rgb(0xF0BC4E)},    {"coCASBgColor", Rgb(0x7CCBD2)},
                  {"coPOSBgColor", Rgb(0xB9B3F0)}};
  skin.StandardColours = {
      {6, Rgb(0xE3F0FB)}, {7, Rgb(0x0B4A7D)}, {8, Rgb(0xFBEADB)}, {9, Rgb(0x7D3C06)}};
  skin.ContentColour = Rgb(0xFFFFFF);
  skin.ContentTextColour = Rgb(0x1B1F24);
  skin.WindowColour = Rgb(0xF3F5F8);
  skin.WindowTextColour = Rgb(0x1B1F24);
  skin.HighlightColour = Rgb(0x2A6DB0);
  skin.HighlightTextColour = Rgb(0xFFFFFF);
  return skin;
}

} // namespace

const std::vector<TSkin>& BuiltInSkins() {
  static const std::vector<TSkin> skins{Dark(), Light()};
  return skins;
}

} // namespace Terminal
