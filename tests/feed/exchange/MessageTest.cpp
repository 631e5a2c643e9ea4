// Messages of the exchange: written, read and described by their layouts.

#include "feed/exchange/Message.h"
#include "feed/exchange/Description.h"
#include "feed/exchange/Layouts.h"

#include <gtest/gtest.h>

#include <limits>

namespace Feed::Exchange {
namespace {

TEST(ExchangeMessage, LiesInTheBytesOfTheExchange) {
  std::string bytes;
  TMessageWriter<Layouts::NominalPrice>(bytes).Set<"SecurityCode">(700).Set<"NominalPrice">(-2);
  EXPECT_EQ(bytes, std::string("\x0c\x00\x28\x00\xbc\x02\x00\x00\xfe\xff\xff\xff", 12));
}

TEST(ExchangeMessage, IsReadAsItWasWritten) {
  std::string bytes;
  TMessageWriter<Layouts::SecurityDefinition>(bytes)
      .Set<"SecurityCode">(4'000'000'000)
      .Set<"ProductType">(255)
      .Set<"SecurityShortName">("HARBOUR TECH")
      .Set<"SecurityNameGB">(std::string_view("\x2f\x6e", 2))
      .Set<"VCMFlag">("Y")
      .Set<"POSLowerLimit">(std::numeric_limits<std::int32_t>::min())
      .Set<"FaceValue">(std::numeric_limits<std::uint64_t>::max());
  const auto message = TMessage<Layouts::SecurityDefinition>::From(bytes);
  ASSERT_TRUE(message);
  EXPECT_EQ(message->Get<"SecurityCode">(), 4'000'000'000);
  EXPECT_EQ(message->Get<"ProductType">(), 255);
  EXPECT_EQ(message->Get<"SecurityShortName">(), "HARBOUR TECH") << "without the blanks";
  EXPECT_EQ(message->Get<"SecurityNameGB">().substr(0, 4), std::string_view("\x2f\x6e\0\0", 4));
  EXPECT_EQ(message->Get<"SecurityNameGB">().size(), 60U);
  EXPECT_EQ(message->Get<"VCMFlag">(), "Y");
  EXPECT_EQ(message->Get<"CASFlag">(), "");
  EXPECT_EQ(message->Get<"POSLowerLimit">(), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(message->Get<"FaceValue">(), std::numeric_limits<std::uint64_t>::max());
  EXPECT_EQ(message->EntryCount(), 0U);
}

TEST(ExchangeMessage, LettersThatAreTooLongAreCutAndReachNoOtherField) {
  std::string bytes;
  TMessageWriter<Layouts::MarketDefinition>(bytes).Set<"CurrencyCode">("HKD").Set<"MarketCode">(
      "MAINBOARD");
  const auto message = TMessage<Layouts::MarketDefinition>::From(bytes);
  EXPECT_EQ(message->Get<"MarketCode">(), "MAIN");
  EXPECT_EQ(message->Get<"MarketName">(), "");
  EXPECT_EQ(message->Get<"CurrencyCode">(), "HKD");
}

TEST(ExchangeMessage, EntriesStandBehindTheFieldsAndAreCounted) {
  std::string bytes = "before";
  TMessageWriter<Layouts::AggregateOrderBookUpdate> writer(bytes);
  writer.Set<"SecurityCode">(5);
  writer.AddEntry().Set<"Price">(60'050).Set<"AggregateQuantity">(400).Set<"Side">(1);
  writer.AddEntry().Set<"Price">(60'100).Set<"UpdateAction">(74).Set<"PriceLevel">(10);
  ASSERT_EQ(bytes.size(), 6 + 12 + 2 * 24U);
  EXPECT_EQ(Load<std::uint16_t>(bytes.data() + 6), 12 + 2 * 24);
  const auto message =
      TMessage<Layouts::AggregateOrderBookUpdate>::From(std::string_view(bytes).substr(6));
  ASSERT_TRUE(message);
  EXPECT_EQ(message->Get<"SecurityCode">(), 5U);
  ASSERT_EQ(message->EntryCount(), 2U);
  EXPECT_EQ(message->Entry(0).Get<"Price">(), 60'050);
  EXPECT_EQ(message->Entry(0).Get<"AggregateQuantity">(), 400U);
  EXPECT_EQ(message->Entry(0).Get<"Side">(), 1);
  EXPECT_EQ(message->Entry(1).Get<"Price">(), 60'100);
  EXPECT_EQ(message->Entry(1).Get<"UpdateAction">(), 74);
  EXPECT_EQ(message->Entry(1).Get<"PriceLevel">(), 10);
}

TEST(ExchangeMessage, IsNoneWhenItIsShorterThanWhatItAnnounces) {
  std::string bytes;
  TMessageWriter<Layouts::BrokerQueue> writer(bytes);
  writer.AddEntry().Set<"Item">(1234);
  writer.AddEntry().Set<"Item">(5678);
  for (std::size_t size = 0; size < bytes.size(); ++size)
    EXPECT_FALSE(TMessage<Layouts::BrokerQueue>::From(bytes.substr(0, size))) << size;
  EXPECT_TRUE(TMessage<Layouts::BrokerQueue>::From(bytes));
  bytes += "of a later version";
  const auto later = TMessage<Layouts::BrokerQueue>::From(bytes);
  ASSERT_TRUE(later);
  EXPECT_EQ(later->Entry(1).Get<"Item">(), 5678);
}

TEST(ExchangeMessage, IsDescribedByItsLayout) {
  std::string bytes;
  TMessageWriter<Layouts::BrokerQueue> writer(bytes);
  writer.Set<"SecurityCode">(700).Set<"Side">(2).Set<"BQMoreFlag">("N");
  writer.AddEntry().Set<"Item">(1234).Set<"Type">("B");
  writer.AddEntry().Set<"Item">(1).Set<"Type">("S");
  EXPECT_EQ(Describe(bytes),
            "Broker Queue (54): SecurityCode 700, ItemCount 2, Side 2, BQMoreFlag N"
            " [Item 1234, Type B] [Item 1, Type S]");
  EXPECT_EQ(Describe(bytes.substr(0, 19)), "Broker Queue (54): too short");
  EXPECT_EQ(Describe(bytes.substr(0, 3)), "Too short");
  EXPECT_EQ(Describe(std::string_view("\x04\x00\x0c\x00", 4)), "Unknown (12)");
}

} // namespace
} // namespace Feed::Exchange
