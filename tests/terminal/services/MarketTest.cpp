#include "terminal/services/MarketAdapter.h"

#include "host/ConstDef.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using Terminal::TMarketAdapter;
using Terminal::TSpreadTable;
using Terminal::TSymbolDirectory;

class TOwner : public System::TObject {};

class TEquities : public TSpreadTable {
public:
  TEquities() {
    Define(Constdef::SpreadState_Ready, {{0.01, 0.25, 0.001},
                                         {0.25, 0.5, 0.005},
                                         {0.5, 10, 0.01},
                                         {10, 20, 0.02},
                                         {20, 100, 0.05},
                                         {100, 200, 0.1},
                                         {200, 500, 0.2},
                                         {500, 1000, 0.5},
                                         {1000, 2000, 1},
                                         {2000, 5000, 2},
                                         {5000, 9995, 5}});
  }
};

struct TStepCase {
  double Price;
  double Step;
};

TEST(SpreadTable, APriceOnABoundaryBelongsToTheLowerBand) {
  const TEquities table;
  for (const auto& [price, step] : {TStepCase{0.25, 0.001},
                                    {0.251, 0.005},
                                    {0.5, 0.005},
                                    {0.505, 0.01},
                                    {10, 0.01},
                                    {10.02, 0.02},
                                    {20, 0.02},
                                    {20.05, 0.05},
                                    {100, 0.05},
                                    {200, 0.1},
                                    {500, 0.2},
                                    {1000, 0.5},
                                    {5000, 2},
                                    {5005, 5},
                                    {9995, 5},
                                    {0.011, 0.001}})
    EXPECT_EQ(table.PriceStep(price), step) << price;
}

TEST(SpreadTable, HasNoStepOutsideItsBands) {
  const TEquities table;
  for (const double price : {0.01, 0.0, -1.0, 9995.01, 1e300, std::nan("")})
    EXPECT_EQ(table.PriceStep(price), 0) << price;
  EXPECT_EQ(table.Decimals(0.01), std::nullopt);
}

TEST(SpreadTable, KnowsTheDecimalsOfItsSteps) {
  const TEquities table;
  EXPECT_EQ(table.Decimals(0.2), 3);
  EXPECT_EQ(table.Decimals(5), 2);
  EXPECT_EQ(table.Decimals(150), 1);
  EXPECT_EQ(table.Decimals(1500), 0);
}

struct TWalkCase {
  double From;
  int Steps;
  double To;
};

TEST(SpreadTable, AWalkTakesEachStepFromTheBandItIsIn) {
  const TEquities table;
  for (const auto& [from, steps, to] : {TWalkCase{0.25, 1, 0.255},
                                        {0.25, -1, 0.249},
                                        {0.249, 2, 0.255},
                                        {0.255, -2, 0.249},
                                        {9.99, 3, 10.04},
                                        {10.04, -3, 9.99},
                                        {99.95, 2, 100.1},
                                        {318.2, -3, 317.6},
                                        {199.9, 4, 200.6},
                                        {200.6, -4, 199.9},
                                        {0.248, 54, 0.52},
                                        {0.52, -54, 0.248},
                                        {318.2, 0, 318.2},
                                        {4998, 2, 5005},
                                        {0.2495, 2, 0.2555},
                                        {10.005, -2, 9.975}})
    EXPECT_EQ(table.PriceStepsAway(from, steps), to) << from << " by " << steps;
}

TEST(SpreadTable, AWalkEndsOnTheDecimalPriceItself) {
  TSpreadTable table;
  table.Define(1, {{0, 1000, 0.01}});
  EXPECT_EQ(table.PriceStepsAway(585.33, 3), 585.36);
  EXPECT_EQ(table.PriceStepsAway(585.36, -3), 585.33);
  EXPECT_EQ(table.PriceStepsAway(0.07, 700), 7.07);
}

TEST(SpreadTable, AWalkOutOfTheBandsLeadsToNoPrice) {
  const TEquities table;
  EXPECT_EQ(table.PriceStepsAway(9990, 1), 9995);
  EXPECT_EQ(table.PriceStepsAway(9990, 2), 0);
  EXPECT_EQ(table.PriceStepsAway(0.012, -2), 0.01);
  EXPECT_EQ(table.PriceStepsAway(0.012, -3), 0);
  EXPECT_EQ(table.PriceStepsAway(12000, 3), 0);
  EXPECT_EQ(table.PriceStepsAway(0.25, std::numeric_limits<int>::min()), 0);
  EXPECT_EQ(TSpreadTable().PriceStepsAway(5, 3), 0);
  TSpreadTable fromZero;
  fromZero.Define(1, {{0, 0.25, 0.001}});
  EXPECT_EQ(fromZero.PriceStepsAway(0.002, -1), 0.001);
  EXPECT_EQ(fromZero.PriceStepsAway(0.002, -2), 0);
}

TEST(SpreadTable, AWalkThereAndBackReturnsToItsStart) {
  const TEquities table;
  std::mt19937 random(20250804);
  std::uniform_int_distribution<int> fromStart(200, 6000), walk(-150, 150);
  for (int i = 0; i < 1000; ++i) {
    const double start = table.PriceStepsAway(0.02, fromStart(random));
    const int steps = walk(random);
    const double there = table.PriceStepsAway(start, steps);
    EXPECT_EQ(table.PriceStepsAway(there, -steps), start) << start << " by " << steps;
    EXPECT_EQ(std::round(there * 1000) / 1000, there) << "no more than three decimals";
  }
}

