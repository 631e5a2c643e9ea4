#include "model/HeaderRows.h"

#include "host/ConstDef.h"
#include "model/QuorDetailDataControl.h"
#include "model/RecordFixture.h"

#include <array>
#include <set>

// The header rows: which stand for which record, their captions, values and copies.

namespace Quorpricedatacontrol {

using TFields = std::vector<int>;

class THeaderRowsTest : public TRecordTest {
protected:
  void Update() {
    rows.SetHeaderAttribute(&Record());
    rows.UpdateCaptions(nullptr);
  }
  std::string Value(int field) { return HeaderValueText(&Record(), field); }
  TFields Attributes() const {
    TFields fields;
    for (int row = 0; row < rows.Count(); ++row)
      fields.push_back(rows.Attribute(row));
    return fields;
  }

  THeaderRows rows;
};

// Which rows there are

TEST_F(THeaderRowsTest, ElevenRowsStandForEverySymbol) {
  const TFields fields = {Field::None,          Field::High,    Field::Low,
                          Field::PreviousClose, Field::Change,  Field::ChangePercent,
                          Field::Nominal,       Field::Volume,  Field::Turnover,
                          Field::BoardLot,      Field::Currency};
  EXPECT_EQ(Attributes(), fields);
  EXPECT_EQ(rows.Caption(1), ""); // captions are read when they are asked for
  Update();
  EXPECT_EQ(Attributes(), fields);
  EXPECT_EQ(rows.Caption(1), "Res_HighPrice");
  EXPECT_EQ(rows.OwnCount(), 11);
}

TEST_F(THeaderRowsTest, EveryRowStandsWhereTheRecordGivesEverything) {
  FillOptionalHeader(Record());
  Update();
  EXPECT_EQ(Attributes(),
            (TFields{Field::Open, Field::UpperLimit, Field::LowerLimit, Field::High, Field::Low,
                     Field::PreviousClose, Field::Change, Field::ChangePercent, Field::Nominal,
                     Field::Volume, Field::Turnover, Field::BoardLot, Field::AccruedInterest,
                     Field::Currency, Field::High52Weeks, Field::Low52Weeks}));
  EXPECT_EQ(rows.Count(), THeaderRows::MostOwn);
  const TFields fields = Attributes();
  EXPECT_EQ(std::set<int>(fields.begin(), fields.end()).size(), fields.size());
  for (int row = 0; row < rows.Count(); ++row)
    EXPECT_NE(rows.Caption(row), "") << row;
}

TEST_F(THeaderRowsTest, TheRowsOfARecordThatLosesItsFieldsGo) {
  FillOptionalHeader(Record());
  Update();
  Record().Clear();
  Update();
  EXPECT_EQ(Attributes(),
            TFields({Field::None, Field::High, Field::Low, Field::PreviousClose, Field::Change,
                     Field::ChangePercent, Field::Nominal, Field::Volume, Field::Turnover,
                     Field::BoardLot, Field::Currency}));
}

TEST_F(THeaderRowsTest, LimitsFollowTheEmptyRowWhereThereIsNoOpeningPrice) {
  Record().Set({{Field::UpperLimit, "1"}, {Field::LowerLimit, "1"}});
  Update();
  EXPECT_EQ(rows.Caption(0), "");
  EXPECT_EQ(rows.Caption(1), "Res_Price_UpLimit");
  EXPECT_EQ(rows.Caption(2), "Res_Price_DownLimit");
  EXPECT_EQ(rows.Caption(3), "Res_HighPrice");
}

TEST_F(THeaderRowsTest, OneLimitAloneDoesNotShow) {
  Record().Set(Field::UpperLimit, "1");
  Update();
  EXPECT_EQ(rows.Caption(1), "Res_HighPrice");
  Record().Remove(Field::UpperLimit).Set(Field::LowerLimit, "1");
  Update();
  EXPECT_EQ(rows.Caption(1), "Res_HighPrice");
}

TEST_F(THeaderRowsTest, EachYearlyExtremeIsARowOfItsOwn) {
  Record().Set(Field::Low52Weeks, "1");
  Update();
  EXPECT_EQ(rows.Caption(10), "Res_Currency");
  EXPECT_EQ(rows.Caption(11), "Res_Low_52wks");
  EXPECT_EQ(rows.Caption(12), "");
}

TEST_F(THeaderRowsTest, AccruedInterestStandsBeforeTheCurrency) {
  Record().Set({{Field::AccruedInterest, "1.5"}, {Field::High52Weeks, "1"}});
  Update();
  EXPECT_EQ(rows.Caption(9), "Res_LotSize");
  EXPECT_EQ(rows.Caption(10), "Res_AccruedInt");
  EXPECT_EQ(rows.Caption(11), "Res_Currency");
  EXPECT_EQ(rows.Caption(12), "Res_High_52wks");
}

TEST_F(THeaderRowsTest, AFieldThatNoRowShowsHasNoRow) {
  for (const int field :
       {Field::UpperLimit, Field::LowerLimit, Field::AccruedInterest, Field::High52Weeks,
        Field::Low52Weeks, Field::Open, 0, Field::BestAsk, UnknownField})
    EXPECT_EQ(rows.RowOf(field), -1) << field;
  EXPECT_EQ(rows.RowOf(Field::High), 1);
  EXPECT_EQ(rows.RowOf(Field::Currency), 10);
  Record().Set({{Field::Open, "1"}, {Field::Low52Weeks, "1"}});
  Update();
  EXPECT_EQ(rows.RowOf(Field::Open), 0);
  EXPECT_EQ(rows.RowOf(Field::Low52Weeks), 11);
  EXPECT_EQ(rows.RowOf(Field::High52Weeks), -1);
}

TEST_F(THeaderRowsTest, ARowThatDoesNotExistIsEmpty) {
  Update();
  for (const int row : {-1, 11, 100}) {
    EXPECT_EQ(rows.Attribute(row), Field::None) << row;
    EXPECT_EQ(rows.Caption(row), "") << row;
  }
}

// Detail rows

class TAppendedRowsTest : public THeaderRowsTest {
protected:
  TAppendedRowsTest() {
    FillStock(Record());
    Record().Remove(Field::PriceEarnings);
    detail.SetSymbol("700");
    rows.SetHeaderAttribute(&Record());
  }

