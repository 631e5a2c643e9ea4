#include "host/ConstDef.h"
#include "model/ControlFixture.h"

#include <array>

// The header rows: which fields they show, their captions and their values.

namespace Quorpricedatacontrol {

using Texts = std::vector<std::string>;

class THeaderRowsTest : public TDepthControlTest {
protected:
  /// The captions of the rows, up to the last one that is not empty.
  Texts Captions() const {
    Texts captions = ColumnTexts(Column::HeaderCaption);
    while (!captions.empty() && captions.back().empty())
      captions.pop_back();
    return captions;
  }
};

// Which rows there are

TEST_F(THeaderRowsTest, ElevenRowsStandForEverySymbol) {
  const Texts captions = {"",
                          "Res_HighPrice",
                          "Res_LowPrice",
                          "Res_PreClose",
                          "Res_PRCChange",
                          "Res_ChangePercent",
                          "Res_Nominal",
                          "Res_Volume",
                          "Res_TurnOver",
                          "Res_LotSize",
                          "Res_Currency"};
  EXPECT_EQ(Captions(), captions); // before there is a symbol, too
  ShowSymbol();
  EXPECT_EQ(Captions(), captions);
  EXPECT_EQ(control.GetHeaderLastPriceIndex(), 6);
}

TEST_F(THeaderRowsTest, OptionalFieldsTakeTheirPlacesInOrder) {
  Record().Set({{Field::High52Weeks, "1"},
                {Field::Low52Weeks, "1"},
                {Field::Open, "1"},
                {Field::AccruedInterest, "1"},
                {Field::UpperLimit, "1"},
                {Field::LowerLimit, "1"}});
  ShowSymbol();
  EXPECT_EQ(Captions(),
            (Texts{"Res_OpenPrc", "Res_Price_UpLimit", "Res_Price_DownLimit", "Res_HighPrice",
                   "Res_LowPrice", "Res_PreClose", "Res_PRCChange", "Res_ChangePercent",
                   "Res_Nominal", "Res_Volume", "Res_TurnOver", "Res_LotSize", "Res_AccruedInt",
                   "Res_Currency", "Res_High_52wks", "Res_Low_52wks"}));
  EXPECT_EQ(control.GetCount(), 16);
  EXPECT_EQ(control.GetHeaderLastPriceIndex(), 8);
}

TEST_F(THeaderRowsTest, LimitsFollowTheEmptyRowWhereThereIsNoOpeningPrice) {
  Record().Set({{Field::UpperLimit, "1"}, {Field::LowerLimit, "1"}});
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(0), "");
  EXPECT_EQ(control.GetCellHeader(1), "Res_Price_UpLimit");
  EXPECT_EQ(control.GetCellHeader(2), "Res_Price_DownLimit");
  EXPECT_EQ(control.GetCellHeader(3), "Res_HighPrice");
}

TEST_F(THeaderRowsTest, OneLimitAloneDoesNotShow) {
  Record().Set(Field::UpperLimit, "1");
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(1), "Res_HighPrice");
  control.SetSymbol("");
  Record().Remove(Field::UpperLimit).Set(Field::LowerLimit, "1");
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(1), "Res_HighPrice");
}

TEST_F(THeaderRowsTest, EachYearlyExtremeIsARowOfItsOwn) {
  Record().Set(Field::Low52Weeks, "1");
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(10), "Res_Currency");
  EXPECT_EQ(control.GetCellHeader(11), "Res_Low_52wks");
  EXPECT_EQ(control.GetCellHeader(12), "");
}

TEST_F(THeaderRowsTest, AccruedInterestStandsBeforeTheCurrency) {
  Record().Set({{Field::AccruedInterest, "1.5"}, {Field::High52Weeks, "1"}});
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(9), "Res_LotSize");
  EXPECT_EQ(control.GetCellHeader(10), "Res_AccruedInt");
  EXPECT_EQ(control.GetCellHeader(11), "Res_Currency");
  EXPECT_EQ(control.GetCellHeader(12), "Res_High_52wks");
}

