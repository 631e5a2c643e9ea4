#pragma once

#include "host/System.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Terminal {

/// A colour without a default: a skin that forgets one does not compile.
class TSkinColour {
public:
  constexpr TSkinColour(System::TColor colour) : colour_(colour) {}
  constexpr operator System::TColor() const { return colour_; }

private:
  System::TColor colour_;
};

/// A hue that tells one direction of prices, or one side of the market, from the other.
enum class TTone { Red, Green, Blue, Orange };

/// A tone as a skin has it. The text can be read on all of the skin's grounds.
struct TToneColours {
  TSkinColour Background; ///< of the side's prices and quantities
  TSkinColour Text;
  TSkinColour Label; ///< background of the side's caption
};

/// What a choice is called in the three languages of the terminal.
struct TChoiceTexts {
  const char* Traditional;
  const char* Simplified;
  const char* English;

  /// In a language of the language manager.
  const char* In(int language) const;
};

/// The colours of a look.
struct TSkin {
  std::string_view Name; ///< as it is stored
  TChoiceTexts Texts;
  TSkinColour LabelBackground; ///< header captions
  TSkinColour LabelInvalidBackground;
  TSkinColour VcmBackground, CasBackground, PosBackground; ///< under black texts
  TSkinColour WarningText;
  TToneColours Red, Green, Blue, Orange;  ///< to make price colours of
  TSkinColour Content, ContentText;       ///< cells and editors, and texts on them
  TSkinColour Window, WindowText;         ///< panels, buttons and menus, and texts on them
  TSkinColour Highlight, HighlightedText; ///< selections, and texts on them

  const TToneColours& Tone(TTone tone) const;
};

/// Rising prices and bids are in one tone, falling prices and asks in the other.
struct TPriceColours {
  std::string_view Name; ///< as it is stored
  TChoiceTexts Texts;
  TTone Up;
  TTone Down;
};

/// The skins that come with the terminal, the default first.
const std::vector<TSkin>& BuiltInSkins();

/// The price colours that come with the terminal, the default first.
const std::vector<TPriceColours>& BuiltInPriceColours();

/// Of the terminal's own texts; no package asks for it.
inline constexpr const char* Colour_WarningText = "coWarningText";

/// Colours as packages ask for them.
struct TNamedColours {
  std::map<std::string, System::TColor, std::less<>>
      ByName;                             ///< Constdef::Colour_... that are texts
  std::map<int, System::TColor> ByNumber; ///< those that are numbers
};

/// The colours of a skin, in these price colours.
TNamedColours NamedColours(const TSkin& skin, const TPriceColours& prices);

} // namespace Terminal
