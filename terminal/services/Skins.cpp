#include "terminal/services/Skins.h"

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

constexpr TSkin Dark{.Name = "Dark",
                     .Texts = {"深色", "深色", "Dark"},
                     .LabelBackground = Rgb(0x232833),
                     .LabelInvalidBackground = Rgb(0x7A1F24),
                     .VcmBackground = Rgb(0xE8B44A),
                     .CasBackground = Rgb(0x6FC1C9),
                     .PosBackground = Rgb(0xB3ADEE),
                     .WarningText = Rgb(0xE8B44A),
                     .Red = Tone(0x3A191B, 0xFF9F97, 0x67232A),
                     .Green = Tone(0x12301F, 0x7ADBA8, 0x1B4A32),
                     .Blue = Tone(0x152A3D, 0xA6D4FF, 0x1F4464),
                     .Orange = Tone(0x352316, 0xFFCFA3, 0x5E3A1F),
                     .Content = Rgb(0x16191F),
                     .ContentText = Rgb(0xD7DCE3),
                     .Window = Rgb(0x1E222A),
                     .WindowText = Rgb(0xD7DCE3),
                     .Highlight = Rgb(0x2F6AA3),
                     .HighlightedText = Rgb(0xFFFFFF)};

constexpr TSkin Light{.Name = "Light",
                      .Texts = {"淺色", "浅色", "Light"},
                      .LabelBackground = Rgb(0xE9EDF2),
                      .LabelInvalidBackground = Rgb(0xFF9A94),
                      .VcmBackground = Rgb(0xF0BC4E),
                      .CasBackground = Rgb(0x7CCBD2),
                      .PosBackground = Rgb(0xB9B3F0),
                      .WarningText = Rgb(0x7A5200),
                      .Red = Tone(0xFCE7E5, 0x9A1B1E, 0xF7C8C4),
                      .Green = Tone(0xE2F4E9, 0x0A5732, 0xBFE5CE),
                      .Blue = Tone(0xE3F0FB, 0x0B4A7D, 0xC2DEF5),
                      .Orange = Tone(0xFBEADB, 0x7D3C06, 0xF6D3B0),
                      .Content = Rgb(0xFFFFFF),
                      .ContentText = Rgb(0x1B1F24),
                      .Window = Rgb(0xF3F5F8),
                      .WindowText = Rgb(0x1B1F24),
                      .Highlight = Rgb(0x2A6DB0),
                      .HighlightedText = Rgb(0xFFFFFF)};

} // namespace

const char* TChoiceTexts::In(int language) const {
  switch (language) {
  case Constdef::Language_TraditionalChinese:
    return Traditional;
  case Constdef::Language_SimplifiedChinese:
    return Simplified;
  default:
    return English;
  }
}

const TToneColours& TSkin::Tone(TTone tone) const {
  switch (tone) {
  case TTone::Red:
    return Red;
  case TTone::Green:
    return Green;
  case TTone::Blue:
    return Blue;
  default:
    return Orange;
  }
}

const std::vector<TSkin>& BuiltInSkins() {
  static const std::vector<TSkin> skins{Dark, Light};
  return skins;
}

const std::vector<TPriceColours>& BuiltInPriceColours() {
  // Blue and orange can be told apart by everybody, and are no market's up and down.
  static const std::vector<TPriceColours> colours{
      {"BlueOrange",
       {"藍升橙跌（色弱適用）", "蓝涨橙跌（色弱适用）",
        "Blue up, orange down (safe for colour blindness)"},
       TTone::Blue,
       TTone::Orange},
      {"RedUp", {"紅升綠跌", "红涨绿跌", "Red up, green down"}, TTone::Red, TTone::Green},
      {"GreenUp", {"綠升紅跌", "绿涨红跌", "Green up, red down"}, TTone::Green, TTone::Red}};
  return colours;
}

TNamedColours NamedColours(const TSkin& skin, const TPriceColours& prices) {
  const auto& up = skin.Tone(prices.Up);
  const auto& down = skin.Tone(prices.Down);
  const auto named = [](std::string_view name, System::TColor colour) {
    return std::pair(std::string(name), colour);
  };
  return {{named(Constdef::Colour_LabelBackground, skin.LabelBackground),
           named(Constdef::Colour_LabelInvalidBackground, skin.LabelInvalidBackground),
           named(Constdef::Colour_VcmBackground, skin.VcmBackground),
           named(Constdef::Colour_CasBackground, skin.CasBackground),
           named(Constdef::Colour_PosBackground, skin.PosBackground),
           named(Constdef::Colour_BidLabel, up.Label), named(Constdef::Colour_AskLabel, down.Label),
           named(Colour_WarningText, skin.WarningText)},
          {{Constdef::Colour_BidBackground, up.Background},
           {Constdef::Colour_BidText, up.Text},
           {Constdef::Colour_AskBackground, down.Background},
           {Constdef::Colour_AskText, down.Text}}};
}

} // namespace Terminal
