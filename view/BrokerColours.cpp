#include "view/BrokerColours.h"

#include "model/RecordText.h"
#include "platform/ColourText.h"

namespace Quorpriceview {

namespace {

/// Takes the text up to the next comma, and the comma, off the front.
std::string_view TakeElement(std::string_view& list) {
  const auto comma = list.find(',');
  const auto element = list.substr(0, comma);
  list.remove_prefix(comma == std::string_view::npos ? list.size() : comma + 1);
  return Quorpricedatacontrol::Trim(element);
}

} // namespace

TBrokerColours ParseBrokerColours(std::string_view brokers, std::string_view colours) {
  TBrokerColours parsed;
  while (!brokers.empty()) {
    const auto broker = TakeElement(brokers);
    const auto colour = Platform::ParseColour(TakeElement(colours));
    if (!broker.empty())
      parsed.insert_or_assign(std::string(broker), colour.value_or(System::clWindow));
  }
  return parsed;
}

} // namespace Quorpriceview
