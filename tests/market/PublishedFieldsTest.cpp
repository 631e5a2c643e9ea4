#include "market/PublishedFields.h"

#include "host/RecordFields.h"

#include <gtest/gtest.h>

#include <map>

namespace {

namespace Field = Host::Field;

using namespace Market;
using namespace std::chrono_literals;

using TTexts = std::map<int, std::string>;

struct TNoListener : TMarketListener {
  void Traded(const TInstrumentMarket&, const TMatch&) override {}
  void Lapsed(const TInstrumentMarket&, const TBookOrder&) override {}
};

/// One share with a board lot of 500 whose prices move in steps of 0.01.
class TPublishedFieldsTest : public testing::Test {
protected:
  TPublishedFieldsTest() {
    Listed.Symbol = "5";
    Listed.YearHigh = 5'600;
    Listed.YearLow = 4'950;
  }

  static TInstrumentSettings Settings() {
    TInstrumentSettings settings;
    settings.Symbol = "5";
    settings.BoardLot = 500;
    settings.PreviousClose = 5'000;
    settings.HasClosingAuction = true;
    settings.VolatilityPercent = 10;
    return settings;
  }

  TEntryResult Enter(TSide side, TPrice price, TQuantity quantity, TBrokerId broker) {
    return Instrument.Enter({++LastId, side, TOrderKind::Limit, price, quantity, broker});
  }

  TTexts Book() const {
    TFieldList fields;
    AddBookFields(fields, SnapshotOf(Instrument));
    return Texts(std::move(fields));
  }

  TTexts Day() const {
    TFieldList fields;
    AddDayFields(fields, Listed, SnapshotOf(Instrument));
    return Texts(std::move(fields));
  }

  TTexts Sessions(TCoolingOffs earlier = TCoolingOffs::None) const {
    TFieldList fields;
    AddSessionFields(fields, Instrument.Settings(), SnapshotOf(Instrument), earlier);
    return Texts(std::move(fields));
  }

  static TTexts Texts(TFieldList fields) {
    const auto sorted = std::move(fields).Sorted();
    return {sorted.begin(), sorted.end()};
  }