TEST_F(THeaderRowsTest, TheNumberOfRowsIsToldOnlyWhenItChanged) {
  ShowSymbol();
  EXPECT_EQ(events.count, 0);
  Record().Set({{Field::High52Weeks, "1"},
                {Field::Low52Weeks, "1"},
                {Field::AccruedInterest, "1"},
                {Field::Open, "1"}});
  control.BODDataUpdate(nullptr, nullptr);
  EXPECT_EQ(control.GetCount(), 14);
  EXPECT_EQ(events.count, 1);
  control.BODDataUpdate(nullptr, nullptr);
  EXPECT_EQ(events.count, 1);
  host.Record("5").Set(Field::High52Weeks, "1");
  control.SetSymbol("5");
  EXPECT_EQ(control.GetCount(), 13);
  EXPECT_EQ(events.count, 2);
}

TEST_F(THeaderRowsTest, TheHeaderIsBuiltOncePerLoadedRecord) {
  ShowSymbol();
  Record().Set(Field::Open, "1").Update();
  EXPECT_EQ(control.GetCellHeader(0), "");
  control.SetSymbol("");
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(0), "Res_OpenPrc");
}

TEST(THeaderTableTest, AFieldThatNoRowShowsHasNoRow) {
  Fakes::TFakeRecord record("700");
  THeaderRows rows;
  for (const int field :
       {Field::UpperLimit, Field::LowerLimit, Field::AccruedInterest, Field::High52Weeks,
        Field::Low52Weeks, Field::Open, 0, Field::BestAsk, 99999})
    EXPECT_EQ(rows.RowOf(field), -1) << field;
  EXPECT_EQ(rows.RowOf(Field::High), 1);
  EXPECT_EQ(rows.RowOf(Field::Currency), 10);
  rows.Update(&record.Set({{Field::Open, "1"}, {Field::Low52Weeks, "1"}}));
  EXPECT_EQ(rows.RowOf(Field::Open), 0);
  EXPECT_EQ(rows.RowOf(Field::Low52Weeks), 11);
  EXPECT_EQ(rows.RowOf(Field::High52Weeks), -1);
}

TEST_F(THeaderRowsTest, RowsBesideEachOtherDoNotDependOnEachOther) {
  Record().Set({{Field::Turnover, "500"}, {Field::BestBid, "99"}, {Field::BestBidSize, "1000"}});
  control.SetDisplayMode(qm5Full);
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayValue(8, Column::HeaderCaption), "Res_TurnOver");
  EXPECT_EQ(control.GetDisplayValue(8, Column::HeaderValue), "700 $500");
  EXPECT_EQ(control.GetDisplayValue(8, Column::BidSize), "1,000");
}

TEST_F(THeaderRowsTest, CaptionsFollowTheLanguage) {
  ShowSymbol();
  host.language.SetText("Res_HighPrice", "High");
  EXPECT_EQ(control.GetCellHeader(1), "Res_HighPrice");
  control.UpdateLanguage();
  EXPECT_EQ(control.GetCellHeader(1), "High");
  EXPECT_EQ(control.GetCellHeader(2), "Res_LowPrice");
}

// Values

struct TFieldCase {
  int field;
  const char* caption;
  const char* text;
  const char* value;
};

class THeaderFieldTest : public testing::TestWithParam<TFieldCase> {};

TEST_P(THeaderFieldTest, HasItsCaptionAndItsForm) {
  Fakes::THostFakes host;
  TCustomQuorMarketDataControl control(nullptr);
  const TFieldCase& field = GetParam();
  auto& record = host.Record("700").Set(field.field, field.text);
  control.SetSymbol("700");
  EXPECT_EQ(control.GetCellHeaderViaAttribute(field.field), field.caption);
  EXPECT_EQ(control.GetCellHeaderDisplayData(field.field), field.value);
  record.SetState(Constdef::RecordState_None);
  EXPECT_EQ(control.GetCellHeaderDisplayData(field.field), "");
  record.SetState(Constdef::RecordState_Ready).Remove(field.field);
  EXPECT_EQ(control.GetCellHeaderDisplayData(field.field), "");
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
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeaderDisplayData(Field::Currency), "");
  host.market.SetCurrency("700", "CNY");
  EXPECT_EQ(control.GetCellHeaderDisplayData(Field::Currency), "CNY"); // no text: the code itself
  host.language.SetText(Constdef::Const_CurrencyTag, "CNY", "Renminbi");
  host.language.SetText("CNY", "not a currency");
  EXPECT_EQ(control.GetCellHeaderDisplayData(Field::Currency), "Renminbi");
  EXPECT_TRUE(host.language.selectorsAsAgreed);
  Record().Set(Field::Currency, "HKD");
  EXPECT_EQ(control.GetCellHeaderDisplayData(Field::Currency), "HKD");
  Record().Set(Field::Currency, "");
  host.market.SetCurrency("700", "");
  EXPECT_EQ(control.GetCellHeaderDisplayData(Field::Currency), "");
}

