#include "host/ConstDef.h"
#include "model/ControlFixture.h"

// What a click on a cell copies to order entry.

namespace Quorpricedatacontrol {

using Fakes::TSentOrder;

class TCopyPriceTest : public TDepthControlTest {
protected:
  TCopyPriceTest() {
    host.market.SetSpreadTable("01", Constdef::SpreadState_Ready, {{0, 100, 0.5}, {100, 1000, 2}});
    FillDepth(Record());
    Record().Set({{Field::SpreadCode, "01"},
                  {Field::BoardLot, "500"},
                  {Field::Nominal, "100"},
                  {Field::High, "110"},
                  {Field::Volume, "999"}});
    ShowSymbol();
  }

  void SetStyle(const char* style) {
    host.config.SetCurrent("CopyPriceStyle", style);
    host.config.Announce();
  }

  /// The order that a click sends; it must be the only one.
  TSentOrder Click(int row, int column) {
    host.channels.sentOrders.clear();
    control.CopyPrice(row, column);
    EXPECT_EQ(host.channels.sentOrders.size(), 1u) << row << ' ' << column;
    return host.channels.sentOrders.empty() ? TSentOrder() : host.channels.sentOrders.front();
  }

  bool Sends(int row, int column) {
    host.channels.sentOrders.clear();
    control.CopyPrice(row, column);
    return !host.channels.sentOrders.empty();
  }

