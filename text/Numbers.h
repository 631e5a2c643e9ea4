#pragma once

#include <charconv>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Numbers as texts and back. Results never show a negative zero.
namespace Text {

/// The most decimals that a price or a quantity is shown with.
inline constexpr int MaxDecimals = 8;

enum class TGrouping { None, Thousands };
enum class TSign { NegativeOnly, Always };

/// The number that the whole text is, as std::from_chars reads it; nothing for any other text.
template <typename TNumber> std::optional<TNumber> ParseWhole(std::string_view text) {
  TNumber number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

/// A finite decimal number, blanks around it and a plus sign allowed; nothing for any other text.
std::optional<double> ParseNumber(std::string_view text);
/// The same for a 32-bit whole number.
std::optional<int> ParseInteger(std::string_view text);

/// The number of digits after the point of `text`.
int DecimalsIn(std::string_view text);

/// Writes `value`, rounded to `most` decimals (0 to MaxDecimals), with no fewer than `least` and
/// no more than it needs; nothing for what is not finite. TSign::Always puts a plus sign before
/// what is above zero.
void WriteNumber(std::string& text, double value, int least, int most, TGrouping grouping,
                 TSign sign = TSign::NegativeOnly);

/// Writes a price that a feed gave as text: all its decimals, and no fewer than `least` when that
/// is known. A text that is no number stands as it is.
void WritePriceText(std::string& text, std::string_view given, std::optional<int> least);

/// Writes a quantity that a feed gave as text, in groups of three. A text that is no number stands
/// as it is.
void WriteQuantityText(std::string& text, std::string_view given);

/// What large numbers are counted in: millions, say.
struct TUnit {
  double Size;
  const char* Name;
};

/// `value` in the largest of `units`, ascending, that it reaches, with that many decimals and the
/// unit's name: 1.50M. Below all of them, with no more decimals than it needs. Empty for what is
/// not finite.
std::string AbbreviatedNumber(double value, int decimals, std::span<const TUnit> units);

} // namespace Text