TEST_F(THeaderRowsTest, RowsThatDoNotExistAreEmpty) {
  Record().Set(Field::Currency, "HKD");
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeaderValue(10), "HKD");
  EXPECT_EQ(control.GetCellHeaderValue(0), "");
  for (const int row : {-1, 11, 13, 100}) {
    EXPECT_EQ(control.GetCellHeader(row), "") << row;
    EXPECT_EQ(control.GetCellHeaderValue(row), "") << row;
  }
}

// Detail rows under the ten-level layout

class TDetailHeaderRowsTest : public THeaderRowsTest {
protected:
  TDetailHeaderRowsTest() { control.SetDisplayMode(qm10Full); }

  void FillStock(Fakes::TFakeRecord& record) {
    record.Set({{Field::ProductType, "1"},
                {Field::Nominal, "10"},
                {Field::IssueSize, "2000"},
                {Field::PriceEarnings, "15.5"},
                {Field::DividendYield, "3.2"}});
  }
};

TEST_F(TDetailHeaderRowsTest, FurtherRowsDescribeTheInstrument) {
  FillStock(Record());
  ShowSymbol();
  EXPECT_EQ(control.GetCount(), 18);
  EXPECT_EQ(control.GetCellHeader(10), "Res_Currency");
  EXPECT_EQ(control.GetCellHeader(11), "Res_IssuedShares");
  EXPECT_EQ(control.GetCellHeaderValue(11), "700 $2,000"); // as an amount, in this place
  EXPECT_EQ(control.GetCellHeader(12), "Res_MarketCap");
  EXPECT_EQ(control.GetCellHeaderValue(12), "700 $20,000");
  EXPECT_EQ(control.GetCellHeader(13), "Res_PE");
  EXPECT_EQ(control.GetDisplayValue(13, Column::HeaderValue), "15.5");
  EXPECT_EQ(control.GetCellHeader(14), "Res_Yield");
  EXPECT_EQ(control.GetDisplayValue(14, Column::HeaderCaption), "Res_Yield");
  EXPECT_EQ(control.GetCellHeader(15), "");
  EXPECT_EQ(events.count, 0);
}

TEST_F(TDetailHeaderRowsTest, ADetailWithoutTextGetsNoRow) {
  FillStock(Record());
  Record().Remove(Field::PriceEarnings);
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(12), "Res_MarketCap");
  EXPECT_EQ(control.GetCellHeader(13), "Res_Yield");
}

TEST_F(TDetailHeaderRowsTest, RowsEndAtEighteen) {
  Record().Set({{Field::High52Weeks, "1"},
                {Field::Low52Weeks, "1"},
                {Field::Open, "1"},
                {Field::AccruedInterest, "1"},
                {Field::UpperLimit, "1"},
                {Field::LowerLimit, "1"}});
  FillStock(Record());
  ShowSymbol();
  EXPECT_EQ(control.GetCount(), 18);
  EXPECT_EQ(control.GetCellHeader(15), "Res_Low_52wks");
  EXPECT_EQ(control.GetCellHeader(16), "Res_IssuedShares");
  EXPECT_EQ(control.GetCellHeader(17), "Res_MarketCap");
  EXPECT_EQ(control.GetCellHeader(18), "");
}

TEST_F(TDetailHeaderRowsTest, OtherLayoutsHaveNoDetailRows) {
  FillStock(Record());
  ShowSymbol();
  ASSERT_EQ(control.GetCellHeader(11), "Res_IssuedShares");
  control.SetDisplayMode(qm5Full);
  EXPECT_EQ(control.GetCellHeader(11), "");
  EXPECT_EQ(control.GetCellHeaderValue(11), "");
  EXPECT_EQ(control.GetCount(), 13);
  control.SetDisplayMode(qm10Full);
  EXPECT_EQ(control.GetCellHeader(11), "Res_IssuedShares");
}

