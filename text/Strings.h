#pragma once

#include <string_view>

/// Pieces of texts. All texts are UTF-8; what counts as a blank is every character up to and
/// including the space.
namespace Text {

constexpr bool IsBlank(char c) { return static_cast<unsigned char>(c) <= ' '; }

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Whether there are digits and nothing else.
bool IsDigits(std::string_view text);

/// True for a byte of a character that is not its first.
constexpr bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Without blanks at either end.
std::string_view Trim(std::string_view text);

/// Whether the texts differ in the case of Latin letters at most.
bool EqualsIgnoringCase(std::string_view one, std::string_view other);

/// Calls `take` with each piece of `text` between commas, empty pieces included; an empty text is
/// one empty piece.
template <typename TTake> void ForEachPiece(std::string_view text, TTake take) {
  for (;;) {
    const auto comma = text.find(',');
    take(text.substr(0, comma));
    if (comma == std::string_view::npos)
      return;
    text.remove_prefix(comma + 1);
  }
}

} // namespace Text
