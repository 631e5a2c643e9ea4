#include "market/Listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

namespace Market {
namespace {

using namespace std::chrono_literals;

struct TListingTest : testing::Test {
  std::size_t Count(auto&& isWanted) const {
    return std::size_t(std::ranges::count_if(Listed.Instruments(), isWanted));
  }
  const TInstrument& At(std::string_view symbol) const { return *Listed.Find(symbol); }

  TListing Listed;
};

std::size_t Characters(std::string_view text) {
  return std::size_t(
      std::ranges::count_if(text, [](char byte) { return (byte & '\xC0') != '\x80'; }));
}

std::vector<std::string> Split(const std::string& codes) {
  std::istringstream stream(codes);
  return {std::istream_iterator<std::string>(stream), {}};
}

bool IsWithin(std::string_view symbol, int from, int to) {
  const int code = std::stoi(std::string(symbol));
  return from <= code && code <= to;
}

TEST_F(TListingTest, ListsSomeSixtyInstrumentsOfEveryKind) {
  EXPECT_EQ(Listed.Instruments().size(), 63U);
  EXPECT_GE(Count([](const TInstrument& i) { return i.Kind == TInstrumentKind::Warrant; }), 10U);
  EXPECT_GE(Count([](const TInstrument& i) { return i.Kind == TInstrumentKind::CallableContract; }),
            10U);
  for (const TInstrumentKind kind : {TInstrumentKind::Share, TInstrumentKind::Fund,
                                     TInstrumentKind::Trust, TInstrumentKind::Bond})
    EXPECT_GE(Count([&](const TInstrument& i) { return i.Kind == kind; }), 1U);
  EXPECT_EQ(Count([](const TInstrument& i) { return i.Standing == TStanding::Halted; }), 1U);
  EXPECT_EQ(Count([](const TInstrument& i) { return i.Standing == TStanding::Unknown; }), 1U);
  EXPECT_EQ(Count([](const TInstrument& i) { return i.Exchange == "XCL"; }), 1U);
  EXPECT_GE(Count([](const TInstrument& i) {
              return i.Kind == TInstrumentKind::Share && i.Exchange == "HKG" &&
                     i.PreviousClose < 1000;
            }),
            7U);
}

TEST_F(TListingTest, StructuredProductsComeInEveryRightAndCategory) {
  std::set<std::string> kinds;
  std::set<std::string> underlyings;
  for (const TInstrument& instrument : Listed.Instruments())
    if (instrument.IsStructured()) {
      const TTerms& terms = *instrument.Terms;
      kinds.insert(std::string(instrument.Kind == TInstrumentKind::Warrant ? "W" : "C") +
                   (terms.Right == TRight::Call ? "C" : "P") + terms.Category);
      underlyings.insert(terms.Underlying);
    }
  EXPECT_EQ(kinds, (std::set<std::string>{"WC ", "WP ", "CCN", "CCR", "CPN", "CPR"}));
  EXPECT_GE(underlyings.size(), 5U);
}

TEST_F(TListingTest, EverySymbolIsListedOnce) {
  std::set<std::string_view> symbols;
  for (const TInstrument& instrument : Listed.Instruments()) {
    EXPECT_TRUE(symbols.insert(instrument.Symbol).second) << instrument.Symbol;
    EXPECT_NE(instrument.Symbol.front(), '0');
    EXPECT_EQ(Listed.Find(instrument.Symbol), &instrument);
  }
  EXPECT_EQ(Listed.Find("99999"), nullptr);
}

TEST_F(TListingTest, SymbolsLieInTheRangesOfTheirKinds) {
  for (const TInstrument& instrument : Listed.Instruments()) {
    SCOPED_TRACE(instrument.Symbol);
    if (instrument.Kind == TInstrumentKind::Warrant) {
      EXPECT_TRUE(IsWithin(instrument.Symbol, 10'000, 29'999));
    } else if (instrument.Kind == TInstrumentKind::CallableContract) {
      EXPECT_TRUE(IsWithin(instrument.Symbol, 50'000, 69'999));
    } else if (instrument.Exchange != "HKG") {
      EXPECT_EQ(instrument.Symbol.size(), 6U);
    } else if (instrument.Currency == "CNY") {
      EXPECT_TRUE(IsWithin(instrument.Symbol, 80'000, 89'999));
    } else {
      EXPECT_TRUE(IsWithin(instrument.Symbol, 1, 9999));
    }
  }
  EXPECT_EQ(Count([](const TInstrument& i) {
              return i.Symbol.size() == 4 && IsWithin(i.Symbol, 8000, 8999);
            }),
            2U);
}

TEST_F(TListingTest, ShortNamesFitTheirColumns) {
  for (const TInstrument& instrument : Listed.Instruments()) {
    SCOPED_TRACE(instrument.Symbol);
    EXPECT_GE(instrument.Name.size(), 1U);
    EXPECT_LE(instrument.Name.size(), 15U);
    EXPECT_GE(Characters(instrument.TraditionalName), 1U);
    EXPECT_LE(Characters(instrument.TraditionalName), 8U);
    EXPECT_EQ(Characters(instrument.SimplifiedName), Characters(instrument.TraditionalName));
  }
}

TEST_F(TListingTest, ShortNamesOfStructuredProductsHaveTheExchangesColumns) {
  EXPECT_EQ(At("14680").Name, "QZHBTEC@EC2612A");
  EXPECT_EQ(At("15478").Name, "QZVOLT @EP2610B");
  EXPECT_EQ(At("16127").Name, "AUHB40 @AP2609A");
  EXPECT_EQ(At("55321").Name, "VS#HBTECRC2611B");
  EXPECT_EQ(At("58126").Name, "QZ#VOLT NP2609A");
  EXPECT_EQ(At("14680").TraditionalName, "維科石英六乙購A");
  EXPECT_EQ(At("14815").SimplifiedName, "维科落叶六甲沽A");
  EXPECT_EQ(At("55672").TraditionalName, "維科落葉六十熊A");
  for (const TInstrument& instrument : Listed.Instruments())
    EXPECT_EQ(instrument.IsStructured() ? instrument.Name.size() : 15U, 15U) << instrument.Name;
}

TEST_F(TListingTest, PricesLieOnTheGridOnEveryDateOfTheSpreadTables) {
  for (const auto date : {std::chrono::year_month_day(2025y / 1 / 2), ListingDate,
                          std::chrono::year_month_day(2026y / 12 / 1)}) {
    const TListing listing(date);
    for (const TInstrument& instrument : listing.Instruments()) {
      SCOPED_TRACE(instrument.Symbol);
      const TTickGrid& grid = listing.Grid(instrument);
      EXPECT_TRUE(grid.IsValid(instrument.PreviousClose)) << instrument.PreviousClose;
      if (instrument.YearHigh == 0)
        continue;
      EXPECT_TRUE(grid.IsValid(instrument.YearHigh)) << instrument.YearHigh;
      EXPECT_TRUE(grid.IsValid(instrument.YearLow)) << instrument.YearLow;
      EXPECT_LE(instrument.YearLow, instrument.PreviousClose);
      EXPECT_LE(instrument.PreviousClose, instrument.YearHigh);
    }
  }
}

TEST_F(TListingTest, BoardLotsAndIssuesAreWhole) {
  for (const TInstrument& instrument : Listed.Instruments()) {
    SCOPED_TRACE(instrument.Symbol);
    EXPECT_GE(instrument.BoardLot, 10);
    EXPECT_LE(instrument.BoardLot, 100'000);
    EXPECT_GT(instrument.Issued, 0);
    EXPECT_EQ(instrument.Issued % instrument.BoardLot, 0);
    EXPECT_GT(instrument.Temper.OrdersPerSecond, 0);
    EXPECT_GE(instrument.Temper.MeanLots, 1);
  }
}

TEST_F(TListingTest, SpreadCodesAreThoseOfTheKinds) {
  EXPECT_EQ(At("700").SpreadCode, "01");
  EXPECT_EQ(At("872").SpreadCode, "01");
  EXPECT_EQ(At("2855").SpreadCode, "05");
  EXPECT_EQ(At("4246").SpreadCode, "03");
  EXPECT_EQ(At("14680").SpreadCode, "06");
  EXPECT_EQ(At("55321").SpreadCode, "06");
}

TEST_F(TListingTest, WarrantsAndContractsArePricedByTheirUnderlyingsPreviousClose) {
  // Black-Scholes: 315.8 against 330, 280 days, 36 %, interest 3 %, one hundredth: 0.3672.
  EXPECT_EQ(At("14680").PreviousClose, 365);
  // (315.8 - 290 + 4.5 % of 290 over 256 days) / 100 = 0.34953.
  EXPECT_EQ(At("55321").PreviousClose, 350);
  EXPECT_GT(At("14680").YearHigh, At("14680").PreviousClose);
}

TEST_F(TListingTest, CallLevelsLieBetweenStrikeAndPrice) {
  for (const TInstrument& instrument : Listed.Instruments()) {
    SCOPED_TRACE(instrument.Symbol);
    if (instrument.Kind != TInstrumentKind::CallableContract) {
      EXPECT_TRUE(!instrument.Terms || instrument.Terms->CallLevel == 0);
      continue;
    }
    const TTerms& terms = *instrument.Terms;
    const double sign = terms.Right == TRight::Call ? 1 : -1;
    const double callLevel = ToUnits(terms.CallLevel);
    const double spot = ToUnits(At(terms.Underlying).PreviousClose);
    EXPECT_GT(sign * (spot - callLevel), 0);
    if (terms.Category == 'N') {
      EXPECT_EQ(callLevel, terms.Strike);
    } else {
      EXPECT_GT(sign * (callLevel - terms.Strike), 0);
    }
  }
}

TEST_F(TListingTest, RelatedCodesAreListed) {
  for (const TInstrument& instrument : Listed.Instruments()) {
    SCOPED_TRACE(instrument.Symbol);
    for (const std::string& symbol : Split(Listed.WarrantCodes(instrument)))
      EXPECT_NE(Listed.Find(symbol), nullptr) << symbol;
    for (const std::string& symbol : Split(Listed.RelatedCodes(instrument))) {
      EXPECT_NE(Listed.Find(symbol), nullptr) << symbol;
      EXPECT_NE(symbol, instrument.Symbol);
    }
    for (const std::string& broker : Split(Listed.ProviderCodes(instrument)))
      EXPECT_NE(FindParticipant(std::stoi(broker)), nullptr) << broker;
  }
}

TEST_F(TListingTest, AShareNamesWhatIsWrittenOnItAndItsCounterpart) {
  EXPECT_EQ(Listed.WarrantCodes(At("18")), "15533");
  EXPECT_EQ(Listed.WarrantCodes(At("700")), "14680 14722 14815 55321 55408 55672 55719");
  EXPECT_EQ(Split(Listed.RelatedCodes(At("700"))).front(), "80700");
  EXPECT_EQ(Split(Listed.RelatedCodes(At("80700"))).front(), "700");
  EXPECT_EQ(Listed.ProviderCodes(At("700")), "9711 9722 9733 9744");
  EXPECT_EQ(Listed.ProviderCodes(At("41")), "");
}

TEST_F(TListingTest, AWarrantNamesItsUnderlyingItsSistersAndItsProvider) {
  EXPECT_EQ(Listed.WarrantCodes(At("14722")), "700");
  EXPECT_EQ(Listed.RelatedCodes(At("14722")), "14680 14815 55321 55408 55672 55719");
  EXPECT_EQ(Listed.ProviderCodes(At("14722")), "9722");
}

TEST_F(TListingTest, TheRenminbiCounterFollowsTheDollarShare) {
  EXPECT_EQ(At("80700").Currency, "CNY");
  EXPECT_EQ(At("80700").Follows(), "700");
  EXPECT_EQ(At("700").Follows(), "");
  EXPECT_EQ(At("14680").Follows(), "700");
  EXPECT_NEAR(ToUnits(At("80700").PreviousClose),
              ToUnits(At("700").PreviousClose) * RenminbiPerDollar, 0.2);
}

TEST_F(TListingTest, TheBondHasEarnedInterestSinceItsLastCoupon) {
  EXPECT_EQ(At("4246").AccruedInterest, "1.1972"); // 3.8 % for 115 days from 21 November
  EXPECT_EQ(TListing(2026y / 5 / 21).Find("4246")->AccruedInterest, "0.0000");
  EXPECT_EQ(TListing(2026y / 12 / 1).Find("4246")->AccruedInterest, "0.1041");
  EXPECT_EQ(At("700").AccruedInterest, "");
}

TEST_F(TListingTest, OnlySharesUnderControlHaveAVolatilityLimit) {
  EXPECT_EQ(At("700").VolatilityPercent(), 10);
  EXPECT_EQ(At("214").VolatilityPercent(), 15);
  EXPECT_EQ(At("1077").VolatilityPercent(), 20);
  EXPECT_EQ(At("8066").VolatilityPercent(), 0);
  EXPECT_EQ(At("14680").VolatilityPercent(), 0);
}

TEST_F(TListingTest, SharesFundsAndTrustsTakePartInTheAuctions) {
  EXPECT_TRUE(At("700").HasAuctions());
  EXPECT_TRUE(At("2855").HasAuctions());
  EXPECT_TRUE(At("872").HasAuctions());
  EXPECT_FALSE(At("4246").HasAuctions());
  EXPECT_FALSE(At("14680").HasAuctions());
  EXPECT_FALSE(At("55321").HasAuctions());
}

TEST_F(TListingTest, PriceEarningsNeedEarnings) {
  EXPECT_NEAR(*At("700").PriceEarnings(), 21.41, 0.005);
  EXPECT_FALSE(At("2088").PriceEarnings()); // a loss
  EXPECT_FALSE(At("6021").PriceEarnings()); // no figure
}

TEST_F(TListingTest, DailyLimitsAreATenthEitherWayOnTheGrid) {
  EXPECT_EQ(Listed.DailyLimits(At("600816")), (TPriceLimits{7610, 9310})); // 7.614 to 9.306
  EXPECT_EQ(Listed.DailyLimits(At("700")), std::nullopt);
}

TEST(Brokers, HousesHaveNamesInThreeLanguagesAndBlocksOfTheirOwn) {
  EXPECT_GE(Participants().size(), 40U);
  TBrokerId free = 1;
  std::set<std::string_view> names;
  for (const TParticipant& house : Participants()) {
    SCOPED_TRACE(house.First);
    EXPECT_GE(house.First, free);
    EXPECT_GT(house.Numbers, 1);
    free = house.First + house.Numbers;
    EXPECT_TRUE(names.insert(house.Names.English).second);
    EXPECT_GE(Characters(house.Names.Traditional), 2U);
    EXPECT_EQ(Characters(house.Names.Simplified), Characters(house.Names.Traditional));
  }
  EXPECT_LE(free, 10'000);
}

TEST(Brokers, TheDirectoryHasOneEntryANumber) {
  const auto directory = BrokerDirectory();
  const auto entry = std::ranges::find(directory, "0121", &TReferenceData::TBroker::Id);
  ASSERT_NE(entry, directory.end());
  EXPECT_EQ(entry->Name, "Lotus Bay Securities");
  EXPECT_EQ(entry->Name1, "蓮灣證券");
  EXPECT_EQ(entry->Name2, "莲湾证券");
  std::set<std::string> ids;
  for (const auto& each : directory) {
    EXPECT_EQ(each.Id.size(), 4U);
    EXPECT_TRUE(ids.insert(each.Id).second) << each.Id;
  }
}

TEST(Brokers, ANumberBelongsToTheHouseOfItsBlock) {
  EXPECT_EQ(FindParticipant(2820)->Names.English, "Winter Rice Securities");
  EXPECT_EQ(FindParticipant(2829)->Names.English, "Winter Rice Securities");
  EXPECT_EQ(FindParticipant(2830), nullptr);
  EXPECT_EQ(FindParticipant(119), nullptr);
  EXPECT_EQ(FindParticipant(UserBroker)->Weight, 0);
}

} // namespace
} // namespace Market
