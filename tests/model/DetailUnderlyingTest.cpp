#include "fakes/HostFakes.h"
#include "host/ConstDef.h"
#include "model/QuorDetailDataControl.h"

#include <gtest/gtest.h>

// A warrant's figures follow the price of what it is written on.

namespace Quorpricedatacontrol {

class DetailUnderlyingTest : public testing::Test {
protected:
  /// A call on 700 at 20: price 2, underlying price 25, ten for one.
  DetailUnderlyingTest() {
    host.Record("13001").Set({{22, "4"}, {26, "700"}, {27, "20"}, {28, "C"}, {104, "0.1"}});
    host.Record("13001").Set(3, "2");
    Underlying().Set(3, "25");
    control.SetSymbol("13001");
  }

  Fakes::TFakeRecord& Underlying() { return host.Record("700"); }

  void ExpectFigures(const char* premium, const char* gearing) {
    EXPECT_EQ(control.GetCount(), 9);
    EXPECT_EQ(control.GetDisplayValue(7, DetailColumn::Label), "Res_Premium");
    EXPECT_EQ(control.GetDisplayValue(7, DetailColumn::Value), premium);
    EXPECT_EQ(control.GetDisplayValue(8, DetailColumn::Label), "Res_Gearing");
    EXPECT_EQ(control.GetDisplayValue(8, DetailColumn::Value), gearing);
  }

  Fakes::THostFakes host;
  TCustomQuorDetailDataControl control{nullptr};
};

TEST_F(DetailUnderlyingTest, AnUnreadyUnderlyingGivesNoFigures) {
  ExpectFigures("60.00", "1.25");
  for (const int state : {Constdef::RecordState_None, Constdef::RecordState_Invalid}) {
    Underlying().SetState(state);
    ExpectFigures("", "");
  }
  Underlying().SetState(Constdef::RecordState_Ready);
  ExpectFigures("60.00", "1.25");
}

TEST_F(DetailUnderlyingTest, AnUnderlyingThatArrivesLaterGivesThemThen) {
  Fakes::TFakeRecord& later = host.Record("5").SetState(Constdef::RecordState_None);
  host.Record("13002").Set({{22, "4"}, {26, "5"}, {27, "20"}, {28, "C"}, {104, "0.1"}, {3, "2"}});
  control.SetSymbol("13002");
  ExpectFigures("", "");
  later.Set(3, "25").SetState(Constdef::RecordState_Ready).Update();
  ExpectFigures("60.00", "1.25");
}

TEST_F(DetailUnderlyingTest, AnUnderlyingWhoseStatusSuppressesItsPriceGivesNoFigures) {
  for (const char* status : {"0", "-1"}) {
    Underlying().Set(5, status);
    ExpectFigures("", "");
  }
  for (const char* status : {"1", ""}) {
    Underlying().Set(5, status);
    ExpectFigures("60.00", "1.25");
  }
}

TEST_F(DetailUnderlyingTest, AnUnderlyingWithoutTradeCountsByTheMiddleOfItsBestPrices) {
  Underlying().Set({{3, "0"}, {1, "24"}, {2, "26"}, {31, "99"}});
  ExpectFigures("60.00", "1.25");
}

TEST(DetailProductType, MayHaveASign) {
  Fakes::THostFakes host;
  TCustomQuorDetailDataControl control(nullptr);
  host.Record("700").Set({{22, "+1"}, {49, "15.5"}});
  control.SetSymbol("700");
  EXPECT_EQ(control.DisplayFields(), (std::vector<int>{18, 506, 49, 102}));
}

} // namespace Quorpricedatacontrol
