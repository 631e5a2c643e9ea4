#include "terminal/services/SkinService.h"

#include "host/ConstDef.h"

namespace Terminal {

namespace {

/// From the usual order of red, green and blue.
constexpr System::TColor Rgb(System::TColor rgb) {
  return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

constexpr TToneColours Tone(System::TColor background, System::TColor text, System::TColor label) {
  return {Rgb(background), Rgb(text), Rgb(label)};
}

TSkin Dark() {
  TSkin skin;
  skin.Name = "Dark";
  skin.Colours = {{std::string(Constdef::Colour_LabelBackground), Rgb(0x232833)},
                  {std::string(Constdef::Colour_LabelInvalidBackground), Rgb(0x7A1F24)},
                  {std::string(Constdef::Colour_VcmBackground), Rgb(0xE8B44A)},
                  {std::string(Constdef::Colour_CasBackground), Rgb(0x6FC1C9)},
                  {std::string(Constdef::Colour_PosBackground), Rgb(0xB3ADEE)},
                  {"coWarningText", Rgb(0xE8B44A)}};
  skin.Tones = {{TTone::Red, Tone(0x3A191B, 0xFF9F97, 0x67232A)},
                {TTone::Green, Tone(0x12301F, 0x7ADBA8, 0x1B4A32)},
                {TTone::Blue, Tone(0x152A3D, 0xA6D4FF, 0x1F4464)},
                {TTone::Orange, Tone(0x352316, 0xFFCFA3, 0x5E3A1F)}};
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
  skin.Colours = {{std::string(Constdef::Colour_LabelBackground), Rgb(0xE9EDF2)},
                  {std::string(Constdef::Colour_LabelInvalidBackground), Rgb(0xFF9A94)},
                  {std::string(Constdef::Colour_VcmBackground), Rgb(0xF0BC4E)},
                  {std::string(Constdef::Colour_CasBackground), Rgb(0x7CCBD2)},
                  {std::string(Constdef::Colour_PosBackground), Rgb(0xB9B3F0)},
                  {"coWarningText", Rgb(0x7A5200)}};
  skin.Tones = {{TTone::Red, Tone(0xFCE7E5, 0x9A1B1E, 0xF7C8C4)},
                {TTone::Green, Tone(0xE2F4E9, 0x0A5732, 0xBFE5CE)},
                {TTone::Blue, Tone(0xE3F0FB, 0x0B4A7D, 0xC2DEF5)},
                {TTone::Orange, Tone(0xFBEADB, 0x7D3C06, 0xF6D3B0)}};
  skin.ContentColour = Rgb(0xFFFFFF);
  skin.ContentTextColour = Rgb(0x1B1F24);
  skin.WindowColour = Rgb(0xF3F5F8);
  skin.WindowTextColour = Rgb(0x1B1F24);
  skin.HighlightColour = Rgb(0x2A6DB0);
  skin.HighlightTextColour = Rgb(0xFFFFFF);
  return skin;
}

} // namespace

const std::vector<TPriceColours>& BuiltInPriceColours() {
  // Blue and orange can be told apart by everybody, and are no market's up and down.
  static const std::vector<TPriceColours> colours{{"BlueOrange", TTone::Blue, TTone::Orange},
                                                  {"RedUp", TTone::Red, TTone::Green},
                                                  {"GreenUp", TTone::Green, TTone::Red}};
  return colours;
}

TSkin InPriceColours(TSkin skin, const TPriceColours& colours) {
  const auto& up = skin.Tones.at(colours.Up);
  const auto& down = skin.Tones.at(colours.Down);
  skin.StandardColours = {{6, up.Background}, {7, up.Text}, {8, down.Background}, {9, down.Text}};
  skin.Colours.insert_or_assign(std::string(Constdef::Colour_BidLabel), up.Label);
  skin.Colours.insert_or_assign(std::string(Constdef::Colour_AskLabel), down.Label);
  skin.Colours.insert_or_assign("coUpText", up.Text);
  skin.Colours.insert_or_assign("coDownText", down.Text);
  return skin;
}

const std::vector<TSkin>& BuiltInSkins() {
  const auto& colours = BuiltInPriceColours().front();
  static const std::vector<TSkin> skins{InPriceColours(Dark(), colours),
                                        InPriceColours(Light(), colours)};
  return skins;
}

} // namespace Terminal
