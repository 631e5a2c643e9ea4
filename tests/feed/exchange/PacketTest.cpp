// Packets of the exchange, whole and damaged.

#include "feed/exchange/Packet.h"
#include "feed/exchange/Layouts.h"
#include "feed/exchange/Message.h"

#include <gtest/gtest.h>

#include <random>

namespace Feed::Exchange {
namespace {

constexpr std::uint64_t Time = 1'790'000'000'123'456'789;

std::string Nominal(std::uint32_t code, std::int32_t price) {
  std::string bytes;
  TMessageWriter<Layouts::NominalPrice>(bytes).Set<"SecurityCode">(code).Set<"NominalPrice">(price);
  return bytes;
}

std::vector<TRawMessage> MessagesOf(const TPacket& packet) {
  std::vector<TRawMessage> messages;
  packet.ForEach([&](const TRawMessage& message) { messages.push_back(message); });
  return messages;
}

std::string OnePacket() {
  TPacketWriter writer;
  writer.Add(Nominal(700, 318'200));
  writer.Add(Nominal(5, 60'050));
  return writer.Take(41, Time).at(0);
}

TEST(ExchangePacket, HasItsNumberItsTimeAndItsMessagesInOrder) {
  const std::string bytes = OnePacket();
  EXPECT_EQ(bytes.size(), 16 + 2 * 12U);
  const auto packet = TPacket::From(bytes);
  ASSERT_TRUE(packet);
  EXPECT_EQ(packet->SeqNum, 41U);
  EXPECT_EQ(packet->SendTime, Time);
  EXPECT_FALSE(packet->IsHeartbeat());
  const auto messages = MessagesOf(*packet);
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_EQ(messages[0].Type, 40);
  EXPECT_EQ(messages[0].Bytes, Nominal(700, 318'200));
  EXPECT_EQ(messages[1].Bytes, Nominal(5, 60'050));
}

TEST(ExchangePacket, AHeartbeatHasNoMessage) {
  const auto packet = TPacket::From(TPacketWriter::Heartbeat(43, Time));
  ASSERT_TRUE(packet);
  EXPECT_TRUE(packet->IsHeartbeat());
  EXPECT_EQ(packet->SeqNum, 43U);
  EXPECT_TRUE(MessagesOf(*packet).empty());
}

TEST(ExchangePacket, IsNoneWhenItsSizesDoNotAddUp) {
  const std::string whole = OnePacket();
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_FALSE(TPacket::From(whole.substr(0, size))) << size;
  EXPECT_TRUE(TPacket::From(whole + "trailer of the network"));
  const auto changed = [&](std::size_t at, char value) {
    std::string bytes = whole;
    bytes[at] = value;
    return TPacket::From(bytes).has_value();
  };
  EXPECT_FALSE(changed(0, 39)) << "a packet that ends in a message";
  EXPECT_FALSE(changed(0, 15)) << "one shorter than its header";
  EXPECT_FALSE(changed(2, 1)) << "fewer messages than there are";
  EXPECT_FALSE(changed(2, 3)) << "more";
  EXPECT_FALSE(changed(16, 3)) << "a message shorter than its header";
  EXPECT_FALSE(changed(16, 0));
  EXPECT_FALSE(changed(28, 13)) << "a message that leaves the packet";
}

TEST(ExchangePacket, AnyBytesAreReadWithinTheirEnds) {
  std::mt19937 random(20261122);
  for (int i = 0; i < 20'000; ++i) {
    std::string bytes = OnePacket();
    for (int changes = 1 + static_cast<int>(random() % 3); changes > 0; --changes)
      bytes[random() % bytes.size()] = static_cast<char>(random());
    bytes.resize(random() % (bytes.size() + 1));
    bytes.shrink_to_fit();
    const auto packet = TPacket::From(bytes);
    if (!packet)
      continue;
    std::size_t size = 0;
    for (const auto& message : MessagesOf(*packet))
      size += message.Bytes.size();
    EXPECT_EQ(size, packet->Messages.size());
    EXPECT_LE(size + TPacket::HeaderSize, bytes.size());
  }
}

TEST(ExchangePacket, ManyMessagesTakeManyPacketsWhoseNumbersGoOn) {
  TPacketWriter writer(16 + 3 * 12 + 5);
  for (std::uint32_t code = 1; code <= 7; ++code)
    writer.Add(Nominal(code, 1));
  const auto packets = writer.Take(100, Time);
  ASSERT_EQ(packets.size(), 3U);
  std::uint32_t code = 0;
  for (const auto& bytes : packets) {
    EXPECT_LE(bytes.size(), 16 + 3 * 12U);
    const auto packet = TPacket::From(bytes);
    ASSERT_TRUE(packet);
    EXPECT_EQ(packet->SeqNum, 100 + code);
    for (const auto& message : MessagesOf(*packet))
      EXPECT_EQ(TMessage<Layouts::NominalPrice>::From(message.Bytes)->Get<"SecurityCode">(),
                ++code);
  }
  EXPECT_EQ(code, 7U);
  EXPECT_TRUE(writer.Take(107, Time).empty()) << "none is left";
}

TEST(ExchangePacket, NoMoreMessagesStandInOneThanCanBeCounted) {
  TPacketWriter writer(100'000);
  for (int i = 0; i < 300; ++i)
    writer.Add(Nominal(1, 1));
  const auto packets = writer.Take(1, Time);
  ASSERT_EQ(packets.size(), 2U);
  EXPECT_EQ(TPacket::From(packets[0])->MessageCount, 255);
  EXPECT_EQ(TPacket::From(packets[1])->SeqNum, 256U);
}

} // namespace
} // namespace Feed::Exchange
