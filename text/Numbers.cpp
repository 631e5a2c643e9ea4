#include "text/Numbers.h"

#include "text/Strings.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Text {

namespace {

/// A trimmed number as from_chars reads it: without a plus sign.
std::string_view WithoutPlus(std::string_view text) {
  const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
  return plus ? text.substr(1) : text;
}

/// Digits, or digits, a point and digits, without needless zeros in front: a text that can be
/// shown without being read as a number.
bool IsPlainDecimal(std::string_view text) {
  const auto point = text.find('.');
  const auto whole = text.substr(0, point);
  return IsDigits(whole) && (whole.size() == 1 || whole[0] != '0') &&
         (point == std::string_view::npos || IsDigits(text.substr(point + 1)));
}

/// Pads with zeros, or takes zeros away, down to `least` decimals.
void FitDecimals(std::string& text, int least) {
  auto decimals = DecimalsIn(text);
  if (decimals < least) {
    if (decimals == 0)
      text += '.';
    text.append(static_cast<std::size_t>(least - decimals), '0');
    return;
  }
  for (; decimals > least && text.back() == '0'; --decimals)
    text.pop_back();
  if (text.back() == '.')
    text.pop_back();
}

/// Groups the digits before the point.
void GroupThousands(std::string& text) {
  const std::size_t first = text[0] == '-' ? 1 : 0;
  for (auto place = std::min(text.find('.'), text.size()); place > first + 3;)
    text.insert(place -= 3, 1, ',');
}

bool IsZero(std::string_view text) {
  return text.find_first_of("123456789") == std::string_view::npos;
}

} // namespace

std::optional<double> ParseNumber(std::string_view text) {
  const auto value = ParseWhole<double>(WithoutPlus(Trim(text)));
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<int> ParseInteger(std::string_view text) {
  return ParseWhole<int>(WithoutPlus(Trim(text)));
}

int DecimalsIn(std::string_view text) {
  const auto point = text.find('.');
  if (point == std::string_view::npos)
    return 0;
  const auto digits = text.substr(point + 1);
  return static_cast<int>(std::find_if_not(digits.begin(), digits.end(), IsDigit) - digits.begin());
}

void WriteNumber(std::string& text, double value, int least, int most, TGrouping grouping,
                 TSign sign) {
  text.clear();
  if (!std::isfinite(value))
    return;
  std::array<char, 340> digits; // the largest double has 309 before the point
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::fixed, most)
                       .ptr;
  text.assign(digits.data(), end);
  if (DecimalsIn(text) > least)
    FitDecimals(text, least);
  const bool isZero = IsZero(text);
  if (isZero && text[0] == '-')
    text.erase(0, 1);
  if (grouping == TGrouping::Thousands)
    GroupThousands(text);
  if (sign == TSign::Always && value > 0 && !isZero)
    text.insert(0, 1, '+');
}

void WritePriceText(std::string& text, std::string_view given, std::optional<int> least) {
  const auto number = Trim(given);
  if (IsPlainDecimal(number)) {
    text.assign(number);
    if (least)
      FitDecimals(text, *least);
  } else if (const auto value = ParseNumber(number)) {
    WriteNumber(text, *value, least.value_or(DecimalsIn(number)), MaxDecimals, TGrouping::None);
  } else {
    text.assign(given);
  }
}

void WriteQuantityText(std::string& text, std::string_view given) {
  const auto number = Trim(given);
  if (IsDigits(number) && IsPlainDecimal(number)) {
    text.assign(number);
    GroupThousands(text);
  } else if (const auto value = ParseNumber(number)) {
    WriteNumber(text, *value, 0, MaxDecimals, TGrouping::Thousands);
  } else {
    text.assign(given);
  }
}

std::string AbbreviatedNumber(double value, int decimals, std::span<const TUnit> units) {
  decimals = std::clamp(decimals, 0, MaxDecimals);
  const TUnit* unit = nullptr;
  // What rounding would bring to the size of a unit is one of it.
  const auto reaches = [&](const TUnit& next) {
    const double size = unit ? unit->Size : 1;
    return std::abs(value) / size >= next.Size / size - 0.5 * std::pow(10, -decimals);
  };
  for (const TUnit& next : units)
    if (reaches(next))
      unit = &next;
  std::string text;
  WriteNumber(text, unit ? value / unit->Size : value, unit ? decimals : 0, decimals,
              TGrouping::Thousands);
  return text.empty() || !unit ? text : text + unit->Name;
}

} // namespace Text
