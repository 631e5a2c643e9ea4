#include "model/DepthLadder.h"

#include "host/ConstDef.h"
#include "model/RecordFixture.h"

#include <limits>

// The levels of the book: their fields, their rows and columns, and how they read.

namespace Quorpricedatacontrol {

constexpr int Least = std::numeric_limits<int>::min(), Most = std::numeric_limits<int>::max();

// Rows

TEST(TDepthRowsTest, ALayoutsBookBeginsBelowItsHeader) {
  for (const auto& [mode, best, levels] :
       {std::tuple{qm5Full, 6, 5}, {qm10Simple, 1, 10}, {qm10Full, 6, 10}}) {
    EXPECT_EQ(DepthRowsOf(mode).BestPrice, best) << mode;
    EXPECT_EQ(DepthRowsOf(mode).PriceStep, best + 1) << mode;
    EXPECT_EQ(DepthRowsOf(mode).FirstLevel, best + 2) << mode;
    EXPECT_EQ(DepthRowsOf(mode).Levels, levels) << mode;
  }
  EXPECT_EQ(DepthRowsOf(qm5Full).Count(), 13);
  EXPECT_EQ(DepthRowsOf(qm10Simple).Count(), 13);
  EXPECT_EQ(DepthRowsOf(qm10Full).Count(), 18);
}

TEST(TDepthRowsTest, ALayoutHasRowsForItsBookAndForItsHeader) {
  for (const TQuorMode mode : {qm5Full, qm10Simple}) {
    EXPECT_EQ(RowCountOf(mode, 0, 16), 13) << mode;
    EXPECT_EQ(RowCountOf(mode, 13, 16), 13) << mode;
    EXPECT_EQ(RowCountOf(mode, 14, 16), 14) << mode;
    EXPECT_EQ(RowCountOf(mode, 16, 16), 16) << mode;
    EXPECT_EQ(RowCountOf(mode, 19, 19), 19) << mode;
  }
}

TEST(TDepthRowsTest, TenLevelsUnderAHeaderHaveRowsForTheLargestHeader) {
  for (const int headerRows : {0, 11, 16, 18}) {
    EXPECT_EQ(RowCountOf(qm10Full, headerRows, 16), 18) << headerRows;
    EXPECT_EQ(RowCountOf(qm10Full, headerRows, 18), 18) << headerRows;
    EXPECT_EQ(RowCountOf(qm10Full, headerRows, 19), 19) << headerRows;
  }
}

TEST(TDepthRowsTest, ARowIsTheBestPriceThePriceStepOrALevel) {
  for (const auto& [mode, best] : {std::pair{qm5Full, 6}, {qm10Simple, 1}, {qm10Full, 6}}) {
    EXPECT_EQ(DepthRowAt(mode, best), (TDepthRow{TDepthRow::BestPrice}));
    EXPECT_EQ(DepthRowAt(mode, best + 1), (TDepthRow{TDepthRow::PriceStep}));
    EXPECT_EQ(DepthRowAt(mode, best + 2), (TDepthRow{TDepthRow::Level, 0}));
    EXPECT_EQ(DepthRowAt(mode, best + 11), (TDepthRow{TDepthRow::Level, 9}));
    for (const int row : {Least, -1, 0, best - 1, best + 12, Most})
      EXPECT_EQ(DepthRowAt(mode, row), TDepthRow()) << row;
  }
}

TEST(TDepthRowsTest, TheFiveLevelLayoutShowsFiveLevels) {
  EXPECT_EQ(ShownDepthRowAt(qm5Full, 6), (TDepthRow{TDepthRow::BestPrice}));
  EXPECT_EQ(ShownDepthRowAt(qm5Full, 7), (TDepthRow{TDepthRow::PriceStep}));
  EXPECT_EQ(ShownDepthRowAt(qm5Full, 12), (TDepthRow{TDepthRow::Level, 4}));
  EXPECT_EQ(ShownDepthRowAt(qm5Full, 13), TDepthRow());
  EXPECT_EQ(ShownDepthRowAt(qm10Full, 17), (TDepthRow{TDepthRow::Level, 9}));
  EXPECT_EQ(ShownDepthRowAt(qm10Simple, 12), (TDepthRow{TDepthRow::Level, 9}));
}

TEST(TDepthColumnTest, PriceAndSizeColumnsHaveASideAndAFigure) {
  EXPECT_EQ(DepthColumnOf(Column::BidPrice), (TDepthColumn{Side::Bid, TDepthColumn::Price}));
  EXPECT_EQ(DepthColumnOf(Column::BidSize), (TDepthColumn{Side::Bid, TDepthColumn::Size}));
  EXPECT_EQ(DepthColumnOf(Column::AskPrice), (TDepthColumn{Side::Ask, TDepthColumn::Price}));
  EXPECT_EQ(DepthColumnOf(Column::AskSize), (TDepthColumn{Side::Ask, TDepthColumn::Size}));
  for (const int column : {Least, -1, 0, 3, 15, 17, 18, 20, 21, 55, 65, 10000, Most})
    EXPECT_EQ(DepthColumnOf(column), std::nullopt) << column;
}

class TDepthLadderTest : public TRecordTest {
protected:
  TMarketDataType Detected() { return DetectMarketDataType(Record()); }
  std::string Step(int side) { return BestPriceStepText(&Record(), side); }
};

TEST_F(TDepthLadderTest, LabelsNameTheSideAndTheRow) {
  EXPECT_EQ(SizeLabel(TDepthRow::BestPrice, Side::Bid), "Res_Bid");
  EXPECT_EQ(SizeLabel(TDepthRow::BestPrice, Side::Ask), "Res_Ask");
  EXPECT_EQ(SizeLabel(TDepthRow::PriceStep, Side::Bid), "Res_BidSize");
  EXPECT_EQ(SizeLabel(TDepthRow::PriceStep, Side::Ask), "Res_AskSize");
}

// Fields

TEST(TLevelPositionTest, APriceFieldIsOfOneLevelOfOneSide) {
  for (const int side : {Side::Bid, Side::Ask})
    for (int level = 0; level < Field::DepthLevels; ++level) {
      const auto position =
          LevelOfPriceField(FieldsOf(side)->Price[static_cast<std::size_t>(level)]);
      ASSERT_TRUE(position.has_value()) << level;
      EXPECT_EQ(position->Side, side);
      EXPECT_EQ(position->Level, level);
    }
  for (const int field : {Field::None, 0, Field::BestBidSize, Field::Bid.Size[1],
                          Field::Ask.Count[0], Field::Nominal, UnknownField})
    EXPECT_FALSE(LevelOfPriceField(field).has_value()) << field;
}

TEST(TLevelPositionTest, OnlySidesHaveFields) {
  EXPECT_EQ(FieldsOf(Side::Bid), &Field::Bid);
  EXPECT_EQ(FieldsOf(Side::Ask), &Field::Ask);
  for (const int side : {Least, -1, 2, Most})
    EXPECT_EQ(FieldsOf(side), nullptr) << side;
}

class TLevelFieldsTest : public TRecordTest, public testing::WithParamInterface<int> {};

TEST_P(TLevelFieldsTest, ALevelReadsItsOwnFieldsAlone) {
  const int level = GetParam();
  const auto at = static_cast<std::size_t>(level);
  Record().Set({{Field::Bid.Price[at], "10"},
                {Field::Ask.Price[at], "20"},
                {Field::Bid.Size[at], "30"},
                {Field::Ask.Size[at], "40"},
                {Field::Bid.Count[at], "5"},
                {Field::Ask.Count[at], "6"}});
  EXPECT_EQ(LevelPriceText(&Record(), mdtPriced, level, Side::Bid), "10.000");
  EXPECT_EQ(LevelPriceText(&Record(), mdtPriced, level, Side::Ask), "20.000");
  EXPECT_EQ(LevelSizeText(&Record(), level, Side::Bid), "30");
  EXPECT_EQ(LevelSizeText(&Record(), level, Side::Ask), "40");
  EXPECT_EQ(LevelPriceText(&Record(), mdtOrderCount, level, Side::Bid), "(5)");
  EXPECT_EQ(LevelPriceText(&Record(), mdtOrderCount, level, Side::Ask), "(6)");
  EXPECT_EQ(LevelPriceText(&Record(), mdtUnknown, level, Side::Bid), "");
}

INSTANTIATE_TEST_SUITE_P(Levels, TLevelFieldsTest, testing::Range(0, Field::DepthLevels));

TEST_F(TDepthLadderTest, WhatDoesNotExistIsEmpty) {
  FillDepth(Record());
  for (const int level : {Least, -1, Field::DepthLevels, Most}) {
    EXPECT_EQ(LevelPriceText(&Record(), mdtPriced, level, Side::Bid), "") << level;
    EXPECT_EQ(LevelSizeText(&Record(), level, Side::Ask), "") << level;
  }
  for (const int side : {Least, -1, 2, Most}) {
    EXPECT_EQ(BestPriceText(&Record(), side), "") << side;
    EXPECT_EQ(Step(side), "") << side;
    EXPECT_EQ(LevelPriceText(&Record(), mdtPriced, 0, side), "") << side;
    EXPECT_EQ(LevelSizeText(&Record(), 0, side), "") << side;
  }
  EXPECT_EQ(BestPriceText(nullptr, Side::Bid), "");
  EXPECT_EQ(LevelPriceText(nullptr, mdtOrderCount, 0, Side::Bid), "");
  EXPECT_EQ(LevelSizeText(nullptr, 0, Side::Bid), "");
}

TEST_F(TDepthLadderTest, ARecordThatIsNotReadyIsEmpty) {
  FillDepth(Record().SetState(Constdef::RecordState_Invalid));
  EXPECT_EQ(BestPriceText(&Record(), Side::Bid), "");
  EXPECT_EQ(LevelPriceText(&Record(), mdtPriced, 1, Side::Bid), "");
  EXPECT_EQ(LevelPriceText(&Record(), mdtOrderCount, 1, Side::Bid), "");
  EXPECT_EQ(LevelSizeText(&Record(), 1, Side::Bid), "");
}

TEST_F(TDepthLadderTest, AnOrderCountShowsOnlyWhenItIsAPositiveInteger) {
  Record().Set({{Field::Bid.Size[1], "2000"},
                {Field::Bid.Count[0], "0"},
                {Field::Bid.Count[1], "-1"},
                {Field::Bid.Count[2], "many"},
                {Field::Bid.Count[3], ""}});
  for (int level = 0; level < Field::DepthLevels; ++level)
    EXPECT_EQ(LevelPriceText(&Record(), mdtOrderCount, level, Side::Bid), "") << level;
}

// How a feed publishes its levels

TEST_F(TDepthLadderTest, TheBestLevelDoesNotTellHowTheFeedPublishes) {
  Record().Set({{Field::BestBid, "99"}, {Field::BestBidSize, "1000"}});
  EXPECT_EQ(Detected(), mdtUnknown);
}

TEST_F(TDepthLadderTest, TheFirstPublishedLevelDecidesHowTheFeedPublishes) {
  Record().Set(
      {{Field::Bid.Size[2], "3000"}, {Field::Bid.Size[3], "4000"}, {Field::Bid.Price[3], "96"}});
  EXPECT_EQ(Detected(), mdtOrderCount);
}

TEST_F(TDepthLadderTest, AnAskLevelDecidesWhereNoBidLevelIsPublished) {
  Record().Set({{Field::BestBidSize, "1000"},
                {Field::Ask.Size[9], "10"},
                {Field::Ask.Price[9], "110"},
                {Field::Bid.Price[2], "97"}});
  EXPECT_EQ(Detected(), mdtPriced);
}

TEST_F(TDepthLadderTest, ABidLevelDecidesBeforeAnAskLevel) {
  Record().Set(
      {{Field::Bid.Size[9], "10"}, {Field::Ask.Size[1], "2100"}, {Field::Ask.Price[1], "102"}});
  EXPECT_EQ(Detected(), mdtOrderCount);
}

// Price steps

class TPriceStepTest : public TDepthLadderTest {
protected:
  TPriceStepTest() {
    host.market.SetSpreadTable("01", Constdef::SpreadState_Ready, {{0, 100, 0.5}, {100, 1000, 2}});
    Record().Set({{Field::SpreadCode, "01"}, {Field::BestBid, "99"}, {Field::BestAsk, "101"}});
  }
};

TEST_F(TPriceStepTest, APriceOnABandsEndHasThatBandsStep) {
  Record().Set({{Field::BestBid, "100"}, {Field::BestAsk, "100.5"}});
  EXPECT_EQ(Step(Side::Bid), "700@0.5");
  EXPECT_EQ(Step(Side::Ask), "700@2");
}

TEST_F(TPriceStepTest, ThereIsNoStepWithoutAReadySpreadTable) {
  EXPECT_NE(ReadySpreadTable(Record()), nullptr);
  Record().Set(Field::SpreadCode, "99");
  EXPECT_EQ(Step(Side::Bid), "");
  EXPECT_EQ(ReadySpreadTable(Record()), nullptr);
  Record().Remove(Field::SpreadCode);
  host.market.SetSpreadTable("", Constdef::SpreadState_Ready, {{0, 1000, 1}});
  EXPECT_EQ(Step(Side::Bid), "");
  Record().Set(Field::SpreadCode, "01");
  host.market.SetSpreadTable("01", 0, {{0, 1000, 1}});
  EXPECT_EQ(Step(Side::Bid), "");
  EXPECT_EQ(ReadySpreadTable(Record()), nullptr);
  host.market.SetSpreadTable("01", Constdef::SpreadState_Ready, {{0, 1000, 1}});
  EXPECT_EQ(Step(Side::Bid), "700@1");
}

TEST_F(TPriceStepTest, ThereIsNoStepWhereNoBandIs) {
  Record().Set({{Field::BestBid, "1000.5"}, {Field::BestAsk, "0"}});
  EXPECT_EQ(Step(Side::Bid), "");
  EXPECT_EQ(Step(Side::Ask), "");
}

TEST_F(TPriceStepTest, ThereIsNoStepWithoutABestPrice) {
  Record().Remove(Field::BestAsk);
  EXPECT_EQ(Step(Side::Ask), "");
  EXPECT_EQ(Step(Side::Bid), "700@0.5");
}

} // namespace Quorpricedatacontrol
