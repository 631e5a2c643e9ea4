#pragma once

#include "feed/exchange/Layout.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Feed::Exchange {

/// One message of a packet: its bytes, header included, and its type.
struct TRawMessage {
  std::uint16_t Type = 0;
  std::string_view Bytes;
};

/// A packet: sequence number and time, and messages one behind the other, each of which counts one
/// in the sequence. Valid as long as the bytes that it was read from.
struct TPacket {
  static constexpr std::size_t HeaderSize = 16;

  std::uint32_t SeqNum = 0;   ///< of the first message; of the next one in a packet without any
  std::uint64_t SendTime = 0; ///< nanoseconds since 1970 in universal time; 0 when sent again
  std::uint8_t MessageCount = 0;
  std::string_view Messages; ///< whose sizes add up

  /// Nothing when the sizes of packet and messages do not add up. What stands behind the packet's
  /// own size is no part of it.
  static std::optional<TPacket> From(std::string_view bytes);

  bool IsHeartbeat() const { return MessageCount == 0; }

  /// Calls `take` with each message in order.
  template <typename TTake> void ForEach(TTake take) const {
    for (std::string_view left = Messages; !left.empty();) {
      const TRawMessage message = First(left);
      left.remove_prefix(message.Bytes.size());
      take(message);
    }
  }

private:
  static TRawMessage First(std::string_view messages);
};

/// Puts messages into packets of limited size.
class TPacketWriter {
public:
  /// `maximum`: bytes of a packet; a message that is longer has a packet for itself.
  explicit TPacketWriter(std::size_t maximum = 1400) : maximum_(maximum) {}

  /// `message` as TMessageWriter leaves it.
  void Add(std::string_view message);
  /// The packets of what was added, the first of them with `seqNum`; none is left behind.
  std::vector<std::string> Take(std::uint32_t seqNum, std::uint64_t sendTime);

  /// A packet without messages: `seqNum` is that of the next message.
  static std::string Heartbeat(std::uint32_t seqNum, std::uint64_t sendTime);

private:
  struct TBody {
    std::string Messages;
    std::uint8_t Count = 0;
  };

  const std::size_t maximum_;
  std::vector<TBody> bodies_;
};

} // namespace Feed::Exchange
