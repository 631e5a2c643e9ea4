#include "host/ConstDef.h"
#include "model/InstrumentFixture.h"
#include "model/QuorDetailDataControl.h"

// A warrant's figures follow the price of what it is written on.

namespace Quorpricedatacontrol {

class TDetailUnderlyingTest : public TInstrumentTest {
protected:
  TDetailUnderlyingTest() {
    FillWarrant();
    control.SetSymbol("13001");
  }

  void ExpectFigures(const char* premium, const char* gearing) {
    EXPECT_EQ(control.GetCount(), 9);
    EXPECT_EQ(control.GetDisplayValue(7, DetailColumn::Label), "Res_Premium");
    EXPECT_EQ(control.GetDisplayValue(7, DetailColumn::Value), premium);
    EXPECT_EQ(control.GetDisplayValue(8, DetailColumn::Label), "Res_Gearing");
    EXPECT_EQ(control.GetDisplayValue(8, DetailColumn::Value), gearing);
  }

  TCustomQuorDetailDataControl control{nullptr};
};

TEST_F(TDetailUnderlyingTest, AnUnreadyUnderlyingGivesNoFigures) {
  ExpectFigures("60.00", "1.25");
  for (const int state : {Constdef::RecordState_None, Constdef::RecordState_Invalid}) {
    Underlying().SetState(state);
    ExpectFigures("", "");
  }
  Underlying().SetState(Constdef::RecordState_Ready);
  ExpectFigures("60.00", "1.25");
}

TEST_F(TDetailUnderlyingTest, AnUnderlyingThatArrivesLaterGivesThemThen) {
  Fakes::TFakeRecord& later = host.Record("5").SetState(Constdef::RecordState_None);
  host.Record("13002").Set({{Field::ProductType, "4"},
                            {Field::Underlying, "5"},
                            {Field::StrikePrice, "20"},
                            {Field::CallPut, "C"},
                            {Field::ConversionRatio, "0.1"},
                            {Field::Nominal, "2"}});
  control.SetSymbol("13002");
  ExpectFigures("", "");
  later.Set(Field::Nominal, "25").SetState(Constdef::RecordState_Ready).Update();
  ExpectFigures("60.00", "1.25");
}

TEST_F(TDetailUnderlyingTest, AnUnderlyingWhoseStatusSuppressesItsPriceGivesNoFigures) {
  for (const char* status : {"0", "-1"}) {
    Underlying().Set(Field::Status, status);
    ExpectFigures("", "");
  }
  for (const char* status : {"1", ""}) {
    Underlying().Set(Field::Status, status);
    ExpectFigures("60.00", "1.25");
  }
}

TEST_F(TDetailUnderlyingTest, AnUnderlyingWithoutTradeCountsByTheMiddleOfItsBestPrices) {
  Underlying().Set({{Field::Nominal, "0"},
                    {Field::BestBid, "24"},
                    {Field::BestAsk, "26"},
                    {Field::PreviousClose, "99"}});
  ExpectFigures("60.00", "1.25");
}

TEST(TDetailProductTypeTest, MayHaveASign) {
  Fakes::THostFakes host;
  TCustomQuorDetailDataControl control(nullptr);
  host.Record("700").Set({{Field::ProductType, "+1"}, {Field::PriceEarnings, "15.5"}});
  control.SetSymbol("700");
  EXPECT_EQ(control.DisplayFields(),
            (std::vector<int>{Field::IssueSize, Field::MarketCap, Field::PriceEarnings,
                              Field::DividendYield}));
}

} // namespace Quorpricedatacontrol
