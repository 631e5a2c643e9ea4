#include "host/ConstDef.h"
#include "model/ControlFixture.h"

#include <limits>

// Price and size cells of the depth grid, and the trades above them.

namespace Quorpricedatacontrol {

using Texts = std::vector<std::string>;

class TDepthCellsTest : public TDepthControlTest {
protected:
  TDepthCellsTest() {
    host.market.SetSpreadTable("01", Constdef::SpreadState_Ready, {{0, 100, 0.5}, {100, 1000, 2}});
    FillDepth(Record());
    Record().Set(Field::SpreadCode, "01");
  }

  void Show(TQuorMode mode) {
    control.SetDisplayMode(mode);
    ShowSymbol();
  }
};

// What each layout shows

TEST_F(TDepthCellsTest, FiveLevelLayout) {
  Show(qm5Full);
  const std::string none;
  EXPECT_EQ(ColumnTexts(Column::BidPrice),
            (Texts{none, none, none, none, none, none, "99.000", "700@0.5", "99.000", "98.000",
                   "97.000", "96.000", "95.000"}));
  EXPECT_EQ(ColumnTexts(Column::AskPrice),
            (Texts{none, none, none, none, none, none, "101.000", "700@2", "101.000", "102.000",
                   "103.000", "104.000", "105.000"}));
  EXPECT_EQ(ColumnTexts(Column::BidSize),
            (Texts{none, none, none, none, none, none, "Res_Bid", "Res_BidSize", "1,000", "2,000",
                   "3,000", "4,000", "5,000"}));
  EXPECT_EQ(ColumnTexts(Column::AskSize),
            (Texts{none, none, none, none, none, none, "Res_Ask", "Res_AskSize", "1,100", "2,100",
                   "3,100", "4,100", "5,100"}));
}

TEST_F(TDepthCellsTest, TenLevelLayoutWithoutHeaderRows) {
  Show(qm10Simple);
  EXPECT_EQ(ColumnTexts(Column::BidPrice),
            (Texts{"", "99.000", "700@0.5", "99.000", "98.000", "97.000", "96.000", "95.000",
                   "94.000", "93.000", "92.000", "91.000", "90.000"}));
  EXPECT_EQ(ColumnTexts(Column::AskPrice),
            (Texts{"", "101.000", "700@2", "101.000", "102.000", "103.000", "104.000", "105.000",
                   "106.000", "107.000", "108.000", "109.000", "110.000"}));
  EXPECT_EQ(ColumnTexts(Column::BidSize),
            (Texts{"", "Res_Bid", "Res_BidSize", "1,000", "2,000", "3,000", "4,000", "5,000",
                   "6,000", "7,000", "8,000", "9,000", "10,000"}));
  EXPECT_EQ(ColumnTexts(Column::AskSize),
            (Texts{"", "Res_Ask", "Res_AskSize", "1,100", "2,100", "3,100", "4,100", "5,100",
                   "6,100", "7,100", "8,100", "9,100", "10,100"}));
}

TEST_F(TDepthCellsTest, TenLevelLayoutUnderHeaderRows) {
  Show(qm10Full);
  const std::string none;
  EXPECT_EQ(
      ColumnTexts(Column::BidPrice),
      (Texts{none, none, none, none, none, none, "99.000", "700@0.5", "99.000", "98.000", "97.000",
             "96.000", "95.000", "94.000", "93.000", "92.000", "91.000", "90.000"}));
  EXPECT_EQ(ColumnTexts(Column::AskPrice),
            (Texts{none, none, none, none, none, none, "101.000", "700@2", "101.000", "102.000",
                   "103.000", "104.000", "105.000", "106.000", "107.000", "108.000", "109.000",
                   "110.000"}));
  EXPECT_EQ(ColumnTexts(Column::BidSize),
            (Texts{none, none, none, none, none, none, "Res_Bid", "Res_BidSize", "1,000", "2,000",
                   "3,000", "4,000", "5,000", "6,000", "7,000", "8,000", "9,000", "10,000"}));
  EXPECT_EQ(ColumnTexts(Column::AskSize),
            (Texts{none, none, none, none, none, none, "Res_Ask", "Res_AskSize", "1,100", "2,100",
                   "3,100", "4,100", "5,100", "6,100", "7,100", "8,100", "9,100", "10,100"}));
}

TEST_F(TDepthCellsTest, TheFiveLevelLayoutStaysAtFiveLevelsWhereItHasMoreRows) {
  FillOptionalHeader(Record());
  Show(qm5Full);
  ASSERT_EQ(control.GetCount(), 16);
  for (int row = 13; row < 18; ++row)
    for (const int side : {Side::Bid, Side::Ask}) {
      EXPECT_EQ(control.GetPriceValue(row, side), "") << row;
      EXPECT_EQ(control.GetSizeValue(row, side), "") << row;
    }
  EXPECT_EQ(control.GetDisplayValue(13, Column::BidPrice), "");
  EXPECT_EQ(control.GetDisplayValue(12, Column::BidPrice), "95.000");
}

// How a feed publishes its levels

TEST_F(TDepthControlTest, AFeedOfBestPricesAloneShowsNoLevelPrices) {
  Record().Set({{Field::BestBid, "99"},
                {Field::BestAsk, "101"},
                {Field::BestBidSize, "1000"},
                {Field::BestAskSize, "1100"}});
  ShowSymbol();
  EXPECT_EQ(control.MarketDataType(), mdtUnknown);
  EXPECT_EQ(control.GetDisplayValue(6, Column::BidPrice), "99.000");
  EXPECT_EQ(control.GetDisplayValue(6, Column::AskPrice), "101.000");
  EXPECT_EQ(control.GetDisplayValue(8, Column::BidPrice), "");
  EXPECT_EQ(control.GetDisplayValue(8, Column::AskPrice), "");
  EXPECT_EQ(control.GetDisplayValue(8, Column::BidSize), "1,000");
  EXPECT_EQ(control.GetDisplayValue(8, Column::AskSize), "1,100");
}

TEST_F(TDepthControlTest, AFeedWithoutLevelPricesShowsOrderCounts) {
  Record().Set({{Field::BestBid, "99"},
                {Field::Bid.Size[1], "2000"},
                {Field::Bid.Count[0], "3"},
                {Field::Bid.Count[1], "1234"},
                {Field::Ask.Count[1], "7"}});
  ShowSymbol();
  EXPECT_EQ(control.MarketDataType(), mdtOrderCount);
  EXPECT_EQ(control.GetDisplayValue(8, Column::BidPrice), "(3)");
  EXPECT_EQ(control.GetDisplayValue(9, Column::BidPrice), "(1,234)");
  EXPECT_EQ(control.GetDisplayValue(9, Column::AskPrice), "(7)");
}

TEST_F(TDepthControlTest, HowAFeedPublishesIsRetriedUntilKnownAndThenKept) {
  ShowSymbol();
  Record().Set(Field::BestBidSize, "1000").Update();
  EXPECT_EQ(control.MarketDataType(), mdtUnknown);
  Record().Set(Field::Bid.Size[1], "2000").Update();
  EXPECT_EQ(control.MarketDataType(), mdtOrderCount);
  Record().Set(Field::Bid.Price[1], "98").Update();
  EXPECT_EQ(control.MarketDataType(), mdtOrderCount);
  control.SetSymbol("");
  ShowSymbol();
  EXPECT_EQ(control.MarketDataType(), mdtPriced);
}

// Sizes of zero

TEST_F(TDepthCellsTest, ASizeOfZeroShowsOnlyInTheSimpleLayout) {
  Record().Set({{Field::BestBidSize, "0"}, {Field::Ask.Size[9], "0"}});
  Show(qm10Simple);
  EXPECT_EQ(control.GetDisplayValue(3, Column::BidSize), "0");
  EXPECT_EQ(control.GetDisplayValue(12, Column::AskSize), "0");
  control.SetDisplayMode(qm10Full);
  EXPECT_EQ(control.GetDisplayValue(8, Column::BidSize), "");
  EXPECT_EQ(control.GetDisplayValue(17, Column::AskSize), "");
  control.SetDisplayMode(qm5Full);
  EXPECT_EQ(control.GetDisplayValue(8, Column::BidSize), "");
}

// Records that hold no data

TEST_F(TDepthCellsTest, OnlyTheLabelsShowWhileTheRecordIsNotReady) {
  for (const auto type : {mdtPriced, mdtOrderCount}) {
    control.SetSymbol("");
    FillDepth(Record().SetState(Constdef::RecordState_Ready));
    if (type == mdtOrderCount)
      FillOrderCountDepth(Record());
    Show(qm5Full);
    ASSERT_EQ(control.MarketDataType(), type);
    Record().SetState(Constdef::RecordState_Invalid);
    const std::string none;
    const Texts empty(13);
    EXPECT_EQ(ColumnTexts(Column::BidPrice), empty);
    EXPECT_EQ(ColumnTexts(Column::AskPrice), empty);
    EXPECT_EQ(ColumnTexts(Column::BidSize), (Texts{none, none, none, none, none, none, "Res_Bid",
                                                   "Res_BidSize", none, none, none, none, none}));
    EXPECT_EQ(ColumnTexts(Column::AskSize), (Texts{none, none, none, none, none, none, "Res_Ask",
                                                   "Res_AskSize", none, none, none, none, none}));
  }
}

TEST_F(TDepthControlTest, OnlyTheLabelsShowWithoutASymbol) {
  control.SetDisplayMode(qm10Simple);
  EXPECT_EQ(ColumnTexts(Column::BidPrice), Texts(13));
  EXPECT_EQ(control.GetDisplayValue(1, Column::BidSize), "Res_Bid");
  EXPECT_EQ(control.GetDisplayValue(2, Column::AskSize), "Res_AskSize");
  EXPECT_EQ(control.GetDisplayValue(3, Column::BidSize), "");
}

TEST_F(TDepthCellsTest, LabelsFollowTheLanguage) {
  Show(qm5Full);
  host.language.SetText("Res_Bid", "Bid");
  host.language.SetText("Res_AskSize", "Ask Size");
  EXPECT_EQ(control.GetDisplayValue(6, Column::BidSize), "Bid");
  EXPECT_EQ(control.GetDisplayValue(7, Column::AskSize), "Ask Size");
  EXPECT_TRUE(host.language.selectorsAsAgreed);
}

// What does not exist

TEST_F(TDepthCellsTest, CellsThatDoNotExistAreEmpty) {
  Show(qm10Full);
  constexpr int least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
  for (const int column : std::initializer_list<int>{least, -1, 0, 4, 15, 17, 20, 22, 54, 59, 64,
                                                     69, Column::InfoOpen, most})
    for (int row = 0; row < 18; ++row)
      EXPECT_EQ(control.GetDisplayValue(row, column), "") << row << ' ' << column;
  for (const int row : {least, -1, 18, most})
    for (const int column :
         {Column::BidPrice, Column::AskPrice, Column::HeaderValue, Column::BidSize, Column::AskSize,
          Column::HeaderCaption, Column::BidQueue1, Column::BidQueue4, Column::AskQueue1,
          Column::AskQueue4})
      EXPECT_EQ(control.GetDisplayValue(row, column), "") << row << ' ' << column;
  for (const int side : {least, -1, 2, most}) {
    EXPECT_EQ(control.GetBestPrice(side), "");
    EXPECT_EQ(control.GetBestPriceSpread(side), "");
    EXPECT_EQ(control.GetDetailPrice(0, side), "");
    EXPECT_EQ(control.GetPriceValue(6, side), "");
    EXPECT_EQ(control.GetSizeValue(6, side), "");
    EXPECT_EQ(control.GetSizeValue(8, side), "");
  }
  for (const int level : {least, -1, 10, most})
    EXPECT_EQ(control.GetDetailPrice(level, Side::Bid), "") << level;
}

TEST_F(TDepthCellsTest, TheSimpleLayoutHasThirteenRows) {
  Show(qm10Simple);
  EXPECT_EQ(control.GetDisplayValue(12, Column::BidPrice), "90.000");
  EXPECT_EQ(control.GetDisplayValue(13, Column::BidPrice), "");
  EXPECT_EQ(control.GetPriceValue(0, Side::Bid), "");
  EXPECT_EQ(control.GetSizeValue(0, Side::Bid), "");
}

// Trades in the header rows

class TTradeCellsTest : public TDepthControlTest {
protected:
  TTradeCellsTest() {
    host.trades.SetTrades("700", {{" 09:30:01 ", "B", "100", 318.2},
                                  {"09:30:02", "", "200", 318.4},
                                  {"09:30:03P", "S", "300", 318.6},
                                  {"  ", "B", "400", 318.8},
                                  {"09:30:05", "+", "500", 319},
                                  {"09:30:06", "-", "600", 320}});
    ShowSymbol();
  }
};

TEST_F(TTradeCellsTest, FiveTradesShowInTheHeaderRowsOfTheFullLayouts) {
  for (const TQuorMode mode : {qm5Full, qm10Full}) {
    control.SetDisplayMode(mode);
    EXPECT_EQ(control.GetDisplayValue(0, Column::BidPrice), "");
    EXPECT_EQ(control.GetDisplayValue(1, Column::BidPrice), "09:30:01B");
    EXPECT_EQ(control.GetDisplayValue(1, Column::AskPrice), "700@318.2");
    EXPECT_EQ(control.GetDisplayValue(1, Column::AskSize), "100");
    EXPECT_EQ(control.GetDisplayValue(1, Column::BidSize), "");
    EXPECT_EQ(control.GetDisplayValue(5, Column::BidPrice), "09:30:05+");
    EXPECT_EQ(control.GetDisplayValue(5, Column::AskPrice), "700@319");
    EXPECT_EQ(control.GetDisplayValue(5, Column::AskSize), "500");
    EXPECT_EQ(control.GetDisplayValue(6, Column::AskSize), "Res_Ask");
  }
}

TEST_F(TTradeCellsTest, TheSimpleLayoutShowsNoTrades) {
  control.SetDisplayMode(qm10Simple);
  EXPECT_EQ(control.GetDisplayValue(1, Column::BidPrice), "");
  EXPECT_EQ(control.GetDisplayValue(1, Column::AskSize), "Res_Ask");
  EXPECT_EQ(control.GetDisplayValue(5, Column::AskPrice), "");
}

TEST_F(TTradeCellsTest, ATradeWithoutTimeDoesNotShow) {
  EXPECT_FALSE(control.GetTradeInfo(4).Found);
  EXPECT_EQ(control.GetDisplayValue(4, Column::AskPrice), "");
  EXPECT_EQ(control.GetDisplayValue(4, Column::AskSize), "");
}

TEST_F(TTradeCellsTest, ASymbolWithoutTradesShowsNone) {
  control.SetSymbol("5");
  EXPECT_FALSE(control.GetTradeInfo(1).Found);
  host.trades.SetTrades("5", {{"10:00:00", "B", "100", 60}});
  EXPECT_TRUE(control.GetTradeInfo(1).Found);
  EXPECT_FALSE(control.GetTradeInfo(2).Found);
}

} // namespace Quorpricedatacontrol
