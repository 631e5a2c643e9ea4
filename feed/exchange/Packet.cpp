#include "feed/exchange/Packet.h"

#include "feed/exchange/Message.h"

#include <limits>

namespace Feed::Exchange {

namespace {

constexpr std::size_t CountAt = 2;
constexpr std::size_t SeqNumAt = 4;
constexpr std::size_t SendTimeAt = 8;

void Store(std::string& bytes, std::size_t at, auto number) {
  std::memcpy(bytes.data() + at, &number, sizeof(number));
}

std::string WithHeader(std::string_view messages, std::uint8_t count, std::uint32_t seqNum,
                       std::uint64_t sendTime) {
  std::string packet(TPacket::HeaderSize, '\0');
  packet += messages;
  Store(packet, 0, static_cast<std::uint16_t>(packet.size()));
  Store(packet, CountAt, count);
  Store(packet, SeqNumAt, seqNum);
  Store(packet, SendTimeAt, sendTime);
  return packet;
}

/// Whether `messages` are `count` messages, none shorter than its header, and nothing else.
bool AddUp(std::string_view messages, std::size_t count) {
  for (; count > 0; --count) {
    if (messages.size() < TMessageLayout::HeaderSize)
      return false;
    const auto size = Load<std::uint16_t>(messages.data());
    if (size < TMessageLayout::HeaderSize || size > messages.size())
      return false;
    messages.remove_prefix(size);
  }
  return messages.empty();
}

} // namespace

std::optional<TPacket> TPacket::From(std::string_view bytes) {
  if (bytes.size() < HeaderSize)
    return {};
  const auto size = Load<std::uint16_t>(bytes.data());
  if (size < HeaderSize || size > bytes.size())
    return {};
  const auto count = Load<std::uint8_t>(bytes.data() + CountAt);
  const auto messages = bytes.substr(HeaderSize, size - HeaderSize);
  if (!AddUp(messages, count))
    return {};
  return TPacket{Load<std::uint32_t>(bytes.data() + SeqNumAt),
                 Load<std::uint64_t>(bytes.data() + SendTimeAt), count, messages};
}

TRawMessage TPacket::First(std::string_view messages) {
  const auto size = Load<std::uint16_t>(messages.data());
  return {Load<std::uint16_t>(messages.data() + sizeof(size)), messages.substr(0, size)};
}

void TPacketWriter::Add(std::string_view message) {
  constexpr std::size_t most = std::numeric_limits<std::uint8_t>::max();
  const bool fits =
      !bodies_.empty() && bodies_.back().Count < most &&
      TPacket::HeaderSize + bodies_.back().Messages.size() + message.size() <= maximum_;
  if (!fits)
    bodies_.emplace_back();
  bodies_.back().Messages += message;
  ++bodies_.back().Count;
}

std::vector<std::string> TPacketWriter::Take(std::uint32_t seqNum, std::uint64_t sendTime) {
  std::vector<std::string> packets;
  for (const TBody& body : bodies_) {
    packets.push_back(WithHeader(body.Messages, body.Count, seqNum, sendTime));
    seqNum += body.Count;
  }
  bodies_.clear();
  return packets;
}

std::string TPacketWriter::Heartbeat(std::uint32_t seqNum, std::uint64_t sendTime) {
  return WithHeader({}, 0, seqNum, sendTime);
}

} // namespace Feed::Exchange
