#include "model/QuorPerclickDataControl.h"

#include "host/ConstDef.h"
#include "model/ControlFixture.h"

#include <limits>

// The two controls of a user who asks for each quote.

namespace Quorpricedatacontrol {

using Fakes::TSentOrder;
using Texts = std::vector<std::string>;

constexpr int Least = std::numeric_limits<int>::min(), Most = std::numeric_limits<int>::max();

template <typename TControl> class TPerclickTest : public TControlTest<TControl> {
protected:
  TPerclickTest() {
    this->Record().Set({{Field::BestBid, "99"},
                        {Field::BestAsk, "101"},
                        {Field::BestBidSize, "1000"},
                        {Field::BestAskSize, "1100"},
                        {Field::BoardLot, "500"}});
    this->Record().Set({{Field::Nominal, "100"},
                        {Field::Volume, "5000"},
                        {Field::Currency, "HKD"},
                        {Field::PreviousClose, "98"},
                        {Field::Low, "95"}});
    this->Record().Set({{Field::High, "110"},
                        {Field::Turnover, "999"},
                        {Field::High52Weeks, "150"},
                        {Field::Low52Weeks, "50"},
                        {Field::Open, "97"}});
    this->Record().Set({{Field::UpdateTime, "10:15:00"}, {Field::SpreadCode, "01"}});
    this->host.market.SetSpreadTable("01", Constdef::SpreadState_Ready,
                                     {{0, 100, 0.5}, {100, 1000, 2}});
  }

  void SetStyle(const char* style) {
    this->host.config.SetCurrent("CopyPriceStyle", style);
    this->host.config.Announce();
  }

  bool Sends(int row, int column) {
    this->host.channels.sentOrders.clear();
    this->control.CopyPrice(row, column);
    return !this->host.channels.sentOrders.empty();
  }

  TSentOrder Click(int row, int column) {
    EXPECT_TRUE(Sends(row, column)) << row << ' ' << column;
    return this->host.channels.sentOrders.empty() ? TSentOrder()
                                                  : this->host.channels.sentOrders.front();
  }
};

using TBestPriceGridTest = TPerclickTest<TPerclickQuorMarketDataControl>;
using TSummaryGridTest = TPerclickTest<TPerclickQuorInfoMarketDataControl>;

// Best-price grid

TEST_F(TBestPriceGridTest, ShowsBestPricesStepsAndSizes) {
  ShowSymbol();
  EXPECT_EQ(control.GetCount(), 3);
  EXPECT_EQ(ColumnTexts(Column::BidSize), (Texts{"Res_Bid", "Res_BidSize", "1,000"}));
  EXPECT_EQ(ColumnTexts(Column::BidPrice), (Texts{"99.000", "700@0.5", ""}));
  EXPECT_EQ(ColumnTexts(Column::AskPrice), (Texts{"101.000", "700@2", ""}));
  EXPECT_EQ(ColumnTexts(Column::AskSize), (Texts{"Res_Ask", "Res_AskSize", "1,100"}));
}

TEST_F(TBestPriceGridTest, ShowsOnlyItsLabelsWithoutSymbol) {
  EXPECT_EQ(ColumnTexts(Column::BidSize), (Texts{"Res_Bid", "Res_BidSize", ""}));
  EXPECT_EQ(ColumnTexts(Column::AskSize), (Texts{"Res_Ask", "Res_AskSize", ""}));
  EXPECT_EQ(ColumnTexts(Column::BidPrice), Texts(3));
}

TEST_F(TBestPriceGridTest, ASizeThatTheRecordDoesNotGiveIsEmpty) {
  ShowSymbol();
  Record().Remove(Field::BestBidSize);
  EXPECT_EQ(control.GetDisplayValue(2, Column::BidSize), "");
  EXPECT_EQ(control.GetDisplayValue(2, Column::AskSize), "1,100");
  Record().Set(Field::BestBidSize, "1000").Remove(Field::BestAskSize);
  EXPECT_EQ(control.GetDisplayValue(2, Column::BidSize), "1,000");
  EXPECT_EQ(control.GetDisplayValue(2, Column::AskSize), "");
}

TEST_F(TBestPriceGridTest, AnUnreadyRecordHasNoSizes) {
  ShowSymbol();
  for (const int state : {Constdef::RecordState_None, Constdef::RecordState_Invalid}) {
    Record().SetState(state);
    EXPECT_EQ(ColumnTexts(Column::BidSize), (Texts{"Res_Bid", "Res_BidSize", ""}));
    EXPECT_EQ(ColumnTexts(Column::AskSize), (Texts{"Res_Ask", "Res_AskSize", ""}));
  }
}

TEST_F(TBestPriceGridTest, ASizeOfZeroShowsAsItStands) {
  Record().Set({{Field::BestBidSize, "0"}, {Field::BestAskSize, "0"}});
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayValue(2, Column::BidSize), "0");
  EXPECT_EQ(control.GetDisplayValue(2, Column::AskSize), "0");
}

