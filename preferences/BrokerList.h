#pragma once

#include "host/System.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quorpricepreference {

/// A row of the list of highlighted brokers. A value that was never entered is absent.
struct TBrokerRow {
  std::optional<std::string> ID;
  std::optional<System::TColor> Colour;

  bool operator==(const TBrokerRow&) const = default;
};

/// The list as it is stored: IDs, and at the same positions their colours, each joined by commas.
struct TStoredBrokers {
  std::string IDs;
  std::string Colours; ///< each "$" and eight hexadecimal digits, or empty

  bool operator==(const TStoredBrokers&) const = default;
};

/// Whether a row may have the text as its ID: up to four digits, or nothing, with blanks around.
bool IsBrokerID(std::string_view text);

/// Rows without an ID, or with a blank one, are left out of both lists.
TStoredBrokers StoreBrokers(const std::vector<TBrokerRow>& rows);

/// Puts stored brokers into the rows, one each. A row for which no colour is stored keeps what it
/// has; a colour that is not a number becomes that of window backgrounds. An empty list of IDs
/// leaves the rows as they are.
void LoadBrokers(const TStoredBrokers& stored, std::vector<TBrokerRow>& rows);

} // namespace Quorpricepreference
