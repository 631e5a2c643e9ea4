#pragma once

#include "host/BaseLookAndFeelService.h"
#include "terminal/services/ConfigStore.h"
#include "terminal/services/Skins.h"

namespace Terminal {

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

  /// The built-in skin selected last.
  const TSkin& Current() const { return *skin_; }
  const TPriceColours& PriceColours() const { return *priceColours_; }
  /// Of rising prices and bids.
  const TToneColours& Up() const { return skin_->Tone(priceColours_->Up); }
  /// Of falling prices and asks.
  const TToneColours& Down() const { return skin_->Tone(priceColours_->Down); }

  /// Applies the built-in skin of that name. False, and nothing changes, when there is none.
  bool Select(std::string_view name);

  /// Applies the built-in price colours of that name, to this skin and to those selected later;
  /// replaced colours stay. False, and nothing changes, when there are none.
  bool SelectPriceColours(std::string_view name);

  /// Replaces the skin section and the colours that packages ask for; what else the current skin
  /// says stays. A key that is a whole number is a colour's number.
  void Replace(const std::map<std::string, System::TColor>& colours,
               const TConfigStore::TSection& section);

  std::function<void()> OnChanged;

private:
  void Apply(std::string_view name, TNamedColours colours, TConfigStore::TSection section);

  TConfigStore& config_;
  const TSkin* skin_;                 ///< one of the built-in ones
  const TPriceColours* priceColours_; ///< the same
  std::string section_;
  TNamedColours colours_;
};

} // namespace Terminal