TEST_F(TBestPriceGridTest, CellsThatDoNotExistAreEmpty) {
  ShowSymbol();
  for (const int row : {Least, -1, 3, 6, Most})
    for (const int column : PriceAndSizeColumns)
      EXPECT_EQ(control.GetDisplayValue(row, column), "") << row << ' ' << column;
  for (const int column :
       std::initializer_list<int>{Least, -1, 0, Column::HeaderValue, Column::HeaderCaption,
                                  Column::BidQueue1, Column::InfoOpen, Most})
    EXPECT_EQ(control.GetDisplayValue(0, column), "") << column;
  for (const int side : {-1, 2}) {
    EXPECT_EQ(control.GetSizeValue(0, side), "");
    EXPECT_EQ(control.GetPriceValue(0, side), "");
  }
}

TEST_F(TBestPriceGridTest, TellsOfThePriceWithEverySymbolAndUpdate) {
  Record().Set(Field::WarrantList, "13001");
  ShowSymbol();
  EXPECT_EQ(events.related, 1);
  Record().Update();
  Record().Update();
  EXPECT_EQ(events.related, 3);
  EXPECT_EQ(control.WarrantList(), ""); // the depth control's business
  control.OnRelatedChange = nullptr;
  Record().Update();
  EXPECT_EQ(events.related, 3);
}

TEST_F(TBestPriceGridTest, TellsWhenThePriceWasUpdated) {
  EXPECT_EQ(control.GetLastUpdateTime(), "");
  ShowSymbol();
  EXPECT_EQ(control.GetLastUpdateTime(), "10:15:00");
  Record().Remove(Field::UpdateTime);
  EXPECT_EQ(control.GetLastUpdateTime(), "");
}

TEST_F(TBestPriceGridTest, RefreshesTheSubscribedSymbol) {
  control.RefreshPrice();
  EXPECT_TRUE(host.subscriptions.refreshed.empty());
  ShowSymbol();
  control.RefreshPrice();
  EXPECT_EQ(host.subscriptions.refreshed, Texts{"700"});
}

TEST_F(TBestPriceGridTest, GivesTheHeaderTextsOfTheLastPrice) {
  Record().Set({{Field::Change, "+2"}, {Field::ChangePercent, "2.04"}});
  ShowSymbol();
  EXPECT_EQ(control.GetCellHeaderDisplayData(Field::Nominal), "100.000");
  EXPECT_EQ(control.GetCellHeaderDisplayData(Field::Change), "chg(+2)");
  EXPECT_EQ(control.GetCellHeaderDisplayData(Field::ChangePercent), "chg%(2.04)");
}

TEST_F(TBestPriceGridTest, AClickCopiesTheSidesBestPrice) {
  ShowSymbol();
  for (const int row : {0, 1, 2}) {
    EXPECT_EQ(Click(row, Column::BidPrice).price, 99);
    EXPECT_EQ(Click(row, Column::BidSize).price, 99);
    EXPECT_EQ(Click(row, Column::AskPrice).price, 101);
    EXPECT_EQ(Click(row, Column::AskSize).price, 101);
  }
}

