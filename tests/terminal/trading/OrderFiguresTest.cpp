#include "terminal/trading/OrderFigures.h"
#include "host/RecordFields.h"

#include "terminal/services/Services.h"

#include <gtest/gtest.h>

namespace Terminal {
namespace {

namespace Field = Host::Field;

class TOrderFiguresTest : public testing::Test {
protected:
  TOrderFiguresTest() {
    Services.Market.DefineSpreadTables(
        {{"01", 1, {{0, 0.25, 0.001}, {0.25, 0.5, 0.005}, {0.5, 10, 0.01}, {100, 200, 0.1}}}});
    Services.Market.DefineInstrument("700", "HKD", "TESTCO");
    Data::TRecordChange change;
    change.Symbol = "700";
    change.Fields = {
        {Field::SpreadCode, "01"}, {Field::BoardLot, "500"}, {Field::BestBid, "101.1"}};
    Services.Subscriptions.Apply(change);
  }

  TServices Services;
  TOrderFigures Figures{Services};
};

TEST_F(TOrderFiguresTest, ReadPricesOfThreeDecimalsAtMost) {
  EXPECT_EQ(TOrderFigures::ParsePrice("101.25"), 101250);
  EXPECT_EQ(TOrderFigures::ParsePrice(" 1,001.5 "), 1001500);
  EXPECT_EQ(TOrderFigures::ParsePrice("0.001"), 1);
  for (const char* text : {"", "0", "-1", "1.0005", "x", "1e15"})
    EXPECT_FALSE(TOrderFigures::ParsePrice(text)) << text;
}

TEST_F(TOrderFiguresTest, ReadWholeQuantities) {
  EXPECT_EQ(TOrderFigures::ParseQuantity("12,400"), 12400);
  for (const char* text : {"", "0", "-500", "1.5", "lots"})
    EXPECT_FALSE(TOrderFigures::ParseQuantity(text)) << text;
}

TEST_F(TOrderFiguresTest, StepPricesByTheSpreadTable) {
  EXPECT_EQ(Figures.StepPrice("700", 101200, 1), 101300);
  EXPECT_EQ(Figures.StepPrice("700", 101200, -2), 101000);
  EXPECT_EQ(Figures.StepPrice("700", 250, 1), 255) << "upwards from a boundary";
  EXPECT_EQ(Figures.StepPrice("700", 250, -1), 249) << "downwards from it";
}

TEST_F(TOrderFiguresTest, StepAPriceBesideTheTableOntoIt) {
  EXPECT_EQ(Figures.StepPrice("700", 101230, 1), 101300);
  EXPECT_EQ(Figures.StepPrice("700", 101230, -1), 101200);
}

TEST_F(TOrderFiguresTest, LeaveAPriceWhereNoTableLeadsOn) {
  EXPECT_EQ(Figures.StepPrice("5", 101230, 1), 101230);
  EXPECT_EQ(Figures.StepPrice("700", 50000, 1), 50000);
  EXPECT_EQ(Figures.StepPrice("700", 1, -1), 1) << "no price is zero";
}

TEST_F(TOrderFiguresTest, StepQuantitiesByBoardLots) {
  EXPECT_EQ(Figures.StepQuantity("700", 0, 1), 500);
  EXPECT_EQ(Figures.StepQuantity("700", 700, 1), 1000);
  EXPECT_EQ(Figures.StepQuantity("700", 700, -1), 500);
  EXPECT_EQ(Figures.StepQuantity("700", 500, -1), 500) << "one lot at least";
  EXPECT_EQ(Figures.StepQuantity("5", 7, 1), 8);
}

TEST_F(TOrderFiguresTest, GiveTheAmountInTheCurrencyOfTheInstrument) {
  EXPECT_EQ(Figures.AmountText("700", 101250, 2000), QStringLiteral("HKD 202,500.00"));
  EXPECT_EQ(Figures.AmountText("5", 1500, 3), QStringLiteral("4.50"));
}

TEST_F(TOrderFiguresTest, TakeTheBidWhereThereIsNoNominalPrice) {
  EXPECT_EQ(Figures.PresentPrice("700"), 101100);
  EXPECT_FALSE(Figures.PresentPrice("5"));
}

} // namespace
} // namespace Terminal