  TTickGrid Grid{{{0, 250, 1}, {250, 500, 5}, {500, 10'000, 10}}};
  TTradingDay TradingDay{1};
  TNoListener NoListener;
  TInstrument Listed;
  TInstrumentMarket Instrument{Settings(), Grid, TradingDay, NoListener};
  TOrderId LastId = 0;
};

TEST_F(TPublishedFieldsTest, DepthIsReadOffTheBookLevelByLevel) {
  Instrument.AdvanceTo(10h);
  Enter(TSide::Bid, 4'990, 1'000, 120);
  Enter(TSide::Bid, 4'990, 500, 8088);
  Enter(TSide::Bid, 4'960, 2'000, 2820);
  Enter(TSide::Ask, 5'010, 1'500, 77);
  EXPECT_EQ(Book(), (TTexts{{Field::BestBid, "4.99"},
                            {Field::BestAsk, "5.01"},
                            {Field::BestBidSize, "1500"},
                            {Field::BestAskSize, "1500"},
                            {Field::Bid.Size[1], "2000"},
                            {Field::Bid.Count[0], "2"},
                            {Field::Bid.Count[1], "1"},
                            {Field::Ask.Count[0], "1"},
                            {Field::Bid.Price[1], "4.96"},
                            {Field::BidQueue, "0120,8088,-3,2820"},
                            {Field::AskQueue, "0077"}}));
}

TEST_F(TPublishedFieldsTest, TenLevelsASideAreSaid) {
  Instrument.AdvanceTo(10h);
  for (int level = 0; level < 12; ++level) {
    Enter(TSide::Bid, 4'990 - 10 * level, 500 * (level + 1), 1000 + level);
    Enter(TSide::Ask, 5'000 + 10 * level, 1000 * (level + 1), 2000 + level);
  }
  const TTexts texts = Book();
  for (std::size_t level = 0; level < 10; ++level) {
    const auto number = static_cast<TQuantity>(level);
    EXPECT_EQ(texts.at(Host::Field::Bid.Price[level]), PriceText(4'990 - 10 * number));
    EXPECT_EQ(texts.at(Host::Field::Bid.Size[level]), std::to_string(500 * (number + 1)));
    EXPECT_EQ(texts.at(Host::Field::Ask.Price[level]), PriceText(5'000 + 10 * number));
    EXPECT_EQ(texts.at(Host::Field::Ask.Size[level]), std::to_string(1000 * (number + 1)));
    EXPECT_EQ(texts.at(Host::Field::Ask.Count[level]), "1");
  }
  EXPECT_EQ(texts.size(), 62u);
  EXPECT_EQ(texts.at(Field::AskQueue),
            "2000,+1,2001,+2,2002,+3,2003,+4,2004,+5,2005,+6,2006,+7,2007,+8,2008,"
            "+9,2009,+10,2010,+11,2011");
}

TEST_F(TPublishedFieldsTest, TradesMakeTheDaysFigures) {
  Instrument.AdvanceTo(10h);
  Enter(TSide::Ask, 5'050, 1'000, 1);
  Enter(TSide::Ask, 5'060, 1'000, 1);
  Enter(TSide::Bid, 5'060, 1'500, 2);
  Enter(TSide::Bid, 5'000, 500, 2);
  Enter(TSide::Ask, 5'000, 500, 3);
  EXPECT_EQ(Day(), (TTexts{{Field::Nominal, "5"},
                           {Field::Volume, "2000"},
                           {Field::Low, "5"},
                           {Field::High, "5.06"},
                           {Field::Turnover, "10080.00"},
                           {Field::High52Weeks, "5.6"},
                           {Field::Low52Weeks, "4.95"},
                           {Field::Open, "5.05"}}));
}

TEST_F(TPublishedFieldsTest, NominalPriceIsThePreviousCloseBeforeAnyTrade) {
  Instrument.AdvanceTo(9h);
  EXPECT_EQ(Day(), (TTexts{{Field::Nominal, "5"},
                           {Field::Volume, "0"},
                           {Field::Turnover, "0.00"},
                           {Field::High52Weeks, "5.6"},
                           {Field::Low52Weeks, "4.95"}}));
}

TEST_F(TPublishedFieldsTest, NewHighsAndLowsWidenTheYears) {
  Listed.YearHigh = 5'010;
  Listed.YearLow = 5'005;
  Instrument.AdvanceTo(10h);
  Enter(TSide::Ask, 5'020, 500, 1);
  Enter(TSide::Bid, 5'020, 500, 2);
  EXPECT_EQ(Day().at(131), "5.02");
  EXPECT_EQ(Day().at(132), "5.005");
}

TEST_F(TPublishedFieldsTest, OpeningSessionSaysReferenceLimitsAndImbalanceAndNoBook) {
  Instrument.AdvanceTo(9h + 5min);
  Enter(TSide::Bid, 5'100, 3'000, 1);
  Enter(TSide::Ask, 4'900, 1'000, 2);
  EXPECT_EQ(Sessions(), (TTexts{{Field::VcmMarker, "1"},
                                {Field::PosMarker, "1"},
                                {Field::PosReferencePrice, "5"},
                                {Field::PosLowerPrice, "4.25"},
                                {Field::PosUpperPrice, "5.75"},
                                {Field::CasMarker, "1"},
                                {Field::ImbalanceDirection, "2"},
                                {Field::ImbalanceQuantity, "2000"},
                                {Field::PosSellLowerLimit, "4.25"},
                                {Field::PosBuyUpperLimit, "5.75"}}));
  EXPECT_EQ(Book(), TTexts{});
  EXPECT_EQ(Day().at(3), "5.1") << "the equilibrium price";
}

TEST_F(TPublishedFieldsTest, ImbalanceOfSellersAndOfNobody) {
  Instrument.AdvanceTo(9h + 5min);
  Enter(TSide::Bid, 5'000, 1'000, 1);
  EXPECT_FALSE(Sessions().contains(3514)) << "nothing would trade";
  Enter(TSide::Ask, 5'000, 1'000, 2);
  EXPECT_EQ(Sessions().at(3514), "1");
  EXPECT_EQ(Sessions().at(3515), "0");
  Enter(TSide::Ask, 5'000, 500, 2);
  EXPECT_EQ(Sessions().at(3514), "3");
  EXPECT_EQ(Sessions().at(3515), "500");
}

TEST_F(TPublishedFieldsTest, OpeningSessionIsOverOnceItIsMatched) {
  Instrument.AdvanceTo(9h + 25min);
  EXPECT_EQ(Sessions(),
            (TTexts{{Field::VcmMarker, "1"}, {Field::PosMarker, "0"}, {Field::CasMarker, "1"}}));
}

TEST_F(TPublishedFieldsTest, ClosingSessionSaysReferenceLimitsAndImbalance) {
  Instrument.AdvanceTo(15h);
  Enter(TSide::Ask, 5'010, 500, 1);
  Enter(TSide::Bid, 5'010, 500, 2);
  Instrument.AdvanceTo(16h + 2min);
  Enter(TSide::Bid, 5'100, 500, 1);
  Enter(TSide::Ask, 5'050, 2'000, 2);
  const TTexts texts = Sessions();
  EXPECT_EQ(texts, (TTexts{{Field::VcmMarker, "1"},
                           {Field::PosMarker, "0"},
                           {Field::CasMarker, "1"},
                           {Field::CasReferencePrice, "5.01"},
                           {Field::CasLowerPrice, "4.76"},
                           {Field::CasUpperPrice, "5.26"},
                           {Field::ImbalanceDirection, "3"},
                           {Field::ImbalanceQuantity, "1500"}}));
  EXPECT_EQ(Book(), TTexts{});
  Instrument.AdvanceTo(16h + 10min);
  EXPECT_EQ(Sessions(),
            (TTexts{{Field::VcmMarker, "1"}, {Field::PosMarker, "0"}, {Field::CasMarker, "0"}}));
}

TEST_F(TPublishedFieldsTest, CoolingOffSaysItsTimesAndPrices) {
  Instrument.AdvanceTo(10h);
  Enter(TSide::Ask, 5'000, 500, 1);
  Enter(TSide::Bid, 5'000, 500, 2);
  Instrument.AdvanceTo(10h + 6min);
  Enter(TSide::Ask, 5'510, 500, 1);
  Enter(TSide::Bid, 5'510, 500, 2);
  EXPECT_EQ(Sessions(), (TTexts{{Field::VcmMarker, "1"},
                                {Field::VcmStartTime, "10:06:00"},
                                {Field::VcmEndTime, "10:11:00"},
                                {Field::VcmReferencePrice, "5"},
                                {Field::VcmLowerPrice, "4.5"},
                                {Field::VcmUpperPrice, "5.5"},
                                {Field::PosMarker, "0"},
                                {Field::CasMarker, "1"}}));
  Instrument.AdvanceTo(10h + 11min);
  EXPECT_EQ(Sessions(TCoolingOffs::Had),
            (TTexts{{Field::VcmMarker, "0"}, {Field::PosMarker, "0"}, {Field::CasMarker, "1"}}));
}

TEST_F(TPublishedFieldsTest, SuspensionIsSaidAndNothingElseOfABook) {
  Instrument.AdvanceTo(10h);
  Enter(TSide::Bid, 4'990, 500, 1);
  EXPECT_FALSE(Day().contains(5));
  Instrument.Suspend();
  EXPECT_EQ(Day().at(5), "0");
  EXPECT_EQ(Book(), TTexts{});
}

TEST(ListedFields, SayWhatAWarrantIs) {
  const TListing listing;
  const auto& all = listing.Instruments();
  const auto warrant = std::find_if(all.begin(), all.end(), [](const TInstrument& instrument) {
    return instrument.Kind == TInstrumentKind::Warrant && instrument.Terms->Right == TRight::Put;
  });
  ASSERT_NE(warrant, all.end());
  TFieldList fields;
  AddListedFields(fields, listing, *warrant);
  const auto sorted = std::move(fields).Sorted();
  const TTexts texts(sorted.begin(), sorted.end());
  EXPECT_EQ(texts.at(Field::Name), warrant->Name);
  EXPECT_EQ(texts.at(Field::ProductType), "4");
  EXPECT_EQ(texts.at(Field::Underlying), warrant->Terms->Underlying);
  EXPECT_EQ(texts.at(Field::CallPut), "P");
  EXPECT_EQ(std::stod(texts.at(Field::ConversionRatio)) * warrant->Terms->UnitsPerUnderlying, 1);
  EXPECT_EQ(texts.at(Field::ExpiryDate).size(), std::string("2026-12-21").size());
  EXPECT_EQ(texts.at(Field::BoardLot), std::to_string(warrant->BoardLot));
  EXPECT_FALSE(texts.contains(Field::CallPrice));
  EXPECT_EQ(texts.at(Field::WarrantList), warrant->Terms->Underlying);
  EXPECT_FALSE(texts.at(Field::LiquidityProviderList).empty());
}

TEST(FieldList, WritesPricesWithoutNeedlessZeros) {
  EXPECT_EQ(PriceText(0), "0");
  EXPECT_EQ(PriceText(5), "0.005");
  EXPECT_EQ(PriceText(250), "0.25");
  EXPECT_EQ(PriceText(318'200), "318.2");
  EXPECT_EQ(PriceText(1'000'000), "1000");
}

TEST(FieldList, DifferenceNamesWhatIsNewChangedAndGone) {
  const TFieldTexts before{
      {Field::BestBid, "a"}, {Field::BestAsk, "b"}, {Field::Status, "d"}, {Field::Name, "g"}};
  const TFieldTexts after{{Field::BestAsk, "b"}, {Field::Nominal, "c"}, {Field::Status, "e"}};
  using TChanges = std::vector<std::pair<int, std::optional<std::string>>>;
  EXPECT_EQ(Difference(before, after), (TChanges{{Field::BestBid, std::nullopt},
                                                 {Field::Nominal, "c"},
                                                 {Field::Status, "e"},
                                                 {Field::Name, std::nullopt}}));
  EXPECT_EQ(Difference(after, after), TChanges{});
}

TEST(FieldList, MergedTakesTheSecondsTextOfAField) {
  EXPECT_EQ(Merged({{Field::BestBid, "a"}, {Field::Nominal, "c"}},
                   {{Field::BestAsk, "b"}, {Field::Nominal, "x"}}),
            (TFieldTexts{{Field::BestBid, "a"}, {Field::BestAsk, "b"}, {Field::Nominal, "x"}}));
}

} // namespace
