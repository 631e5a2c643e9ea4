#pragma once

#include "host/Service.h"

#include <string_view>

namespace Baselookandfeelservice {

/// Colours of the current skin.
class QUOR_EXPORT TCustomLookAndFeelService : public Host::TService<TCustomLookAndFeelService> {
public:
  ~TCustomLookAndFeelService() override;

  /// With index 0 the colour called `name`, otherwise the skin's standard colour of that number
  /// (`name` is empty), both Constdef::Colour_... Black when the skin has no such colour.
  virtual System::TColor GetColour(int index, std::string_view name) = 0;

  /// The configuration section that holds the current skin's colours.
  virtual std::string CurrentSkinSection() = 0;
};

} // namespace Baselookandfeelservice