TEST_F(TBestPriceGridTest, TheDefaultStyleCopiesTheSizeFromASizeColumn) {
  ShowSymbol();
  EXPECT_EQ(Click(2, Column::BidSize).quantity, 1000);
  EXPECT_EQ(Click(2, Column::AskSize).quantity, 1100);
  EXPECT_EQ(Click(0, Column::BidPrice).quantity, 0);
  EXPECT_EQ(Click(0, Column::AskPrice).quantity, 0);
}

TEST_F(TBestPriceGridTest, OtherStylesCopyTheirQuantityFromEveryColumn) {
  ShowSymbol();
  SetStyle("L");
  for (const int column : PriceAndSizeColumns)
    EXPECT_EQ(Click(0, column).quantity, 500) << column;
  SetStyle("N");
  for (const int column : PriceAndSizeColumns)
    EXPECT_EQ(Click(0, column).quantity, 0) << column;
  SetStyle("S");
  EXPECT_EQ(Click(0, Column::BidSize).quantity, 1000);
  EXPECT_EQ(Click(0, Column::AskPrice).quantity, 1100);
}

TEST_F(TBestPriceGridTest, OnlyBidsAreFlagged) {
  ShowSymbol();
  const std::map<std::string, std::string, std::less<>> flagged = {{"OrderFlags", "1"}};
  EXPECT_EQ(Click(0, Column::BidPrice).values, flagged);
  EXPECT_EQ(Click(0, Column::BidSize).values, flagged);
  EXPECT_TRUE(Click(0, Column::AskPrice).values.empty());
  EXPECT_TRUE(Click(0, Column::AskSize).values.empty());
}

TEST_F(TBestPriceGridTest, TheNominalPriceIsCopiedAsAHeaderPrice) {
  ShowSymbol();
  EXPECT_EQ(Click(0, Column::HeaderValue).price, 100);
  EXPECT_FALSE(Click(0, Column::HeaderValue).quantity.has_value());
  SetStyle("L");
  EXPECT_EQ(Click(0, Column::HeaderValue).quantity, 500);
}

TEST_F(TBestPriceGridTest, AMissingPriceIsLeftUnset) {
  Record().Remove(Field::BestBid).Remove(Field::Nominal);
  ShowSymbol();
  EXPECT_FALSE(Click(0, Column::BidPrice).price.has_value());
  EXPECT_FALSE(Click(0, Column::HeaderValue).price.has_value());
}

TEST_F(TBestPriceGridTest, ACopyTravelsAsTheDepthControlsDoes) {
  control.GroupID = "G1";
  ShowSymbol();
  const TSentOrder order = Click(0, Column::BidPrice);
  EXPECT_EQ(host.channels.sentNumbers, std::vector<int>{18016});
  EXPECT_EQ(order.symbol, "700");
  EXPECT_EQ(order.kind, 502);
  EXPECT_EQ(order.source, "G1");
  control.CopyQty(200);
  EXPECT_EQ(host.channels.sentOrders.back().quantity, 200);
}

TEST_F(TBestPriceGridTest, NothingIsCopiedWithoutRecordOrField) {
  EXPECT_FALSE(Sends(0, Column::BidPrice));
  ShowSymbol();
  for (const int column : std::initializer_list<int>{Least, 0, 4, Column::HeaderCaption,
                                                     Column::BidQueue1, Column::InfoOpen, Most})
    EXPECT_FALSE(Sends(0, column)) << column;
}

// Summary grid

TEST_F(TSummaryGridTest, ShowsTenFiguresUnderTheirLabels) {
  ShowSymbol();
  EXPECT_EQ(control.GetCount(), 4);
  EXPECT_EQ(ColumnTexts(Column::InfoOpen),
            (Texts{"Res_OpenPrice", "97.000", "Res_Volume", "5,000"}));
  EXPECT_EQ(ColumnTexts(Column::InfoHigh),
            (Texts{"Res_HighPrice", "110.000", "Res_TurnOver", "700 $999"}));
  EXPECT_EQ(ColumnTexts(Column::InfoLow),
            (Texts{"Res_LowPrice", "95.000", "Res_LotSize", "500 sh"}));
  EXPECT_EQ(ColumnTexts(Column::InfoPreviousClose),
            (Texts{"Res_PreClose", "98.000", "Res_High_52wks", "150.000"}));
  EXPECT_EQ(ColumnTexts(Column::InfoCurrency),
            (Texts{"Res_Currency", "HKD", "Res_Low_52wks", "50.000"}));
}

