#include "terminal/services/Services.h"

#include "terminal/services/InstrumentDescription.h"

#include <tuple>

namespace Terminal {

namespace {

/// All that are installed for as long as the services live. The vendor model comes and goes with
/// its feed type.
auto Installed(TServices& s) {
  return std::tuple(&s.Config, &s.Languages, &s.Skin, &s.Timer, &s.Channels, &s.TradeSides,
                    &s.Market, &s.Subscriptions, &s.Formatter, &s.MarketDataFormatter, &s.Orders,
                    &s.Profile, &s.Editors, &s.Images);
}

} // namespace

TServices::TServices() {
  std::apply([](auto*... service) { (service->Install(service), ...); }, Installed(*this));
  Market.OnDescribe = [this](std::string_view symbol) {
    return InstrumentDescription(symbol, Symbols, Subscriptions, Languages);
  };
  Editors.OnUserSymbol = [this](std::string_view group, std::string_view symbol) {
    TGroupData data(std::string(group), std::string(symbol), false);
    Channels.SendToGroup(group, &Editors, &data);
  };
}

TServices::~TServices() {
  std::apply([](auto*... service) { (service->Install(nullptr), ...); }, Installed(*this));
}

TRegistrations TServices::Registrations() const {
  return {Config.ListenerCount(),        Channels.ChannelCount(),
          Channels.GroupCount(),         Timer.RegistrationCount(),
          Editors.RegistrationCount(),   Subscriptions.RegistrationCount(),
          TradeSides.RegistrationCount()};
}

} // namespace Terminal
