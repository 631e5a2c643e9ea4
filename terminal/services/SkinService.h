#pragma once

#include "host/BaseLookAndFeelService.h"
#include "terminal/services/ConfigStore.h"

#include <map>
#include <vector>

namespace Terminal {

/// A hue that tells one direction of prices, or one side of the market, from the other.
enum class TTone { Red, Green, Blue, Orange };

/// A tone as a skin has it. The text can be read on all of the skin's grounds.
struct TToneColours {
  System::TColor Background = 0; ///< of the side's prices and quantities
  System::TColor Text = 0;
  System::TColor Label = 0; ///< background of the side's caption
};

/// Rising prices and bids are in one tone, falling prices and asks in the other.
struct TPriceColours {
  std::string Name;
  TTone Up;
  TTone Down;
};

/// Those that come with the terminal, the default first.
const std::vector<TPriceColours>& BuiltInPriceColours();

/// The colours of a look.
struct TSkin {
  std::string Name;
  std::map<std::string, System::TColor, std::less<>> Colours; ///< by colour name
  std::map<int, System::TColor> StandardColours;              ///< by number, 6 to 9
  std::map<TTone, TToneColours> Tones;                        ///< to make price colours of
  System::TColor ContentColour = 0;                           ///< cells and editors start from it
  System::TColor ContentTextColour = 0;                       ///< texts on ContentColour
  System::TColor WindowColour = 0;                            ///< panels, buttons and menus
  System::TColor WindowTextColour = 0;                        ///< texts on WindowColour
  System::TColor HighlightColour = 0;                         ///< selections
  System::TColor HighlightTextColour = 0;
};

/// The skins that come with the terminal, the default first, in the default price colours.
const std::vector<TSkin>& BuiltInSkins();

/// A built-in skin in other price colours.
TSkin InPriceColours(TSkin skin, const TPriceColours& colours);

/// The current skin. A change reaches the platform's root look and feel, the application's palette
/// and the configuration section of the skin; then OnChanged is called, so that the windows can
/// re-skin their views.
class TSkinService : public Baselookandfeelservice::TCustomLookAndFeelService {
public:
  /// Applies the default skin. Needs the application.
  explicit TSkinService(TConfigStore& config);
  /// Gives root look and feel and palette back as they were.
  ~TSkinService() override;

  System::TColor GetColour(int index, std::string_view name) override;
  std::string CurrentSkinSection() override;

  const TSkin& Current() const { return skin_; }
  const TPriceColours& PriceColours() const { return priceColours_; }

  /// Applies the built-in skin of that name. False, and nothing changes, when there is none.
  bool Select(std::string_view name);

  /// Applies the built-in price colours of that name, to this skin and to those selected later; a
  /// replaced skin keeps its own. False, and nothing changes, when there are none.
  bool SelectPriceColours(std::string_view name);

  /// Replaces the colours and the skin section; content, window and highlight colours stay. A key
  /// that is a whole number is a standard colour's number.
  void Replace(const std::map<std::string, System::TColor>& colours,
               const TConfigStore::TSection& section);

  std::function<void()> OnChanged;

private:
  void Apply(TSkin skin, TConfigStore::TSection section);

  TConfigStore& config_;
  TPriceColours priceColours_;
  TSkin skin_;
};

} // namespace Terminal