TEST_F(TSummaryGridTest, ShowsOnlyItsLabelsWithoutSymbol) {
  EXPECT_EQ(ColumnTexts(Column::InfoOpen), (Texts{"Res_OpenPrice", "", "Res_Volume", ""}));
}

TEST_F(TSummaryGridTest, CellsThatDoNotExistAreEmpty) {
  ShowSymbol();
  for (const int row : {Least, -1, 4, Most})
    EXPECT_EQ(control.GetDisplayValue(row, Column::InfoOpen), "") << row;
  for (const int column :
       std::initializer_list<int>{Least, -1, 0, Column::BidPrice, Column::HeaderValue,
                                  Column::HeaderCaption, 9999, 10005, Most})
    for (int row = 0; row < 4; ++row)
      EXPECT_EQ(control.GetDisplayValue(row, column), "") << column;
}

TEST_F(TSummaryGridTest, AClickCopiesTheFigureOrTheNominalPrice) {
  ShowSymbol();
  const struct {
    int column;
    double upper, lower;
  } cases[] = {{Column::InfoOpen, 97, 100},
               {Column::InfoHigh, 110, 100},
               {Column::InfoLow, 95, 100},
               {Column::InfoPreviousClose, 98, 150},
               {Column::InfoCurrency, 100, 50}};
  for (const auto& copied : cases)
    for (const int row : {0, 1}) {
      EXPECT_EQ(Click(row, copied.column).price, copied.upper) << row << ' ' << copied.column;
      EXPECT_EQ(Click(row + 2, copied.column).price, copied.lower) << row << ' ' << copied.column;
    }
}

TEST_F(TSummaryGridTest, OnlyTheOneLotStyleCopiesAQuantity) {
  ShowSymbol();
  for (const int row : {0, 1, 2, 3})
    for (int column = Column::InfoOpen; column <= Column::InfoCurrency; ++column) {
      for (const char* style : {"D", "N", "S"}) {
        SetStyle(style);
        EXPECT_FALSE(Click(row, column).quantity.has_value()) << row << ' ' << column << style;
      }
      SetStyle("L");
      EXPECT_EQ(Click(row, column).quantity, 500) << row << ' ' << column;
      EXPECT_TRUE(Click(row, column).values.empty()) << row << ' ' << column;
    }
}

TEST_F(TSummaryGridTest, AMissingPriceIsLeftUnset) {
  Record().Remove(Field::Low52Weeks).Remove(Field::Nominal);
  ShowSymbol();
  EXPECT_FALSE(Click(2, Column::InfoCurrency).price.has_value());
  EXPECT_FALSE(Click(0, Column::InfoCurrency).price.has_value());
}

TEST_F(TSummaryGridTest, ACopyTravelsAsTheDepthControlsDoes) {
  control.GroupID = "G1";
  ShowSymbol();
  const TSentOrder order = Click(3, Column::InfoHigh);
  EXPECT_EQ(host.channels.sentNumbers, std::vector<int>{18016});
  EXPECT_EQ(order.symbol, "700");
  EXPECT_EQ(order.kind, 502);
  EXPECT_EQ(order.source, "G1");
}

TEST_F(TSummaryGridTest, NothingIsCopiedWithoutRecordOrCell) {
  EXPECT_FALSE(Sends(0, Column::InfoOpen));
  ShowSymbol();
  for (const int column :
       std::initializer_list<int>{Least, Column::BidPrice, Column::HeaderValue, 9999, 10005, Most})
    EXPECT_FALSE(Sends(0, column)) << column;
  for (const int row : {Least, -1, 4, Most})
    EXPECT_FALSE(Sends(row, Column::InfoOpen)) << row;
}

TEST_F(TSummaryGridTest, RelatedInstrumentsStayTheDepthControls) {
  Record().Set(Field::WarrantList, "13001");
  ShowSymbol();
  EXPECT_EQ(control.WarrantList(), "13001");
  EXPECT_EQ(events.related, 1);
}

} // namespace Quorpricedatacontrol
