#pragma once

#include "terminal/services/ChannelManager.h"
#include "terminal/services/ConfigStore.h"
#include "terminal/services/Formatters.h"
#include "terminal/services/ImageResources.h"
#include "terminal/services/LanguageTexts.h"
#include "terminal/services/MarketAdapter.h"
#include "terminal/services/OrderAdapter.h"
#include "terminal/services/Settings.h"
#include "terminal/services/SkinService.h"
#include "terminal/services/SubscribeAdapter.h"
#include "terminal/services/SymbolDirectory.h"
#include "terminal/services/SymbolEditors.h"
#include "terminal/services/TimerControl.h"
#include "terminal/services/TradeSideDetector.h"
#include "terminal/services/UserProfile.h"

namespace Terminal {

/// Registrations alive, one per owner.
struct TRegistrations {
  std::size_t Configuration = 0;
  std::size_t Channels = 0;
  std::size_t Groups = 0;
  std::size_t Timers = 0;
  std::size_t Editors = 0;
  std::size_t Records = 0;
  std::size_t TradeSides = 0;
};

/// One of each service of the contract, but for the windows'. Installed from construction to
/// destruction; made after the application and before the first package, destroyed after the last
/// view. A symbol that the user enters in a box of a linking group is passed on to the group.
class TServices {
public:
  TServices();
  ~TServices();
  TServices(const TServices&) = delete;
  TServices& operator=(const TServices&) = delete;

  TRegistrations Registrations() const;

  TConfigStore Config;
  TSettings Settings{Config};
  TLanguageTexts Languages;
  TSkinService Skin{Config};
  TTimerControl Timer;
  TChannelManager Channels;
  TSymbolDirectory Symbols;
  TTradeSideDetector TradeSides;
  TMarketAdapter Market{Symbols};
  TSubscribeAdapter Subscriptions{Symbols, TradeSides};
  TFormatter Formatter{Market, Subscriptions, Languages};
  TMarketDataFormatter MarketDataFormatter{Market};
  TOrderAdapter Orders;
  TUserProfile Profile;
  TVendorModel Vendor;
  TSymbolEditors Editors{Symbols, Languages};
  TImageResources Images;
};

} // namespace Terminal
