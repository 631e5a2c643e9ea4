#include "text/TimeOfDay.h"

#include "text/Strings.h"

#include <array>
#include <cstdio>

namespace Text {

namespace {

/// The number that the two digits at the front of `text` give, which are then cut off; -1 when
/// there are none.
int CutTwoDigits(std::string_view& text) {
  if (text.size() < 2 || !IsDigit(text[0]) || !IsDigit(text[1]))
    return -1;
  const int number = (text[0] - '0') * 10 + (text[1] - '0');
  text.remove_prefix(2);
  return number;
}

bool CutCharacter(std::string_view& text, char character) {
  if (text.empty() || text.front() != character)
    return false;
  text.remove_prefix(1);
  return true;
}

/// What remains of a time behind its seconds: nothing, or a point and one to six digits.
std::optional<std::chrono::microseconds> Fraction(std::string_view text) {
  if (text.empty())
    return std::chrono::microseconds(0);
  if (!CutCharacter(text, '.') || text.empty() || text.size() > 6)
    return std::nullopt;
  int fraction = 0;
  for (std::size_t i = 0; i < 6; ++i) {
    const char digit = i < text.size() ? text[i] : '0';
    if (!IsDigit(digit))
      return std::nullopt;
    fraction = fraction * 10 + (digit - '0');
  }
  return std::chrono::microseconds(fraction);
}

} // namespace

std::optional<TTimeOfDay> ParseTimeOfDay(std::string_view text) {
  std::array<int, 3> parts{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0 && !CutCharacter(text, ':'))
      return std::nullopt;
    parts[i] = CutTwoDigits(text);
    if (parts[i] < 0 || parts[i] > (i == 0 ? 23 : 59))
      return std::nullopt;
  }
  const auto fraction = Fraction(text);
  if (!fraction)
    return std::nullopt;
  return std::chrono::hours(parts[0]) + std::chrono::minutes(parts[1]) +
         std::chrono::seconds(parts[2]) + *fraction;
}

std::string TimeOfDayText(TTimeOfDay time) {
  const std::chrono::hh_mm_ss parts(time);
  std::array<char, 32> text{};
  std::snprintf(
      text.data(), text.size(), "%02ld:%02ld:%02ld.%06ld", static_cast<long>(parts.hours().count()),
      static_cast<long>(parts.minutes().count()), static_cast<long>(parts.seconds().count()),
      static_cast<long>(parts.subseconds().count()));
  return text.data();
}

std::string ClockText(TTimeOfDay time) { return TimeOfDayText(time).substr(0, 8); }

} // namespace Text
