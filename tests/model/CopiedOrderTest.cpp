#include "model/CopiedOrder.h"

#include "host/ConstDef.h"
#include "model/RecordFixture.h"

// What a copied order holds: the field that a cell copies, the quantity that goes with it, and how
// the order is filled and sent.

namespace Quorpricedatacontrol {

using Fakes::TSentOrder;

// Cells

TEST(TDepthCellFieldTest, ABestPriceRowCopiesTheBestPrices) {
  for (const auto& [mode, row] : {std::pair{qm5Full, 6}, {qm10Full, 6}, {qm10Simple, 1}}) {
    EXPECT_EQ(DepthCellField(mode, row, Column::BidPrice), Field::BestBid) << mode;
    EXPECT_EQ(DepthCellField(mode, row, Column::BidSize), Field::BestBid) << mode;
    EXPECT_EQ(DepthCellField(mode, row, Column::AskPrice), Field::BestAsk) << mode;
    EXPECT_EQ(DepthCellField(mode, row, Column::AskSize), Field::BestAsk) << mode;
  }
}

TEST(TDepthCellFieldTest, ALevelsRowCopiesTheLevelEvenWhereItDoesNotShow) {
  for (const auto& [mode, firstRow] : {std::pair{qm5Full, 8}, {qm10Full, 8}, {qm10Simple, 3}})
    for (int level = 0; level < Field::DepthLevels; ++level) {
      const auto at = static_cast<std::size_t>(level);
      EXPECT_EQ(DepthCellField(mode, firstRow + level, Column::BidSize), Field::Bid.Price[at]);
      EXPECT_EQ(DepthCellField(mode, firstRow + level, Column::AskPrice), Field::Ask.Price[at]);
    }
}

TEST(TDepthCellFieldTest, OtherCellsCopyNoPrice) {
  for (const int column : PriceAndSizeColumns) {
    for (const int row : {-1, 0, 5, 7, 18, 100})
      EXPECT_EQ(DepthCellField(qm10Full, row, column), Field::None) << row << ' ' << column;
    for (const int row : {-1, 0, 2, 13})
      EXPECT_EQ(DepthCellField(qm10Simple, row, column), Field::None) << row << ' ' << column;
  }
  for (const int column : {Column::HeaderValue, Column::HeaderCaption, Column::BidQueue1})
    EXPECT_EQ(DepthCellField(qm10Full, 6, column), Field::None) << column;
}

// Quantities

class TCopiedOrderTest : public TRecordTest {
protected:
  TCopiedOrderTest() {
    FillDepth(Record());
    Record().Set({{Field::SpreadCode, "01"}, {Field::BoardLot, "500"}, {Field::Nominal, "100"}});
    host.market.SetSpreadTable("01", Constdef::SpreadState_Ready, {{0, 100, 0.5}, {100, 1000, 2}});
    order.Start("700");
  }

  TCopySource Source(TCopyPriceQtyMode mode, TMarketDataType depthType = mdtPriced) {
    return {Record(), mode, depthType};
  }

  /// The order as it is sent.
  TSentOrder Sent() {
    order.Send(&Record(), "G1");
    return host.channels.sentOrders.back();
  }

