#include "host/ConstDef.h"
#include "model/ControlFixture.h"

// The header rows as cells of the depth grid, with detail rows under the ten-level layout.

namespace Quorpricedatacontrol {

using Texts = std::vector<std::string>;

class THeaderCellsTest : public TDepthControlTest {
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

TEST_F(THeaderCellsTest, ElevenRowsStandForEverySymbol) {
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

TEST_F(THeaderCellsTest, OptionalFieldsTakeTheirPlacesInOrder) {
  FillOptionalHeader(Record());
  ShowSymbol();
  EXPECT_EQ(Captions(),
            (Texts{"Res_OpenPrc", "Res_Price_UpLimit", "Res_Price_DownLimit", "Res_HighPrice",
                   "Res_LowPrice", "Res_PreClose", "Res_PRCChange", "Res_ChangePercent",
                   "Res_Nominal", "Res_Volume", "Res_TurnOver", "Res_LotSize", "Res_AccruedInt",
                   "Res_Currency", "Res_High_52wks", "Res_Low_52wks"}));
  EXPECT_EQ(control.GetCount(), 16);
  EXPECT_EQ(control.GetHeaderLastPriceIndex(), 8);
}

TEST_F(THeaderCellsTest, TheNumberOfRowsIsToldOnlyWhenItChanged) {
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

TEST_F(THeaderCellsTest, TheHeaderIsBuiltOncePerLoadedRecord) {
  ShowSymbol();
  Record().Set(Field::Open, "1").Update();
  EXPECT_EQ(control.GetCellHeader(0), "");
  control.SetSymbol("");
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(0), "Res_OpenPrc");
}

TEST_F(THeaderCellsTest, RowsBesideEachOtherDoNotDependOnEachOther) {
  Record().Set({{Field::Turnover, "500"}, {Field::BestBid, "99"}, {Field::BestBidSize, "1000"}});
  control.SetDisplayMode(qm5Full);
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayValue(8, Column::HeaderCaption), "Res_TurnOver");
  EXPECT_EQ(control.GetDisplayValue(8, Column::HeaderValue), "700 $500");
  EXPECT_EQ(control.GetDisplayValue(8, Column::BidSize), "1,000");
}

TEST_F(THeaderCellsTest, CaptionsFollowTheLanguage) {
  ShowSymbol();
  host.language.SetText("Res_HighPrice", "High");
  EXPECT_EQ(control.GetCellHeader(1), "Res_HighPrice");
  control.UpdateLanguage();
  EXPECT_EQ(control.GetCellHeader(1), "High");
  EXPECT_EQ(control.GetCellHeader(2), "Res_LowPrice");
}

TEST_F(THeaderCellsTest, AFieldHasItsCaptionAndValueWhetherARowShowsItOrNot) {
  ShowSymbol();
  Record().Set(Field::Open, "317.5");
  EXPECT_EQ(control.GetCellHeaderViaAttribute(Field::Open), "Res_OpenPrc");
  EXPECT_EQ(control.GetCellHeaderDisplayData(Field::Open), "317.500");
  Record().SetState(Constdef::RecordState_Invalid);
  EXPECT_EQ(control.GetCellHeaderDisplayData(Field::Open), "");
}

TEST_F(THeaderCellsTest, RowsThatDoNotExistAreEmpty) {
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

class TDetailCellsTest : public THeaderCellsTest {
protected:
  TDetailCellsTest() { control.SetDisplayMode(qm10Full); }
};

TEST_F(TDetailCellsTest, FurtherRowsDescribeTheInstrument) {
  FillStock(Record());
  ShowSymbol();
  EXPECT_EQ(control.GetCount(), 18);
  EXPECT_EQ(control.GetCellHeader(10), "Res_Currency");
  EXPECT_EQ(control.GetCellHeader(11), "Res_IssuedShares");
  EXPECT_EQ(control.GetCellHeaderValue(11), "700 $2,000"); // as an amount, in this place
  EXPECT_EQ(control.GetCellHeader(12), "Res_MarketCap");
  EXPECT_EQ(control.GetCellHeaderValue(12), "700 $20,000");
  EXPECT_EQ(control.GetCellHeader(13), "Res_PE");
  EXPECT_EQ(control.GetDisplayValue(13, Column::HeaderValue), "15.50");
  EXPECT_EQ(control.GetCellHeader(14), "Res_Yield");
  EXPECT_EQ(control.GetDisplayValue(14, Column::HeaderCaption), "Res_Yield");
  EXPECT_EQ(control.GetCellHeader(15), "");
  EXPECT_EQ(events.count, 0);
}

TEST_F(TDetailCellsTest, ADetailWithoutTextGetsNoRow) {
  FillStock(Record());
  Record().Remove(Field::PriceEarnings);
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(12), "Res_MarketCap");
  EXPECT_EQ(control.GetCellHeader(13), "Res_Yield");
}

TEST_F(TDetailCellsTest, RowsEndAtEighteen) {
  FillOptionalHeader(Record());
  FillStock(Record());
  ShowSymbol();
  EXPECT_EQ(control.GetCount(), 18);
  EXPECT_EQ(control.GetCellHeader(15), "Res_Low_52wks");
  EXPECT_EQ(control.GetCellHeader(16), "Res_IssuedShares");
  EXPECT_EQ(control.GetCellHeader(17), "Res_MarketCap");
  EXPECT_EQ(control.GetCellHeader(18), "");
}

TEST_F(TDetailCellsTest, OtherLayoutsHaveNoDetailRows) {
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

TEST_F(TDetailCellsTest, DetailRowsFollowTheSymbol) {
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

TEST_F(TDetailCellsTest, DetailRowsArriveWithTheRecord) {
  FillStock(Record().SetState(Constdef::RecordState_None));
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeader(11), "");
  EXPECT_EQ(host.Registrations().records, 1); // the detail control is made when first needed
  Record().SetState(Constdef::RecordState_Ready).Update();
  EXPECT_EQ(control.GetCellHeader(11), "Res_IssuedShares");
  EXPECT_EQ(host.Registrations().records, 2);
}

TEST_F(TDetailCellsTest, DetailValuesGoWithTheRecord) {
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
  EXPECT_EQ(control.GetCellHeaderValue(13), "15.50");
}

TEST_F(TDetailCellsTest, DetailCaptionsFollowTheLanguage) {
  FillStock(Record());
  ShowSymbol();
  host.language.SetText("Res_PE", "P/E");
  control.UpdateLanguage();
  EXPECT_EQ(control.GetCellHeader(13), "P/E");
}

TEST_F(TDetailCellsTest, ASymbolAndAnUpdateAreOneChangeEach) {
  FillStock(Record());
  events = {};
  ShowSymbol();
  EXPECT_EQ(events.change, 1);
  Record().Update();
  EXPECT_EQ(events.change, 2);
}

TEST(TDetailCellsEndTest, LeaveNoRegistrationBehind) {
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

TEST_F(TDetailCellsTest, ADetailPriceCanBeCopied) {
  Record().Set({{Field::ProductType, "4"}, {Field::StrikePrice, "20"}});
  ShowSymbol();
  ASSERT_EQ(control.GetCellHeader(11), "Res_StrikePrice");
  control.CopyPrice(11, Column::HeaderValue);
  ASSERT_EQ(host.channels.sentOrders.size(), 1u);
  EXPECT_EQ(host.channels.sentOrders[0].price, 20);
}

} // namespace Quorpricedatacontrol
