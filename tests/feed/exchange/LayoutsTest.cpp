// The table of the exchange's messages.

#include "feed/exchange/Layouts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace Feed::Exchange {
namespace {

struct TSize {
  std::uint16_t Type;
  std::size_t Fixed; ///< of a message without entries
  std::size_t Entry;
};

/// As the exchange's documents have them.
constexpr TSize Sizes[] = {
    {10, 40, 0},  {11, 544, 8}, {13, 10, 2},  {14, 16, 0},  {20, 32, 0},  {21, 12, 0},
    {23, 36, 0},  {30, 32, 0},  {31, 28, 0},  {32, 20, 0},  {33, 28, 0},  {34, 20, 0},
    {40, 12, 0},  {41, 20, 0},  {43, 20, 0},  {44, 12, 0},  {50, 32, 0},  {51, 12, 0},
    {52, 36, 0},  {53, 12, 24}, {54, 12, 4},  {56, 20, 0},  {60, 52, 0},  {61, 20, 0},
    {62, 16, 0},  {70, 20, 0},  {71, 112, 0}, {80, 24, 0},  {81, 32, 0},  {100, 8, 0},
    {101, 16, 0}, {102, 8, 0},  {105, 8, 0},  {201, 16, 0}, {202, 16, 0}, {203, 8, 0}};

TEST(ExchangeLayouts, HaveTheSizesOfTheExchange) {
  ASSERT_EQ(Layouts::All.size(), std::size(Sizes));
  for (const auto& size : Sizes) {
    const auto* layout = Layouts::Find(size.Type);
    ASSERT_NE(layout, nullptr) << size.Type;
    EXPECT_EQ(layout->FixedSize(), size.Fixed) << layout->Title;
    EXPECT_EQ(layout->Entry.Size(), size.Entry) << layout->Title;
  }
}

TEST(ExchangeLayouts, StandInTheOrderOfTheirTypes) {
  EXPECT_TRUE(std::ranges::is_sorted(Layouts::All, {}, &TMessageLayout::Type));
  for (const std::uint16_t type :
       std::initializer_list<std::uint16_t>{0, 9, 12, 22, 99, 204, 65535})
    EXPECT_EQ(Layouts::Find(type), nullptr) << type;
}

TEST(ExchangeLayouts, NameEachFieldOnceAndCountEntriesByAFieldOfTheirOwn) {
  for (const auto* layout : Layouts::All) {
    for (const TFields& fields : {layout->Fields, layout->Entry}) {
      std::set<std::string_view> names;
      for (const TFieldLayout& field : fields) {
        EXPECT_EQ(field.Name.empty(), field.Kind == TFieldKind::Filler) << layout->Title;
        EXPECT_TRUE(field.Name.empty() || names.insert(field.Name).second) << field.Name;
        EXPECT_GT(field.Size(), 0U) << layout->Title;
      }
    }
    const bool hasEntries = layout->Entry.begin() != layout->Entry.end();
    EXPECT_EQ(layout->Fields.Find(layout->Count) != layout->Fields.end(), hasEntries)
        << layout->Title;
  }
}

TEST(ExchangeLayouts, PutAFieldBehindThoseBeforeIt) {
  const auto& fields = Layouts::SecurityDefinition.Fields;
  const auto offset = [&](const char* name) {
    return TMessageLayout::HeaderSize + fields.OffsetOf(fields.Find(name));
  };
  EXPECT_EQ(offset("SecurityCode"), 4U);
  EXPECT_EQ(offset("SpreadTableCode"), 30U);
  EXPECT_EQ(offset("SecurityNameGB"), 135U);
  EXPECT_EQ(offset("POSUpperLimit"), 324U);
  EXPECT_EQ(offset("AccruedInterest"), 374U);
  EXPECT_EQ(offset("Entitlement"), 470U);
  EXPECT_EQ(offset("NoUnderlyingSecurities"), 542U);
}

} // namespace
} // namespace Feed::Exchange
