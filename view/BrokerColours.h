#pragma once

#include "host/System.h"

#include <map>
#include <string>
#include <string_view>

namespace Quorpriceview {

/// Highlighted brokers: four-digit ID to colour.
using TBrokerColours = std::map<std::string, System::TColor, std::less<>>;

/// Reads the comma-separated lists of broker IDs and of their colours. A broker without a colour,
/// or with one that is not a number, gets the colour of window backgrounds; of two entries for
/// one broker the later holds; blank IDs are skipped.
TBrokerColours ParseBrokerColours(std::string_view brokers, std::string_view colours);

} // namespace Quorpriceview