TEST_F(TDetailHeaderRowsTest, DetailRowsFollowTheSymbol) {
  FillStock(Record());
  ShowSymbol();
  host.Record("13001").Set({{Field::ProductType, "4"},
                            {Field::Name, "ABCDE@EC2101B"},
                            {Field::Underlying, "700"},
                            {Field::ExpiryDate, "2027-01-15"}});
  host.Record("13001").Set({{Field::StrikePrice, "20"},
                            {Field::CallPut, "C"},
                            {Field::IssueSize, "5000"},
                            {Field::ConversionRatio, "0.1"},
                            {Field::Nominal, "2"}});
  events = {};
  control.SetSymbol("13001");
  EXPECT_EQ(events.change, 1);
  EXPECT_EQ(control.GetCellHeader(11), "Res_Underlyer");
  EXPECT_EQ(control.GetCellHeaderValue(11), "700");
  EXPECT_EQ(control.GetCellHeader(13), "Res_StrikePrice");
  EXPECT_EQ(control.GetCellHeaderValue(13), "13001@20/8");
  EXPECT_EQ(control.GetCellHeader(16), "Res_IssueSize");
  EXPECT_EQ(control.GetCellHeader(17), "Res_Premium");
  EXPECT_EQ(control.GetCellHeaderValue(17), "300.00"); // (2 / 0.1 + 20) / 10 - 1
}

TEST_F(TDetailHeaderRowsTest, DetailRowsArriveWithTheRecord) {
  FillStock(Record().SetState(Constdef::RecordState_None));
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(11), "");
  EXPECT_EQ(host.Registrations().records, 1); // the detail control is made when first needed
  Record().SetState(Constdef::RecordState_Ready).Update();
  EXPECT_EQ(control.GetCellHeader(11), "Res_IssuedShares");
  EXPECT_EQ(host.Registrations().records, 2);
}

TEST_F(TDetailHeaderRowsTest, DetailValuesGoWithTheRecord) {
  FillStock(Record());
  ShowSymbol();
  ASSERT_EQ(control.GetCellHeaderValue(11), "700 $2,000");
  ASSERT_EQ(control.GetCellHeaderValue(6), "10.000");
  for (const int state : {Constdef::RecordState_None, Constdef::RecordState_Invalid}) {
    Record().SetState(state).Update();
    for (const int row : {6, 11, 12, 13, 14})
      EXPECT_EQ(control.GetDisplayValue(row, Column::HeaderValue), "") << row;
    EXPECT_EQ(control.GetCellHeader(11), "Res_IssuedShares");
  }
  Record().SetState(Constdef::RecordState_Ready).Update();
  EXPECT_EQ(control.GetCellHeaderValue(13), "15.5");
}

TEST_F(TDetailHeaderRowsTest, DetailCaptionsFollowTheLanguage) {
  FillStock(Record());
  ShowSymbol();
  host.language.SetText("Res_PE", "P/E");
  control.UpdateLanguage();
  EXPECT_EQ(control.GetCellHeader(13), "P/E");
}

TEST_F(TDetailHeaderRowsTest, ASymbolAndAnUpdateAreOneChangeEach) {
  FillStock(Record());
  events = {};
  ShowSymbol();
  EXPECT_EQ(events.change, 1);
  Record().Update();
  EXPECT_EQ(events.change, 2);
}

TEST(TDetailHeaderRowsEndTest, LeaveNoRegistrationBehind) {
  Fakes::THostFakes host;
  {
    TCustomQuorMarketDataControl control(nullptr);
    control.SetDisplayMode(qm10Full);
    host.Record("700").Set({{Field::ProductType, "4"}, {Field::Underlying, "5"}});
    control.SetSymbol("700");
    EXPECT_EQ(host.Registrations().records, 3);
    EXPECT_EQ(host.Registrations().configuration, 2);
    host.Record("5").Set({{Field::ProductType, "1"}, {Field::IssueSize, "100"}});
    control.SetSymbol("5");
    EXPECT_EQ(host.Registrations().records, 2);
  }
  EXPECT_EQ(host.Registrations(), Fakes::TRegistrations());
  EXPECT_EQ(host.subscriptions.abandonedListeners, 0);
}

TEST_F(TDetailHeaderRowsTest, ADetailPriceCanBeCopied) {
  Record().Set({{Field::ProductType, "4"}, {Field::StrikePrice, "20"}});
  ShowSymbol();
  ASSERT_EQ(control.GetCellHeader(11), "Res_StrikePrice");
  control.CopyPrice(11, Column::HeaderValue);
  ASSERT_EQ(host.channels.sentOrders.size(), 1u);
  EXPECT_EQ(host.channels.sentOrders[0].price, 20);
}

} // namespace Quorpricedatacontrol
