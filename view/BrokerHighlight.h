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

/// The brokers that the user wants to see at once in the queue.
class TBrokerHighlight {
public:
  /// Reads them from the configuration; true when anything of it changed.
  bool ReadConfiguration();
  /// Null while highlighting is off.
  const TBrokerColours* Colours() const { return enabled_ ? &colours_ : nullptr; }

private:
  bool enabled_ = false;
  std::string brokers_, brokerColours_; ///< the lists as they are configured
  TBrokerColours colours_;
};

} // namespace Quorpriceview