  static bool IsFlagged(const TSentOrder& order) {
    return order.values == std::map<std::string, std::string, std::less<>>{{"OrderFlags", "1"}};
  }
};

// How the order travels

TEST_F(TCopyPriceTest, TheOrderGoesToOrderEntryWithItsKindAndGroup) {
  control.GroupID = "G1";
  const TSentOrder order = Click(6, Column::BidPrice);
  EXPECT_EQ(host.channels.sentNumbers, std::vector<int>{18016});
  EXPECT_EQ(order.symbol, "700");
  EXPECT_EQ(order.kind, 502);
  EXPECT_EQ(order.source, "G1");
  EXPECT_EQ(order.sender, &control);
}

TEST_F(TCopyPriceTest, TheOrderIsEmptiedBeforeEachCopy) {
  SetStyle("L");
  Click(6, Column::BidPrice);
  const TSentOrder order = Click(7, Column::HeaderValue); // the volume
  EXPECT_FALSE(order.price.has_value());
  EXPECT_FALSE(order.quantity.has_value());
  EXPECT_TRUE(order.values.empty());
}

// Best prices

TEST_F(TCopyPriceTest, TheDefaultStyleCopiesTheBestSizeOnlyFromItsOwnCell) {
  const TSentOrder bidPrice = Click(6, Column::BidPrice);
  EXPECT_EQ(bidPrice.price, 99);
  EXPECT_EQ(bidPrice.quantity, 0);
  const TSentOrder bidSize = Click(6, Column::BidSize);
  EXPECT_EQ(bidSize.price, 99);
  EXPECT_EQ(bidSize.quantity, 1000);
  const TSentOrder askPrice = Click(6, Column::AskPrice);
  EXPECT_EQ(askPrice.price, 101);
  EXPECT_EQ(askPrice.quantity, 0);
  const TSentOrder askSize = Click(6, Column::AskSize);
  EXPECT_EQ(askSize.price, 101);
  EXPECT_EQ(askSize.quantity, 1100);
}

TEST_F(TCopyPriceTest, TheFirstLevelIsTheBestPrice) {
  const TSentOrder order = Click(8, Column::BidSize);
  EXPECT_EQ(order.price, 99);
  EXPECT_EQ(order.quantity, 1000);
}

TEST_F(TCopyPriceTest, OnlyBidsAreFlagged) {
  for (const int row : {6, 8, 9, 12, 13, 17}) {
    EXPECT_TRUE(IsFlagged(Click(row, Column::BidPrice))) << row;
    EXPECT_TRUE(IsFlagged(Click(row, Column::BidSize))) << row;
    EXPECT_TRUE(Click(row, Column::AskPrice).values.empty()) << row;
    EXPECT_TRUE(Click(row, Column::AskSize).values.empty()) << row;
  }
  EXPECT_TRUE(Click(6, Column::HeaderValue).values.empty());
}

// Levels

struct TLayoutCase {
  TQuorMode mode;
  int bestRow, firstLevelRow;
};

class TCopyLevelTest : public TCopyPriceTest, public testing::WithParamInterface<TLayoutCase> {};

TEST_P(TCopyLevelTest, EachLevelCopiesItsOwnPriceOnEitherColumnOfItsSide) {
  control.SetDisplayMode(GetParam().mode);
  EXPECT_EQ(Click(GetParam().bestRow, Column::BidPrice).price, 99);
  EXPECT_EQ(Click(GetParam().bestRow, Column::AskSize).price, 101);
  for (int level = 0; level < Field::DepthLevels; ++level) {
    const int row = GetParam().firstLevelRow + level;
    EXPECT_EQ(Click(row, Column::BidPrice).price, 99 - level) << level;
    EXPECT_EQ(Click(row, Column::BidSize).price, 99 - level) << level;
    EXPECT_EQ(Click(row, Column::AskPrice).price, 101 + level) << level;
    EXPECT_EQ(Click(row, Column::AskSize).price, 101 + level) << level;
  }
}

TEST_P(TCopyLevelTest, RowsThatHoldNoPriceCopyNothing) {
  control.SetDisplayMode(GetParam().mode);
  for (const int row : {-1, 0, GetParam().bestRow + 1, GetParam().firstLevelRow + 10, 100})
    for (const int column : PriceAndSizeColumns)
      EXPECT_FALSE(Sends(row, column)) << row << ' ' << column;
}

INSTANTIATE_TEST_SUITE_P(Layouts, TCopyLevelTest,
                         testing::Values(TLayoutCase{qm5Full, 6, 8}, TLayoutCase{qm10Full, 6, 8},
                                         TLayoutCase{qm10Simple, 1, 3}));

TEST_F(TCopyPriceTest, OtherColumnsCopyNothing) {
  for (const int column : std::initializer_list<int>{
           -1, 0, 4, Column::HeaderCaption, Column::BidQueue1, Column::BidQueue4, Column::AskQueue1,
           Column::AskQueue4, Column::InfoOpen})
    EXPECT_FALSE(Sends(6, column)) << column;
}

TEST_F(TCopyPriceTest, NothingIsCopiedWithoutSymbol) {
  control.SetSymbol("");
  EXPECT_FALSE(Sends(6, Column::BidPrice));
  control.CopyQty(100);
  EXPECT_TRUE(host.channels.sentOrders.empty());
}

TEST_F(TCopyPriceTest, AMissingPriceIsLeftUnset) {
  Record().Remove(Field::BestBid).Remove(Field::Bid.Price[2]).Remove(Field::High);
  const TSentOrder best = Click(6, Column::BidSize);
  EXPECT_FALSE(best.price.has_value());
  EXPECT_EQ(best.quantity, 1000);
  EXPECT_FALSE(Click(10, Column::BidPrice).price.has_value());
  EXPECT_FALSE(Click(1, Column::HeaderValue).price.has_value());
}

// Levels that are published without prices

class TCopyDerivedPriceTest : public TCopyPriceTest {
protected:
  TCopyDerivedPriceTest() {
    control.SetSymbol("");
    FillOrderCountDepth(Record());
    Record().Set({{Field::BestBid, "101"}, {Field::BestAsk, "99"}});
    ShowSymbol();
  }
};

TEST_F(TCopyDerivedPriceTest, ALevelLiesAsManyStepsFromTheBestPriceAsItIsDeep) {
  const double bids[] = {101, 99, 98.5, 98, 97.5, 97, 96.5, 96, 95.5, 95};
  const double asks[] = {99, 99.5, 100, 102, 104, 106, 108, 110, 112, 114};
  for (int level = 0; level < Field::DepthLevels; ++level) {
    EXPECT_EQ(Click(8 + level, Column::BidPrice).price, bids[level]) << level;
    EXPECT_EQ(Click(8 + level, Column::AskPrice).price, asks[level]) << level;
  }
}

TEST_F(TCopyDerivedPriceTest, TheFourthBidLiesThreeStepsBelowTheBest) {
  Record().Set(Field::BestBid, "50");
  const TSentOrder order = Click(11, Column::BidPrice);
  EXPECT_EQ(order.price, 48.5);
  EXPECT_TRUE(IsFlagged(order));
}

TEST_F(TCopyDerivedPriceTest, APublishedPriceGoesBeforeADerivedOne) {
  Record().Set(Field::Bid.Price[3], "77");
  EXPECT_EQ(Click(11, Column::BidPrice).price, 77);
}

TEST_F(TCopyDerivedPriceTest, APriceThatCannotBeDerivedIsLeftUnset) {
  for (const char* best : {"", "none", "nan", "inf", "1x"}) {
    Record().Set(Field::BestBid, best);
    EXPECT_FALSE(Click(9, Column::BidPrice).price.has_value()) << best;
  }
  Record().Set(Field::BestBid, " 50 ");
  EXPECT_EQ(Click(9, Column::BidPrice).price, 49.5);
  host.market.SetSpreadTable("01", 0, {{0, 1000, 1}});
  EXPECT_FALSE(Click(9, Column::BidPrice).price.has_value());
  Record().Set(Field::SpreadCode, "99");
  EXPECT_FALSE(Click(9, Column::AskPrice).price.has_value());
}

TEST_F(TCopyDerivedPriceTest, ALevelThatLiesBeyondTheTableHasNoPrice) {
  host.market.SetSpreadTable("01", 1, {{0, 10, 0.5}});
  Record().Set({{Field::BestBid, "1"}, {Field::BestAsk, "9.5"}});
  EXPECT_EQ(Click(9, Column::BidPrice).price, 0.5);
  EXPECT_FALSE(Click(10, Column::BidPrice).price.has_value()) << "zero is no price";
  EXPECT_FALSE(Click(11, Column::BidPrice).price.has_value());
  EXPECT_EQ(Click(9, Column::AskPrice).price, 10);
  EXPECT_FALSE(Click(10, Column::AskPrice).price.has_value()) << "the table ends at 10";
  Record().Set({{Field::BestBid, "20"}, {Field::BestAsk, "20"}});
  EXPECT_FALSE(Click(9, Column::BidPrice).price.has_value()) << "20 lies in no band";
  EXPECT_FALSE(Click(9, Column::AskPrice).price.has_value());
}

TEST_F(TCopyDerivedPriceTest, PricesAreDerivedOnlyForAFeedOfOrderCounts) {
  control.SetSymbol("");
  Record().Set(Field::Bid.Price[1], "100.5"); // the first level beyond the best now has a price
  ShowSymbol();
  ASSERT_EQ(control.MarketDataType(), mdtPriced);
  EXPECT_FALSE(Click(11, Column::BidPrice).price.has_value());
}

TEST_F(TCopyDerivedPriceTest, AMissingBestPriceIsNotDerived) {
  Record().Remove(Field::BestBid);
  EXPECT_FALSE(Click(6, Column::BidPrice).price.has_value());
}

TEST_F(TCopyDerivedPriceTest, ABestPriceMayHaveASign) {
  Record().Set(Field::BestBid, "+50");
  EXPECT_EQ(Click(9, Column::BidPrice).price, 49.5);
  Record().Set(Field::BestBid, "+-50");
  EXPECT_FALSE(Click(9, Column::BidPrice).price.has_value());
}

TEST_F(TCopyDerivedPriceTest, ADerivedPriceComesWithTheStylesQuantity) {
  SetStyle("S");
  const TSentOrder bid = Click(11, Column::BidPrice);
  EXPECT_EQ(bid.price, 98);
  EXPECT_EQ(bid.quantity, 1000 + 2000 + 3000 + 4000);
  EXPECT_TRUE(IsFlagged(bid));
  const TSentOrder ask = Click(14, Column::AskSize);
  EXPECT_EQ(ask.price, 108);
  EXPECT_EQ(ask.quantity, 1100 + 2100 + 3100 + 4100 + 5100 + 6100 + 7100);
  EXPECT_TRUE(ask.values.empty());
  SetStyle("L");
  EXPECT_EQ(Click(14, Column::AskSize).price, 108);
  EXPECT_EQ(Click(14, Column::AskSize).quantity, 500);
}

TEST_F(TCopyDerivedPriceTest, AnEmptyPublishedPriceIsZeroAndNotDerived) {
  Record().Set(Field::Bid.Price[3], "");
  EXPECT_EQ(Click(11, Column::BidPrice).price, 0);
}

// Records that hold no data

TEST_F(TCopyPriceTest, AnEmptyPriceIsCopiedAsZero) {
  Record().Set({{Field::BestAsk, ""}, {Field::High, ""}});
  EXPECT_EQ(Click(6, Column::AskPrice).price, 0);
  EXPECT_EQ(Click(1, Column::HeaderValue).price, 0);
}

TEST_F(TCopyPriceTest, WhatAnUnreadyRecordStillHasIsCopied) {
  Record().SetState(Constdef::RecordState_Invalid).Update();
  const TSentOrder best = Click(6, Column::BidSize);
  EXPECT_EQ(best.price, 99);
  EXPECT_EQ(best.quantity, 1000);
  EXPECT_TRUE(IsFlagged(best));
  EXPECT_EQ(Click(10, Column::AskPrice).price, 103);
  EXPECT_EQ(Click(6, Column::HeaderValue).price, 100);
}

TEST_F(TCopyPriceTest, ARecordThatNeverArrivedCopiesTheSymbol) {
  host.Record("5").SetState(Constdef::RecordState_None);
  control.SetSymbol("5");
  const TSentOrder best = Click(6, Column::BidSize);
  EXPECT_EQ(best.symbol, "5");
  EXPECT_FALSE(best.price.has_value());
  EXPECT_EQ(best.quantity, 0);
  EXPECT_TRUE(IsFlagged(best));
  const TSentOrder nominal = Click(6, Column::HeaderValue);
  EXPECT_EQ(nominal.symbol, "5");
  EXPECT_FALSE(nominal.price.has_value());
  EXPECT_FALSE(nominal.quantity.has_value());
}

// Quantities

TEST_F(TCopyPriceTest, TheDefaultStyleCopiesNoQuantityFromDeeperLevels) {
  for (int row = 9; row <= 17; ++row) {
    EXPECT_EQ(Click(row, Column::BidSize).quantity, 0) << row;
    EXPECT_EQ(Click(row, Column::AskSize).quantity, 0) << row;
  }
}

TEST_F(TCopyPriceTest, TheOneLotStyleCopiesTheLotSizeFromEveryPrice) {
  SetStyle("Lot");
  for (const int row : {6, 8, 9, 17})
    for (const int column : PriceAndSizeColumns)
      EXPECT_EQ(Click(row, column).quantity, 500) << row << ' ' << column;
  const TSentOrder nominal = Click(6, Column::HeaderValue);
  EXPECT_EQ(nominal.price, 100);
  EXPECT_EQ(nominal.quantity, 500);
}

TEST_F(TCopyPriceTest, TheNoneStyleCopiesAQuantityOfZero) {
  SetStyle("N");
  for (const int row : {6, 8, 9, 17})
    for (const int column : PriceAndSizeColumns)
      EXPECT_EQ(Click(row, column).quantity, 0) << row << ' ' << column;
}

TEST_F(TCopyPriceTest, TheSummaryStyleCopiesTheSizeDownToTheLevel) {
  SetStyle("S");
  double bids = 0, asks = 0;
  for (int level = 0; level < Field::DepthLevels; ++level) {
    bids += 1000 * (level + 1);
    asks += 1000 * (level + 1) + 100;
    EXPECT_EQ(Click(8 + level, Column::BidPrice).quantity, bids) << level;
    EXPECT_EQ(Click(8 + level, Column::BidSize).quantity, bids) << level;
    EXPECT_EQ(Click(8 + level, Column::AskPrice).quantity, asks) << level;
    EXPECT_EQ(Click(8 + level, Column::AskSize).quantity, asks) << level;
  }
  EXPECT_EQ(Click(6, Column::BidSize).quantity, 1000);
  EXPECT_EQ(control.GetCopyPriceQty(Field::Ask.Price[2]), 1100 + 2100 + 3100);
}

TEST_F(TDepthControlTest, ThereIsNoQuantityWithoutARecord) {
  host.config.SetCurrent("CopyPriceStyle", "L");
  host.config.Announce();
  EXPECT_EQ(control.GetCopyPriceQty(Field::BestBid), 0);
}

// Header values

class TCopyHeaderTest : public TCopyPriceTest {
protected:
  TCopyHeaderTest() {
    Record().Set({{Field::PreviousClose, "98"},
                  {Field::Low, "95"},
                  {Field::Change, "2"},
                  {Field::ChangePercent, "2.04"},
                  {Field::Turnover, "5"},
                  {Field::Currency, "HKD"}});
    Record().Set({{Field::UpperLimit, "120"},
                  {Field::LowerLimit, "80"},
                  {Field::AccruedInterest, "1"},
                  {Field::High52Weeks, "150"},
                  {Field::Low52Weeks, "50"},
                  {Field::Open, "97"}});
    control.BODDataUpdate(nullptr, nullptr);
  }

