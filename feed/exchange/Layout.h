#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace Feed::Exchange {

/// What a field of a message is. Integers are little-endian; letters stand at the left with blanks
/// behind them, Unicode is UTF-16 with blanks or nothing behind.
enum class TFieldKind : std::uint8_t {
  Uint8,
  Uint16,
  Uint32,
  Uint64,
  Int16,
  Int32,
  Int64,
  Letters,
  Unicode,
  Filler
};

struct TFieldLayout {
  std::string_view Name;
  TFieldKind Kind = TFieldKind::Filler;
  std::size_t Length = 0; ///< in bytes, of letters, Unicode and fillers

  constexpr std::size_t Size() const {
    switch (Kind) {
    case TFieldKind::Uint8:
      return 1;
    case TFieldKind::Uint16:
    case TFieldKind::Int16:
      return 2;
    case TFieldKind::Uint32:
    case TFieldKind::Int32:
      return 4;
    case TFieldKind::Uint64:
    case TFieldKind::Int64:
      return 8;
    default:
      return Length;
    }
  }
};

/// Fields one behind the other: where one lies follows from those before it.
class TFields {
public:
  static constexpr std::size_t Maximum = 64;

  constexpr TFields(std::initializer_list<TFieldLayout> fields) {
    for (const TFieldLayout& field : fields)
      fields_[count_++] = field;
  }

  constexpr const TFieldLayout* begin() const { return fields_.data(); }
  constexpr const TFieldLayout* end() const { return fields_.data() + count_; }

  /// Of all of them, in bytes.
  constexpr std::size_t Size() const {
    std::size_t size = 0;
    for (const TFieldLayout& field : *this)
      size += field.Size();
    return size;
  }
  /// `end()` when there is none of that name; a filler has none.
  constexpr const TFieldLayout* Find(std::string_view name) const {
    return std::find_if(begin(), end(), [name](const TFieldLayout& field) {
      return field.Kind != TFieldKind::Filler && field.Name == name;
    });
  }
  constexpr std::size_t OffsetOf(const TFieldLayout* field) const {
    std::size_t offset = 0;
    for (const TFieldLayout* before = begin(); before != field; ++before)
      offset += before->Size();
    return offset;
  }

private:
  std::array<TFieldLayout, Maximum> fields_{};
  std::size_t count_ = 0;
};

/// How a message of the exchange lies in bytes: its size, its type, its fields, and entries that
/// stand behind them as often as the field `Count` says.
struct TMessageLayout {
  static constexpr std::size_t HeaderSize = 4;

  std::uint16_t Type;
  std::string_view Title;
  TFields Fields;
  std::string_view Count = {}; ///< empty: without entries
  TFields Entry = {};

  /// The least that a message of this type measures: its header and fields.
  constexpr std::size_t FixedSize() const { return HeaderSize + Fields.Size(); }
};

} // namespace Feed::Exchange
