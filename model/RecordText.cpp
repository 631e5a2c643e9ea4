#include "model/RecordText.h"

#include "host/BaseFormatter.h"
#include "host/ConstDef.h"
#include "host/ICommon.h"

#include <charconv>
#include <cmath>

namespace Quorpricedatacontrol {

using Baseformatter::TCustomFormatter;
using Icommon::TCustomMarketDataFormatter;

namespace {

template <typename TNumber> std::optional<TNumber> ParseWhole(std::string_view text) {
  text = Trim(text);
  if (text.starts_with('+') && !text.starts_with("+-"))
    text.remove_prefix(1);
  const char* const end = text.data() + text.size();
  TNumber number{};
  const auto [parsed, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || parsed != end)
    return std::nullopt;
  return number;
}

} // namespace

bool IsReady(const TCustomSubItem* record) {
  return record && record->GetState() == Constdef::RecordState_Ready;
}

std::string_view TextOf(const TCustomSubItem* record, int field) {
  return record ? record->GetText(field) : std::string_view();
}

std::string PriceText(const TCustomSubItem* record, int field) {
  std::string text;
  if (!IsReady(record) ||
      !TCustomMarketDataFormatter::GetInstance()->FormatPrice(*record, field, text))
    return {};
  return text;
}

std::string VolumeText(const TCustomSubItem* record, int field) {
  std::string text;
  if (!IsReady(record) ||
      !TCustomMarketDataFormatter::GetInstance()->FormatVolume(*record, field, text))
    return {};
  return text;
}

std::string QuantityText(const TCustomSubItem* record, int field) {
  if (TextOf(record, field).empty())
    return {};
  return TCustomFormatter::GetInstance()->FormatQuantity(record->GetNumber(field));
}

std::string_view Trim(std::string_view text) {
  const auto isBlank = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
  while (!text.empty() && isBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

std::optional<int> ParseInteger(std::string_view text) { return ParseWhole<int>(text); }

std::optional<double> ParseNumber(std::string_view text) {
  const auto number = ParseWhole<double>(text);
  return number && std::isfinite(*number) ? number : std::nullopt;
}

} // namespace Quorpricedatacontrol
