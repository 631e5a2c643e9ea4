#include "model/RecentTrades.h"

#include "fakes/HostFakes.h"

#include <gtest/gtest.h>

#include <limits>

// A symbol's recent trades as the header rows show them.

namespace Quorpricedatacontrol {

class TRecentTradesTest : public testing::Test {
protected:
  TRecentTradesTest() {
    host.trades.SetTrades("700", {{" 09:30:01 ", "B", "100", 318.2},
                                  {"09:30:02", "", "200", 318.4},
                                  {"09:30:03P", "S", "300", 318.6},
                                  {"  ", "B", "400", 318.8},
                                  {"09:30:05", "+", "500", 319},
                                  {"09:30:06", "-", "600", 320}});
  }

  Fakes::THostFakes host;
};

TEST_F(TRecentTradesTest, ATradeHasItsTimeQuantityAndPrice) {
  const TTradeInfo trade = TradeInfoAt("700", 1);
  EXPECT_TRUE(trade.Found);
  EXPECT_EQ(trade.Time, "09:30:01B");
  EXPECT_EQ(trade.Quantity, "100");
  EXPECT_EQ(trade.Price, "700@318.2");
  EXPECT_EQ(TradeInfoAt("700", 5).Price, "700@319");
}

TEST_F(TRecentTradesTest, ATradeWithoutSideMarkGetsABlank) {
  EXPECT_EQ(TradeInfoAt("700", 2).Time, "09:30:02 ");
}

TEST_F(TRecentTradesTest, ATimeThatDoesNotEndInADigitGetsNoSideMark) {
  EXPECT_EQ(TradeInfoAt("700", 3).Time, "09:30:03P");
  EXPECT_EQ(TradeInfoAt("700", 3).Quantity, "300");
}

TEST_F(TRecentTradesTest, ATradeWithoutTimeIsNone) {
  const TTradeInfo trade = TradeInfoAt("700", 4);
  EXPECT_FALSE(trade.Found);
  EXPECT_EQ(trade.Time + trade.Quantity + trade.Price, "");
}

TEST_F(TRecentTradesTest, OnlyRowsOneToFiveHoldTrades) {
  for (const int row : {std::numeric_limits<int>::min(), -1, 0, 6, 7}) {
    const TTradeInfo trade = TradeInfoAt("700", row);
    EXPECT_FALSE(trade.Found) << row;
    EXPECT_EQ(trade.Time + trade.Quantity + trade.Price, "") << row;
  }
}

TEST_F(TRecentTradesTest, ASymbolHasNoMoreTradesThanItsOwn) {
  for (const char* symbol : {"5", ""})
    EXPECT_FALSE(TradeInfoAt(symbol, 1).Found) << symbol;
  host.trades.SetTrades("5", {{"10:00:00", "B", "100", 60}});
  EXPECT_TRUE(TradeInfoAt("5", 1).Found);
  EXPECT_FALSE(TradeInfoAt("5", 2).Found);
}

} // namespace Quorpricedatacontrol