  TCopiedOrder order;
};

struct TQuantityCase {
  TCopyPriceQtyMode mode;
  int field;
  double quantity;
};

class TCopyQuantityTest : public TCopiedOrderTest,
                          public testing::WithParamInterface<TQuantityCase> {};

TEST_P(TCopyQuantityTest, FollowsTheStyle) {
  EXPECT_EQ(CopyPriceQuantity(&Record(), GetParam().mode, GetParam().field), GetParam().quantity);
  EXPECT_EQ(CopyPriceQuantity(nullptr, GetParam().mode, GetParam().field), 0);
}

INSTANTIATE_TEST_SUITE_P(Styles, TCopyQuantityTest,
                         testing::Values(TQuantityCase{cpqmDefault, Field::BestBidSize, 1000},
                                         TQuantityCase{cpqmDefault, Field::BestAskSize, 1100},
                                         TQuantityCase{cpqmDefault, Field::BestBid, 0},
                                         TQuantityCase{cpqmDefault, Field::BestAsk, 0},
                                         TQuantityCase{cpqmDefault, Field::Bid.Size[1], 0},
                                         TQuantityCase{cpqmOneLot, Field::BestBidSize, 500},
                                         TQuantityCase{cpqmOneLot, Field::Nominal, 500},
                                         TQuantityCase{cpqmOneLot, Field::None, 500},
                                         TQuantityCase{cpqmNone, Field::BestBidSize, 0},
                                         TQuantityCase{cpqmNone, Field::BestBid, 0},
                                         TQuantityCase{cpqmSummary, Field::BestBid, 1000},
                                         TQuantityCase{cpqmSummary, Field::BestAsk, 1100},
                                         TQuantityCase{cpqmSummary, Field::Bid.Price[1], 3000},
                                         TQuantityCase{cpqmSummary, Field::Bid.Price[4], 15000},
                                         TQuantityCase{cpqmSummary, Field::Ask.Price[4], 15500},
                                         TQuantityCase{cpqmSummary, Field::Bid.Price[5], 21000},
                                         TQuantityCase{cpqmSummary, Field::Bid.Price[9], 55000},
                                         TQuantityCase{cpqmSummary, Field::Ask.Price[5], 21600},
                                         TQuantityCase{cpqmSummary, Field::Ask.Price[9], 56000},
                                         TQuantityCase{cpqmSummary, Field::Nominal, 0},
                                         TQuantityCase{cpqmSummary, Field::BestBidSize, 0},
                                         TQuantityCase{cpqmSummary, Field::Bid.Price[1] - 1, 0},
                                         TQuantityCase{cpqmSummary, Field::Bid.Price[4] + 1, 0},
                                         TQuantityCase{cpqmSummary, Field::Bid.Price[9] + 1, 0}));

TEST_F(TCopiedOrderTest, AMissingSizeCountsAsZero) {
  Record().Remove(Field::Bid.Size[1]).Set(Field::Bid.Size[2], "many");
  EXPECT_EQ(CopyPriceQuantity(&Record(), cpqmSummary, Field::Bid.Price[3]), 1000 + 4000);
}

// What the order holds

TEST_F(TCopiedOrderTest, StartsWithItsSymbolAlone) {
  order.FillFromField(Source(cpqmOneLot), Field::BestBid, Column::BidPrice);
  order.Start("5");
  const TSentOrder sent = Sent();
  EXPECT_EQ(sent.symbol, "5");
  EXPECT_FALSE(sent.price.has_value());
  EXPECT_FALSE(sent.quantity.has_value());
  EXPECT_TRUE(sent.values.empty());
}

TEST_F(TCopiedOrderTest, ABidIsFlaggedAndAnAskIsNot) {
  order.FillFromField(Source(cpqmDefault), Field::Bid.Price[3], Column::BidPrice);
  const TSentOrder bid = Sent();
  EXPECT_EQ(bid.price, 96);
  EXPECT_EQ(bid.quantity, 0);
  EXPECT_EQ(bid.values, (decltype(bid.values){{"OrderFlags", "1"}}));
  order.Start("700");
  order.FillFromField(Source(cpqmDefault), Field::Ask.Price[3], Column::AskPrice);
  const TSentOrder ask = Sent();
  EXPECT_EQ(ask.price, 104);
  EXPECT_TRUE(ask.values.empty());
}

TEST_F(TCopiedOrderTest, TheDefaultStyleTakesTheBestSizeFromItsOwnColumnAlone) {
  order.FillFromField(Source(cpqmDefault), Field::BestAsk, Column::AskSize);
  EXPECT_EQ(Sent().quantity, 1100);
  order.FillFromField(Source(cpqmDefault), Field::BestAsk, Column::AskPrice);
  EXPECT_EQ(Sent().quantity, 0);
  order.FillFromField(Source(cpqmDefault), Field::BestAsk, Column::BidSize); // another side's
  EXPECT_EQ(Sent().quantity, 0);
  order.FillFromField(Source(cpqmSummary), Field::BestAsk, Column::AskSize);
  EXPECT_EQ(Sent().quantity, 1100);
}

TEST_F(TCopiedOrderTest, APriceIsDerivedOnlyWhereTheFeedCountsOrders) {
  FillOrderCountDepth(Record());
  order.FillFromField(Source(cpqmDefault, mdtPriced), Field::Bid.Price[2], Column::BidPrice);
  EXPECT_FALSE(Sent().price.has_value());
  order.FillFromField(Source(cpqmDefault, mdtOrderCount), Field::Bid.Price[2], Column::BidPrice);
  EXPECT_EQ(Sent().price, 98);
  order.FillFromField(Source(cpqmDefault, mdtOrderCount), Field::Ask.Price[2], Column::AskPrice);
  EXPECT_EQ(Sent().price, 105);
}

TEST_F(TCopiedOrderTest, AHeaderPriceGoesWithoutQuantityButForOneLot) {
  order.FillFromField(Source(cpqmSummary), Field::Nominal, Column::HeaderValue);
  const TSentOrder price = Sent();
  EXPECT_EQ(price.price, 100);
  EXPECT_FALSE(price.quantity.has_value());
  EXPECT_TRUE(price.values.empty());
  order.FillFromField(Source(cpqmOneLot), Field::Nominal, Column::HeaderValue);
  EXPECT_EQ(Sent().quantity, 500);
}

TEST_F(TCopiedOrderTest, AFieldThatIsNoPriceFillsNothing) {
  for (const int field : {Field::BoardLot, Field::SpreadCode, Field::BestBidSize, UnknownField}) {
    order.FillFromField(Source(cpqmOneLot), field, Column::HeaderValue);
    EXPECT_FALSE(Sent().price.has_value()) << field;
    EXPECT_FALSE(Sent().quantity.has_value()) << field;
  }
}

TEST_F(TCopiedOrderTest, AnyFieldMayBeFilledInAsAHeadersPrice) {
  order.FillFromHeader(Source(cpqmDefault), Field::BoardLot);
  EXPECT_EQ(Sent().price, 500);
  EXPECT_FALSE(Sent().quantity.has_value());
  order.Start("700");
  order.FillFromHeader(Source(cpqmOneLot), UnknownField);
  EXPECT_FALSE(Sent().price.has_value());
  EXPECT_EQ(Sent().quantity, 500);
}

TEST_F(TCopiedOrderTest, GoesToOrderEntryFromItsSenderAndGroup) {
  order.SetQuantity(3000);
  const TSentOrder sent = Sent();
  EXPECT_EQ(host.channels.sentNumbers, std::vector<int>{18016});
  EXPECT_EQ(sent.symbol, "700");
  EXPECT_EQ(sent.quantity, 3000);
  EXPECT_EQ(sent.kind, 502);
  EXPECT_EQ(sent.source, "G1");
  EXPECT_EQ(sent.sender, &Record());
}

} // namespace Quorpricedatacontrol
