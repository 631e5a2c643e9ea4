#include "view/BrokerHighlight.h"

#include "host/BaseConfigManager.h"
#include "host/ConstDef.h"
#include "model/RecordText.h"
#include "platform/ColourText.h"
#include "text/Strings.h"

#include <utility>

namespace Quorpriceview {

namespace {

/// Takes the text up to the next comma, and the comma, off the front.
std::string_view CutElement(std::string_view& list) {
  const auto comma = list.find(',');
  const auto element = list.substr(0, comma);
  list.remove_prefix(comma == std::string_view::npos ? list.size() : comma + 1);
  return Text::Trim(element);
}

} // namespace

TBrokerColours ParseBrokerColours(std::string_view brokers, std::string_view colours) {
  TBrokerColours parsed;
  while (!brokers.empty()) {
    const auto broker = CutElement(brokers);
    const auto colour = Platform::ParseColour(CutElement(colours));
    if (!broker.empty())
      parsed.insert_or_assign(std::string(broker), colour.value_or(System::clWindow));
  }
  return parsed;
}

bool TBrokerHighlight::ReadConfiguration() {
  auto* config = Baseconfigmanager::TCustomConfigManager::GetInstance();
  const auto section = config->CurrentSection();
  bool changed = false;
  const auto take = [&changed](auto& field, auto value) {
    changed = changed || field != value;
    field = std::move(value);
  };
  take(enabled_, config->ReadBoolean(section, Constdef::Key_SpecBrokerChecked));
  take(brokers_, config->ReadString(section, Constdef::Key_DetailSpecialBroker));
  take(brokerColours_, config->ReadString(section, Constdef::Key_DetailSpecialBrokerColor));
  if (changed)
    colours_ = ParseBrokerColours(brokers_, brokerColours_);
  return changed;
}

} // namespace Quorpriceview
