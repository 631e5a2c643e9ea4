#pragma once

#include "feed/exchange/Layout.h"

#include <bit>
#include <cstring>
#include <optional>
#include <string>
#include <type_traits>

/// Messages read where they lie, and written behind one another. Fields go by their names, which
/// the compiler looks up: a name that a message does not have does not compile.
namespace Feed::Exchange {

static_assert(std::endian::native == std::endian::little, "integers are copied as they lie");

/// A field's name as an argument of a template.
template <std::size_t Length> struct TFieldName {
  char Text[Length]{};

  constexpr TFieldName(const char (&text)[Length]) { std::copy_n(text, Length, Text); }
  constexpr std::string_view View() const { return {Text, Length - 1}; }
};

/// Where a field lies in its message, or in an entry of it.
template <const TMessageLayout& Layout, bool IsOfEntry, TFieldName Name> struct TPlace {
  static constexpr const TFields& Fields = IsOfEntry ? Layout.Entry : Layout.Fields;
  static constexpr const TFieldLayout* Field = Fields.Find(Name.View());
  static_assert(Field != Fields.end(), "The message has no field of that name.");
  static constexpr TFieldKind Kind = Field->Kind;
  static constexpr std::size_t Size = Field->Size();
  static constexpr std::size_t Offset =
      Fields.OffsetOf(Field) + (IsOfEntry ? 0 : TMessageLayout::HeaderSize);
};

template <TFieldKind Kind> constexpr auto ZeroOf() {
  if constexpr (Kind == TFieldKind::Uint8)
    return std::uint8_t{};
  else if constexpr (Kind == TFieldKind::Uint16)
    return std::uint16_t{};
  else if constexpr (Kind == TFieldKind::Uint32)
    return std::uint32_t{};
  else if constexpr (Kind == TFieldKind::Uint64)
    return std::uint64_t{};
  else if constexpr (Kind == TFieldKind::Int16)
    return std::int16_t{};
  else if constexpr (Kind == TFieldKind::Int32)
    return std::int32_t{};
  else if constexpr (Kind == TFieldKind::Int64)
    return std::int64_t{};
  else
    return std::string_view{};
}

/// What a field of a kind holds: an integer, or bytes.
template <TFieldKind Kind> using TValueOf = decltype(ZeroOf<Kind>());

template <typename TNumber> TNumber Load(const char* at) {
  TNumber number;
  std::memcpy(&number, at, sizeof(TNumber));
  return number;
}

/// Letters without the blanks behind them.
inline std::string_view TrimmedLetters(std::string_view letters) {
  while (!letters.empty() && (letters.back() == ' ' || letters.back() == '\0'))
    letters.remove_suffix(1);
  return letters;
}

template <typename TPlaced> TValueOf<TPlaced::Kind> Read(const char* bytes) {
  const char* const at = bytes + TPlaced::Offset;
  if constexpr (TPlaced::Kind == TFieldKind::Letters)
    return TrimmedLetters({at, TPlaced::Size});
  else if constexpr (TPlaced::Kind == TFieldKind::Unicode)
    return {at, TPlaced::Size};
  else
    return Load<TValueOf<TPlaced::Kind>>(at);
}

template <typename TPlaced> void Write(char* bytes, TValueOf<TPlaced::Kind> value) {
  char* const at = bytes + TPlaced::Offset;
  if constexpr (std::is_same_v<TValueOf<TPlaced::Kind>, std::string_view>)
    std::copy_n(value.data(), std::min(value.size(), TPlaced::Size), at);
  else
    std::memcpy(at, &value, sizeof(value));
}

/// One of the entries behind a message's fields. Valid as long as the bytes are.
template <const TMessageLayout& Layout> class TEntry {
public:
  explicit TEntry(const char* bytes) : bytes_(bytes) {}

  template <TFieldName Name> auto Get() const { return Read<TPlace<Layout, true, Name>>(bytes_); }

private:
  const char* bytes_;
};

/// A message of a type in the bytes of a packet. Valid as long as these are.
template <const TMessageLayout& Layout> class TMessage {
public:
  /// Nothing when `bytes` are shorter than the fields and entries that they announce. What is
  /// longer is of a later version and is read as far as known.
  static std::optional<TMessage> From(std::string_view bytes) {
    if (bytes.size() < Layout.FixedSize())
      return {};
    const TMessage message(bytes.data());
    const std::size_t room = bytes.size() - Layout.FixedSize();
    return message.EntryCount() * Layout.Entry.Size() <= room ? std::optional(message)
                                                              : std::nullopt;
  }

  template <TFieldName Name> auto Get() const { return Read<TPlace<Layout, false, Name>>(bytes_); }

  std::size_t EntryCount() const {
    constexpr const TFieldLayout* count = Layout.Fields.Find(Layout.Count);
    if constexpr (count == Layout.Fields.end())
      return 0;
    else
      return Load<TValueOf<count->Kind>>(bytes_ + TMessageLayout::HeaderSize +
                                         Layout.Fields.OffsetOf(count));
  }
  TEntry<Layout> Entry(std::size_t index) const {
    return TEntry<Layout>(bytes_ + Layout.FixedSize() + index * Layout.Entry.Size());
  }

private:
  explicit TMessage(const char* bytes) : bytes_(bytes) {}

  const char* bytes_;
};

/// Appends fields without a value: zeros, and blanks where letters stand.
inline void AppendBlank(std::string& bytes, const TFields& fields) {
  for (const TFieldLayout& field : fields)
    bytes.append(field.Size(), field.Kind == TFieldKind::Letters ? ' ' : '\0');
}

/// An entry that was just added to a message that is being written.
template <const TMessageLayout& Layout> class TEntryWriter {
public:
  TEntryWriter(std::string& bytes, std::size_t begin) : bytes_(bytes), begin_(begin) {}

  template <TFieldName Name> TEntryWriter& Set(TValueOf<TPlace<Layout, true, Name>::Kind> value) {
    Write<TPlace<Layout, true, Name>>(bytes_.data() + begin_, value);
    return *this;
  }

private:
  std::string& bytes_;
  std::size_t begin_;
};

/// Writes a message at the end of `bytes`, at first without a value in any field. While it does,
/// nothing else may be appended.
template <const TMessageLayout& Layout> class TMessageWriter {
public:
  explicit TMessageWriter(std::string& bytes) : bytes_(bytes), begin_(bytes.size()) {
    bytes_.append(TMessageLayout::HeaderSize, '\0');
    AppendBlank(bytes_, Layout.Fields);
    Store(0, static_cast<std::uint16_t>(Layout.FixedSize()));
    Store(sizeof(std::uint16_t), Layout.Type);
  }

  template <TFieldName Name>
  TMessageWriter& Set(TValueOf<TPlace<Layout, false, Name>::Kind> value) {
    Write<TPlace<Layout, false, Name>>(bytes_.data() + begin_, value);
    return *this;
  }

  /// As many as the field that counts them can hold.
  TEntryWriter<Layout> AddEntry() {
    constexpr const TFieldLayout* count = Layout.Fields.Find(Layout.Count);
    static_assert(count != Layout.Fields.end(), "The message has no entries.");
    constexpr std::size_t at = TMessageLayout::HeaderSize + Layout.Fields.OffsetOf(count);
    using TCount = TValueOf<count->Kind>;
    Store(at, static_cast<TCount>(Load<TCount>(bytes_.data() + begin_ + at) + 1));
    const std::size_t entry = bytes_.size();
    AppendBlank(bytes_, Layout.Entry);
    Store(0, static_cast<std::uint16_t>(bytes_.size() - begin_));
    return {bytes_, entry};
  }

private:
  template <typename TNumber> void Store(std::size_t at, TNumber number) {
    std::memcpy(bytes_.data() + begin_ + at, &number, sizeof(number));
  }

  std::string& bytes_;
  const std::size_t begin_;
};

} // namespace Feed::Exchange
