#include "model/DetailRows.h"

#include "host/ConstDef.h"
#include "model/InstrumentFixture.h"

#include <algorithm>

// The rows that describe an instrument: which each kind has, their captions, texts and copies.

namespace Quorpricedatacontrol {

using TFields = std::vector<int>;

class TDetailRowsTest : public TInstrumentTest {
protected:
  TDetailRowsTest() {
    instrument.Record = &Record();
    instrument.Underlying = &Underlying();
  }

  std::string Text(int field) const { return DetailText(instrument, field); }
  std::string Caption(int field) const { return DetailCaption(instrument.Kind, field); }

  TInstrument instrument;
};

// Kinds of instrument

TEST_F(TDetailRowsTest, TheProductTypeAndTheNameTellTheKind) {
  FillWarrant();
  instrument.Update();
  EXPECT_EQ(instrument.Kind, ikWarrant);
  EXPECT_EQ(instrument.Category, "");
  FillCBBC();
  instrument.Update();
  EXPECT_EQ(instrument.Kind, ikCBBC);
  EXPECT_EQ(instrument.Category, "R");
  FillStock(Record()); // under a CBBC's name
  instrument.Update();
  EXPECT_EQ(instrument.Kind, ikStock);
  for (const char* type : {"0", "2", "3", "5", "", "stock"}) {
    Record().Set(Field::ProductType, type);
    instrument.Update();
    EXPECT_EQ(instrument.Kind, ikOther) << type;
  }
}

TEST_F(TDetailRowsTest, WhatHoldsNoDataIsOfNoKind) {
  FillCBBC();
  instrument.Update();
  Record().SetState(Constdef::RecordState_Invalid);
  instrument.Update();
  EXPECT_EQ(instrument.Kind, ikOther);
  EXPECT_EQ(instrument.Category, "");
  instrument.Record = nullptr;
  instrument.Update();
  EXPECT_EQ(instrument.Kind, ikOther);
}

// Rows

TEST(TDetailFieldsTest, EachKindHasItsRowsInOrder) {
  using namespace Field;
  EXPECT_EQ(DetailFieldsOf(ikCBBC),
            (TFields{Underlying, ExpiryDate, StrikePrice, CallPrice, CallPut, Category, OptionStyle,
                     ConversionRatio, IssueSize, Premium, Gearing}));
  EXPECT_EQ(DetailFieldsOf(ikWarrant),
            (TFields{Underlying, ExpiryDate, StrikePrice, CallPut, OptionStyle, ConversionRatio,
                     IssueSize, Premium, Gearing}));
  EXPECT_EQ(DetailFieldsOf(ikStock), (TFields{IssueSize, MarketCap, PriceEarnings, DividendYield}));
  EXPECT_EQ(DetailFieldsOf(ikOther), TFields());
}

TEST(TDetailFieldsTest, NoFieldIsTwoRowsOfAKind) {
  for (const TInstrumentKind kind : {ikStock, ikWarrant, ikCBBC}) {
    TFields fields = DetailFieldsOf(kind);
    std::sort(fields.begin(), fields.end());
    EXPECT_EQ(std::adjacent_find(fields.begin(), fields.end()), fields.end()) << kind;
  }
}

TEST(TDetailFieldsTest, AClickCopiesThePriceOfTheStrikeAlone) {
  for (const TInstrumentKind kind : {ikStock, ikWarrant, ikCBBC})
    for (const int field : DetailFieldsOf(kind))
      EXPECT_EQ(DetailCopiesPrice(field), field == Field::StrikePrice) << field;
  EXPECT_FALSE(DetailCopiesPrice(Field::Nominal)); // a price, but no detail row
  EXPECT_FALSE(DetailCopiesPrice(UnknownField));
}

// Captions

TEST_F(TDetailRowsTest, TheIssueSizeIsNamedByTheInstrument) {
  EXPECT_EQ(Caption(Field::IssueSize), "Res_IssuedShares");
  FillWarrant();
  instrument.Update();
  EXPECT_EQ(Caption(Field::IssueSize), "Res_IssueSize");
}

TEST_F(TDetailRowsTest, AFieldThatIsNoRowHasNeitherCaptionNorText) {
  FillStock(Record());
  Record().Set(UnknownField, "1");
  instrument.Update();
  for (const int field : {Field::Nominal, UnknownField}) {
    EXPECT_EQ(Caption(field), "") << field;
    EXPECT_EQ(Text(field), "") << field;
    EXPECT_FALSE(DetailCopiesPrice(field)) << field;
  }
}

// Texts

TEST_F(TDetailRowsTest, CallAndPutHaveTheirTexts) {
  FillWarrant();
  instrument.Update();
  EXPECT_EQ(Text(Field::CallPut), "Res_Call");
  Record().Set(Field::CallPut, "P");
  EXPECT_EQ(Text(Field::CallPut), "Res_Put");
  Record().Set(Field::CallPut, "X");
  EXPECT_EQ(Text(Field::CallPut), "");
}

TEST_F(TDetailRowsTest, ARecordWithoutPriceHasNoFiguresMadeOfIt) {
  FillWarrant();
  instrument.Update();
  Record().Set(Field::Status, "-1");
  EXPECT_EQ(Text(Field::Premium), "");
  EXPECT_EQ(Text(Field::Gearing), "");
  FillStock(Record());
  instrument.Update();
  EXPECT_EQ(Text(Field::MarketCap), "");
}

TEST_F(TDetailRowsTest, OtherInstrumentsShowTheFeedsPremiumAndGearing) {
  FillStock(Record());
  Record().Set({{Field::Premium, "0.125"}, {Field::Gearing, "3.5"}});
  instrument.Update();
  EXPECT_EQ(Text(Field::Premium), "12.50"); // a fraction
  EXPECT_EQ(Text(Field::Gearing), "3.50");
  Record().Set({{Field::Premium, "0"}, {Field::Gearing, "0"}});
  EXPECT_EQ(Text(Field::Premium), "0.00");
  EXPECT_EQ(Text(Field::Gearing), "0.00");
  Record().Remove(Field::Premium).Remove(Field::Gearing);
  EXPECT_EQ(Text(Field::Premium), "");
  EXPECT_EQ(Text(Field::Gearing), "");
}

TEST_F(TDetailRowsTest, AWarrantIgnoresTheFeedsPremiumAndGearing) {
  FillWarrant();
  Record().Set({{Field::Premium, "0.125"}, {Field::Gearing, "3.5"}});
  instrument.Update();
  EXPECT_EQ(Text(Field::Premium), "60.00");
  EXPECT_EQ(Text(Field::Gearing), "1.25");
}

TEST_F(TDetailRowsTest, AStocksCapitalisationIsItsPriceTimesItsShares) {
  FillStock(Record());
  instrument.Update();
  Record().Set(Field::MarketCap, "777");
  EXPECT_EQ(Text(Field::MarketCap), "13001 $20,000");
  Record().Remove(Field::IssueSize);
  EXPECT_EQ(Text(Field::MarketCap), "");
}

TEST_F(TDetailRowsTest, OtherInstrumentsShowTheFeedsCapitalisation) {
  FillWarrant();
  instrument.Update();
  EXPECT_EQ(Text(Field::MarketCap), "");
  Record().Set(Field::MarketCap, "777000");
  EXPECT_EQ(Text(Field::MarketCap), "777,000");
}

TEST_F(TDetailRowsTest, AConversionRatioReadsAsAFractionBelowATwentieth) {
  instrument.Update();
  for (const auto& [ratio, text] : {std::pair{"0.1", "13001@0.1/6"},
                                    {"0.05", "13001@0.05/6"},
                                    {"0.01", "1/100"},
                                    {"0.049", "1/20"},
                                    {"0.0003", "1/3333"},
                                    {"2", "13001@2/6"},
                                    {"0", ""},
                                    {"", ""},
                                    {"none", ""}}) {
    Record().Set(Field::ConversionRatio, ratio);
    EXPECT_EQ(Text(Field::ConversionRatio), text) << ratio;
  }
}

TEST_F(TDetailRowsTest, AnOptionStyleThatHasNoTextShowsAsItStands) {
  instrument.Update();
  for (const auto& [style, text] : {std::pair{"1", "Res_OptionStyle_EU"},
                                    {"2", "Res_OptionStyle_US"},
                                    {"Asian", "Asian"},
                                    {"", ""}}) {
    Record().Set(Field::OptionStyle, style);
    EXPECT_EQ(Text(Field::OptionStyle), text);
  }
}

TEST_F(TDetailRowsTest, PricesOfZeroAreEmpty) {
  FillCBBC();
  instrument.Update();
  for (const int field : {Field::StrikePrice, Field::CallPrice}) {
    Record().Set(field, "0");
    EXPECT_EQ(Text(field), "") << field;
    Record().Remove(field);
    EXPECT_EQ(Text(field), "") << field;
  }
}

TEST_F(TDetailRowsTest, TheIssueSizeReadsAsANumberOrAsAnAmount) {
  FillWarrant();
  instrument.Update();
  EXPECT_EQ(Text(Field::IssueSize), "5,000,000");
  instrument.IssueSizeStyle = TIssueSizeStyle::Amount;
  EXPECT_EQ(Text(Field::IssueSize), "13001 $5,000,000");
  Record().Set(Field::IssueSize, "");
  EXPECT_EQ(Text(Field::IssueSize), "");
}

TEST_F(TDetailRowsTest, PremiumAndGearingNeedAnUnderlying) {
  FillWarrant();
  instrument.Update();
  instrument.Underlying = nullptr;
  EXPECT_EQ(Text(Field::Premium), "");
  EXPECT_EQ(Text(Field::Gearing), "");
}

TEST_F(TDetailRowsTest, ThereIsNoTextWithoutARecord) {
  FillCBBC();
  instrument.Update();
  instrument.Record = nullptr;
  for (const int field : DetailFieldsOf(ikCBBC))
    EXPECT_EQ(Text(field), "") << field;
}

} // namespace Quorpricedatacontrol
