#include "preferences/BrokerList.h"

#include "platform/ColourText.h"

namespace Quorpricepreference {

namespace {

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// An empty text has no pieces.
std::vector<std::string_view> Split(std::string_view text) {
  std::vector<std::string_view> pieces;
  while (!text.empty()) {
    const auto comma = text.find(',');
    pieces.push_back(text.substr(0, comma));
    if (comma == std::string_view::npos)
      break;
    text.remove_prefix(comma + 1);
    if (text.empty())
      pieces.emplace_back();
  }
  return pieces;
}

} // namespace

TStoredBrokers StoreBrokers(const std::vector<TBrokerRow>& rows) {
  TStoredBrokers stored;
  bool first = true;
  for (const auto& row : rows) {
    const auto id = Trimmed(row.ID ? std::string_view(*row.ID) : std::string_view());
    if (id.empty())
      continue;
    if (!first) {
      stored.IDs += ',';
      stored.Colours += ',';
    }
    first = false;
    stored.IDs += id;
    if (row.Colour)
      stored.Colours += Platform::ColourText(*row.Colour);
  }
  return stored;
}

void LoadBrokers(const TStoredBrokers& stored, std::vector<TBrokerRow>& rows) {
  const auto ids = Split(stored.IDs);
  const auto colours = Split(stored.Colours);
  if (ids.empty())
    return;
  rows.resize(ids.size());
  for (std::size_t i = 0; i < ids.size(); ++i) {
    rows[i].ID = std::string(ids[i]);
    if (i < colours.size())
      rows[i].Colour = Platform::ParseColour(colours[i]).value_or(System::clWindow);
  }
}

} // namespace Quorpricepreference