TEST(SpreadTable, AWalkOfManyStepsIsManyWalksOfOne) {
  const TEquities table;
  double price = 0.011;
  for (int steps = 1; steps <= 3000; ++steps) {
    price = table.PriceStepsAway(price, 1);
    ASSERT_EQ(table.PriceStepsAway(0.011, steps), price) << steps;
  }
}

TEST(SpreadTable, IgnoresBandsThatHoldNothingAndTakesThemInAnyOrder) {
  TSpreadTable table;
  table.Define(1, {{10, 20, 0.02}, {0, 10, 0.01}, {20, 30, 0}, {40, 30, 1}});
  EXPECT_EQ(table.PriceStep(5), 0.01);
  EXPECT_EQ(table.PriceStep(15), 0.02);
  EXPECT_EQ(table.PriceStep(25), 0);
  EXPECT_EQ(table.PriceStep(35), 0);
}

TEST(Market, AnnouncesTheCodesOfTheTablesThatChanged) {
  TSymbolDirectory symbols;
  TMarketAdapter market(symbols);
  TOwner owner;
  int told = 0;
  market.RegisterSpreadListener(
      [&](System::TObject* sender, System::TObject* data) {
        ++told;
        EXPECT_EQ(sender, &market);
        const auto* changed = dynamic_cast<Basemarketadapter::TChangedKeys*>(data);
        ASSERT_NE(changed, nullptr);
        EXPECT_TRUE(changed->Contains("01"));
        EXPECT_TRUE(changed->Contains("05"));
        EXPECT_FALSE(changed->Contains("03"));
        EXPECT_EQ(market.GetSpreadTable("01")->PriceStep(5), 0.01);
      },
      &owner);
  market.DefineSpreadTables({{"01", 1, {{0, 10, 0.01}}}, {"05", 0, {}}});
  EXPECT_EQ(told, 1);
  EXPECT_EQ(market.GetSpreadTable("05")->State(), 0);
  EXPECT_EQ(market.GetSpreadTable("03"), nullptr);
  market.UnregisterSpreadListener(&owner);
  market.DefineSpreadTables({{"03", 1, {}}});
  EXPECT_EQ(told, 1);
}

TEST(Market, ARedefinedTableKeepsItsPlaceAndItsNewBands) {
  TSymbolDirectory symbols;
  TMarketAdapter market(symbols);
  market.DefineSpreadTables({{"01", 0, {{0, 10, 0.01}}}});
  const auto* table = market.GetSpreadTable("01");
  market.DefineSpreadTables({{"01", 1, {{0, 10, 0.05}}}});
  EXPECT_EQ(market.GetSpreadTable("01"), table);
  EXPECT_EQ(table->State(), 1);
  EXPECT_EQ(table->PriceStep(5), 0.05);
}

TEST(Market, ReplacesTheBrokerDirectoryAndAnnouncesIt) {
  TSymbolDirectory symbols;
  TMarketAdapter market(symbols);
  TOwner owner;
  int told = 0;
  market.RegisterBrokerListener(
      [&](System::TObject*, System::TObject* data) {
        ++told;
        EXPECT_EQ(data, nullptr);
      },
      &owner);
  market.ReplaceBrokers(
      {{"1234", "Harbour", "海港", "海港简", "HB"}, {"5678", "", "", "", "Peak"}});
  const auto* broker = market.GetBroker("1234");
  ASSERT_NE(broker, nullptr);
  EXPECT_EQ(broker->Name(), "Harbour");
  EXPECT_EQ(broker->Name1(), "海港");
  EXPECT_EQ(broker->Name2(), "海港简");
  EXPECT_EQ(broker->OtherName(), "HB");
  EXPECT_EQ(market.GetBroker("5678")->Name(), "");
  EXPECT_EQ(market.GetBroker("5678")->OtherName(), "Peak");
  market.ReplaceBrokers({{"5678", "Summit", "", "", ""}});
  EXPECT_EQ(market.GetBroker("1234"), nullptr);
  EXPECT_EQ(market.GetBroker("5678")->Name(), "Summit");
  EXPECT_EQ(told, 2);
  market.UnregisterBrokerListener(&owner);
  market.ReplaceBrokers({});
  EXPECT_EQ(told, 2);
}

TEST(Market, AnInstrumentHasACurrencyAndIsListed) {
  TSymbolDirectory symbols;
  TMarketAdapter market(symbols);
  market.DefineInstrument("80700", "CNY", "HARBOUR TECH-R");
  ASSERT_NE(market.GetInstrument("80700"), nullptr);
  EXPECT_EQ(market.GetInstrument("80700")->Currency(), "CNY");
  EXPECT_EQ(market.GetInstrument("700"), nullptr);
  EXPECT_EQ(symbols.Resolve("harbour tech-r"), "80700");
  market.DefineInstrument("80700", "HKD", "");
  EXPECT_EQ(market.GetInstrument("80700")->Currency(), "HKD");
  EXPECT_EQ(symbols.Resolve("harbour tech-r"), "80700");
  market.DefineInstrument("", "HKD", "NOTHING");
  EXPECT_EQ(symbols.Entries().size(), 1U);
}

} // namespace