  TSentOrder ClickCaption(const std::string& caption) {
    for (int row = 0; row < control.GetCount(); ++row)
      if (control.GetCellHeader(row) == caption)
        return Click(row, Column::HeaderValue);
    ADD_FAILURE() << caption;
    return {};
  }
};

TEST_F(TCopyHeaderTest, HeaderPricesAreCopiedWithoutQuantity) {
  for (const auto& [caption, price] : {std::pair{"Res_Nominal", 100.0},
                                       {"Res_PreClose", 98.0},
                                       {"Res_LowPrice", 95.0},
                                       {"Res_HighPrice", 110.0},
                                       {"Res_Price_UpLimit", 120.0},
                                       {"Res_Price_DownLimit", 80.0},
                                       {"Res_OpenPrc", 97.0}}) {
    for (const char* style : {"D", "N", "S"}) {
      SetStyle(style);
      const TSentOrder order = ClickCaption(caption);
      EXPECT_EQ(order.price, price) << caption;
      EXPECT_FALSE(order.quantity.has_value()) << caption;
    }
    SetStyle("L");
    EXPECT_EQ(ClickCaption(caption).quantity, 500) << caption;
  }
}

TEST_F(TCopyHeaderTest, OtherHeaderFieldsCopyTheSymbolAlone) {
  SetStyle("L");
  for (const char* caption :
       {"Res_Volume", "Res_TurnOver", "Res_LotSize", "Res_Currency", "Res_PRCChange",
        "Res_ChangePercent", "Res_AccruedInt", "Res_High_52wks", "Res_Low_52wks"}) {
    const TSentOrder order = ClickCaption(caption);
    EXPECT_EQ(order.symbol, "700") << caption;
    EXPECT_FALSE(order.price.has_value()) << caption;
    EXPECT_FALSE(order.quantity.has_value()) << caption;
    EXPECT_TRUE(order.values.empty()) << caption;
  }
}

TEST_F(TCopyPriceTest, AnEmptyHeaderRowCopiesNothing) {
  EXPECT_FALSE(Sends(0, Column::HeaderValue));
  for (const int row : {-1, 11, 12, 100})
    EXPECT_FALSE(Sends(row, Column::HeaderValue)) << row;
}

// Quantity buttons

TEST_F(TCopyPriceTest, AQuantityIsCopiedWithTheSymbolAlone) {
  control.GroupID = "G2";
  Click(6, Column::BidSize);
  host.channels.sentOrders.clear();
  control.CopyQty(3000);
  ASSERT_EQ(host.channels.sentOrders.size(), 1u);
  const TSentOrder& order = host.channels.sentOrders.front();
  EXPECT_EQ(order.symbol, "700");
  EXPECT_EQ(order.quantity, 3000);
  EXPECT_FALSE(order.price.has_value());
  EXPECT_TRUE(order.values.empty());
  EXPECT_EQ(order.kind, 502);
  EXPECT_EQ(order.source, "G2");
  EXPECT_EQ(order.sender, &control);
}

} // namespace Quorpricedatacontrol
