#include "feed/exchange/Description.h"

#include "feed/exchange/Layouts.h"
#include "feed/exchange/Message.h"

namespace Feed::Exchange {

namespace {

template <typename TNumber> std::string NumberAt(const char* at) {
  return std::to_string(Load<TNumber>(at));
}

/// UTF-16 as far as it is ASCII; anything else is a question mark.
std::string Plain(std::string_view unicode) {
  std::string plain;
  for (std::size_t i = 0; i + 1 < unicode.size(); i += 2)
    plain += unicode[i + 1] == 0 && unicode[i] >= 0 ? unicode[i] : '?';
  return std::string(TrimmedLetters(plain));
}

std::string ValueAt(const TFieldLayout& field, const char* at) {
  switch (field.Kind) {
  case TFieldKind::Uint8:
    return NumberAt<std::uint8_t>(at);
  case TFieldKind::Uint16:
    return NumberAt<std::uint16_t>(at);
  case TFieldKind::Uint32:
    return NumberAt<std::uint32_t>(at);
  case TFieldKind::Uint64:
    return NumberAt<std::uint64_t>(at);
  case TFieldKind::Int16:
    return NumberAt<std::int16_t>(at);
  case TFieldKind::Int32:
    return NumberAt<std::int32_t>(at);
  case TFieldKind::Int64:
    return NumberAt<std::int64_t>(at);
  case TFieldKind::Unicode:
    return Plain({at, field.Size()});
  default:
    return std::string(TrimmedLetters({at, field.Size()}));
  }
}

std::string DescribeFields(const TFields& fields, const char* bytes) {
  std::string text;
  for (const TFieldLayout& field : fields) {
    if (field.Kind != TFieldKind::Filler)
      (text += text.empty() ? "" : ", ").append(field.Name).append(" ") += ValueAt(field, bytes);
    bytes += field.Size();
  }
  return text;
}

std::size_t EntryCount(const TMessageLayout& layout, std::string_view message) {
  const auto* count = layout.Fields.Find(layout.Count);
  if (count == layout.Fields.end())
    return 0;
  const char* at = message.data() + TMessageLayout::HeaderSize + layout.Fields.OffsetOf(count);
  return std::stoul(ValueAt(*count, at));
}

} // namespace

std::string Describe(std::string_view message) {
  if (message.size() < TMessageLayout::HeaderSize)
    return "Too short";
  const auto type = Load<std::uint16_t>(message.data() + sizeof(std::uint16_t));
  const auto* layout = Layouts::Find(type);
  if (!layout)
    return "Unknown (" + std::to_string(type) + ")";
  std::string text = std::string(layout->Title) + " (" + std::to_string(type) + ")";
  if (message.size() < layout->FixedSize() ||
      message.size() < layout->FixedSize() + EntryCount(*layout, message) * layout->Entry.Size())
    return text + ": too short";
  text += ": " + DescribeFields(layout->Fields, message.data() + TMessageLayout::HeaderSize);
  const char* entry = message.data() + layout->FixedSize();
  for (std::size_t left = EntryCount(*layout, message); left > 0; --left) {
    text += " [" + DescribeFields(layout->Entry, entry) + "]";
    entry += layout->Entry.Size();
  }
  return text;
}

} // namespace Feed::Exchange