  TCustomQuorDetailDataControl detail{nullptr};
};

TEST_F(TAppendedRowsTest, DetailRowsThatHaveATextFollowTheOwn) {
  rows.AppendDetail(detail, 18);
  rows.UpdateCaptions(&detail);
  EXPECT_EQ(rows.Count(), 14);
  EXPECT_EQ(rows.OwnCount(), 11);
  EXPECT_EQ(rows.Attribute(11), Field::IssueSize);
  EXPECT_EQ(rows.Attribute(12), Field::MarketCap);
  EXPECT_EQ(rows.Attribute(13), Field::DividendYield);
  EXPECT_EQ(rows.Caption(10), "Res_Currency");
  EXPECT_EQ(rows.Caption(11), "Res_IssuedShares");
  EXPECT_EQ(rows.Caption(13), "Res_Yield");
}

TEST_F(TAppendedRowsTest, DetailRowsEndWithTheRoomForThem) {
  rows.AppendDetail(detail, 12);
  EXPECT_EQ(rows.Count(), 12);
  EXPECT_EQ(rows.Attribute(11), Field::IssueSize);
  rows.SetHeaderAttribute(&Record());
  rows.AppendDetail(detail, 11);
  EXPECT_EQ(rows.Count(), 11);
}

// Captions and values

struct TFieldCase {
  int field;
  const char* caption;
  const char* text;
  const char* value;
};

class THeaderFieldTest : public TRecordTest, public testing::WithParamInterface<TFieldCase> {};

TEST_P(THeaderFieldTest, HasItsCaptionAndItsForm) {
  const TFieldCase& field = GetParam();
  Record().Set(field.field, field.text);
  EXPECT_EQ(HeaderCaption(field.field), field.caption);
  EXPECT_EQ(HeaderValueText(&Record(), field.field), field.value);
  Record().SetState(Constdef::RecordState_None);
  EXPECT_EQ(HeaderValueText(&Record(), field.field), "");
  Record().SetState(Constdef::RecordState_Ready).Remove(field.field);
  EXPECT_EQ(HeaderValueText(&Record(), field.field), "");
  EXPECT_EQ(HeaderValueText(nullptr, field.field), "");
}

INSTANTIATE_TEST_SUITE_P(
    Fields, THeaderFieldTest,
    testing::Values(TFieldCase{Field::Nominal, "Res_Nominal", "318.2", "318.200"},
                    TFieldCase{Field::Volume, "Res_Volume", "1234567", "1,234,567"},
                    TFieldCase{Field::Currency, "Res_Currency", "HKD", "HKD"},
                    TFieldCase{Field::BoardLot, "Res_LotSize", "1000", "1,000 sh"},
                    TFieldCase{Field::PreviousClose, "Res_PreClose", "317", "317.000"},
                    TFieldCase{Field::Low, "Res_LowPrice", "316", "316.000"},
                    TFieldCase{Field::High, "Res_HighPrice", "320", "320.000"},
                    TFieldCase{Field::Turnover, "Res_TurnOver", "999999", "700 $999,999"},
                    TFieldCase{Field::Turnover, "Res_TurnOver", "1000000", "~1,000,000/2"},
                    TFieldCase{Field::Turnover, "Res_TurnOver", "999999.99", "700 $1,000,000"},
                    TFieldCase{Field::Change, "Res_PRCChange", "+1.2", "chg(+1.2)"},
                    TFieldCase{Field::UpperLimit, "Res_Price_UpLimit", "330", "330.000"},
                    TFieldCase{Field::LowerLimit, "Res_Price_DownLimit", "300", "300.000"},
                    TFieldCase{Field::AccruedInterest, "Res_AccruedInt", "1.50%", "1.50%"},
                    TFieldCase{Field::ChangePercent, "Res_ChangePercent", "0.38", "chg%(0.38)"},
                    TFieldCase{Field::High52Weeks, "Res_High_52wks", "400", "400.000"},
                    TFieldCase{Field::Low52Weeks, "Res_Low_52wks", "200", "200.000"},
                    TFieldCase{Field::Open, "Res_OpenPrc", "317.5", "317.500"},
                    TFieldCase{Field::None, "", "", ""},
                    TFieldCase{Field::Underlying, "", "as it stands", "as it stands"},
                    TFieldCase{Field::BestBid, "", "99.50", "99.50"}));

TEST_F(THeaderRowsTest, ACurrencyThatTheRecordDoesNotGiveIsTheInstruments) {
  EXPECT_EQ(Value(Field::Currency), "");
  host.market.SetCurrency("700", "CNY");
  EXPECT_EQ(Value(Field::Currency), "CNY"); // no text: the code itself
  host.language.SetText(Constdef::Const_CurrencyTag, "CNY", "Renminbi");
  host.language.SetText("CNY", "not a currency");
  EXPECT_EQ(Value(Field::Currency), "Renminbi");
  EXPECT_TRUE(host.language.selectorsAsAgreed);
  Record().Set(Field::Currency, "HKD");
  EXPECT_EQ(Value(Field::Currency), "HKD");
  Record().Set(Field::Currency, "");
  host.market.SetCurrency("700", "");
  EXPECT_EQ(Value(Field::Currency), "");
}

// Copies

TEST(TCopiesPriceTest, AClickOnAPriceOfTheDayCopiesIt) {
  for (const int field : {Field::Open, Field::UpperLimit, Field::LowerLimit, Field::High,
                          Field::Low, Field::PreviousClose, Field::Nominal, Field::StrikePrice})
    EXPECT_TRUE(CopiesPrice(field)) << field;
  for (const int field :
       {Field::Change, Field::ChangePercent, Field::Volume, Field::Turnover, Field::BoardLot,
        Field::AccruedInterest, Field::Currency, Field::High52Weeks, Field::Low52Weeks,
        Field::Underlying, Field::CallPrice, Field::BestBid, Field::None, UnknownField})
    EXPECT_FALSE(CopiesPrice(field)) << field;
}

} // namespace Quorpricedatacontrol
