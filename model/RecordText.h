#pragma once

#include "host/BaseSubscribeData.h"

#include <optional>
#include <string>
#include <string_view>

/// Reading a record that may be null, and the texts of its fields.
namespace Quorpricedatacontrol {

using Basesubscribedata::TCustomSubItem;

/// True when there is a record and it holds data.
bool IsReady(const TCustomSubItem* record);

/// Empty without a record.
std::string_view TextOf(const TCustomSubItem* record, int field);

/// The field as the host formats prices; empty unless the record holds data.
std::string PriceText(const TCustomSubItem* record, int field);
/// The same for sizes and volumes. Zero is "0".
std::string VolumeText(const TCustomSubItem* record, int field);
/// The field as a quantity in shares; empty when the record does not give it.
std::string QuantityText(const TCustomSubItem* record, int field);

/// True for a byte of a UTF-8 character that is not its first.
inline bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// Without blanks at either end.
std::string_view Trim(std::string_view text);

/// A decimal integer, blanks around it allowed; nothing for anything else.
std::optional<int> ParseInteger(std::string_view text);

/// A finite decimal number, blanks around it allowed; nothing for anything else.
std::optional<double> ParseNumber(std::string_view text);

/// Calls `take` with each piece of `text` between commas, empty pieces included.
template <typename TTake> void ForEachPiece(std::string_view text, TTake take) {
  for (;;) {
    const auto comma = text.find(',');
    take(text.substr(0, comma));
    if (comma == std::string_view::npos)
      return;
    text.remove_prefix(comma + 1);
  }
}

} // namespace Quorpricedatacontrol
