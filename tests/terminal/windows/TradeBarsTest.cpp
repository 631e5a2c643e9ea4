#include "terminal/windows/TradeBars.h"

#include <gtest/gtest.h>

namespace Terminal {
namespace {

class TTradeBarsTest : public testing::Test {
protected:
  void Trade(const char* time, const char* quantity, double price) {
    Trades.AddTrade("700", {time, "B", quantity, price});
  }

  TTradeSideDetector Trades;
  TTradeBars Bars{Trades};
};

TEST_F(TTradeBarsTest, GatherTheTradesOfAMinute) {
  Trade("09:30:01", "100", 10);
  Trade("09:30:20", "1,200", 12);
  Trade("09:30:30", "300", 9);
  Trade("09:30:59", "400", 11);
  Trade("09:32:00", "500", 13);
  EXPECT_EQ(Bars.Of("700"),
            (std::vector<TTradeBar>{{570, 10, 12, 9, 11, 2000}, {572, 13, 13, 13, 13, 500}}));
  EXPECT_TRUE(Bars.Of("5").empty());
}

TEST_F(TTradeBarsTest, PutALateTradeInItsOwnMinute) {
  Trade("09:30:01", "100", 10);
  Trade("09:32:00", "500", 13);
  Trade("09:31:00", "200", 11);
  ASSERT_EQ(Bars.Of("700").size(), 3u);
  EXPECT_EQ(Bars.Of("700")[1], (TTradeBar{571, 11, 11, 11, 11, 200}));
}

TEST_F(TTradeBarsTest, CountNothingThatIsNoTrade) {
  Trade("", "100", 10);
  Trade("soon", "100", 10);
  Trade("09:30:01", "many", 10);
  Trade("09:30:01", "100", 0);
  EXPECT_TRUE(Bars.Of("700").empty());
}

TEST_F(TTradeBarsTest, BeginAnewWhenTheTradesAreReplaced) {
  Trade("15:00:00", "100", 10);
  Trades.ReplaceTrades("700", {{"09:31:00", "", "300", 12}, {"09:30:00", "", "200", 11}});
  EXPECT_EQ(Bars.Of("700"),
            (std::vector<TTradeBar>{{570, 11, 11, 11, 11, 200}, {571, 12, 12, 12, 12, 300}}));
  Trades.ReplaceTrades("700", {});
  EXPECT_TRUE(Bars.Of("700").empty());
}

TEST_F(TTradeBarsTest, HoldABarAMinuteHoweverMuchIsTraded) {
  for (int i = 0; i < 10000; ++i)
    Trade(i % 2 ? "09:30:00" : "09:31:00", "1", 10);
  ASSERT_EQ(Bars.Of("700").size(), 2u);
  EXPECT_EQ(Bars.Of("700")[0].Volume, 5000);
}

TEST_F(TTradeBarsTest, TellWhichSymbolWasTraded) {
  std::vector<std::string> told;
  QObject::connect(&Bars, &TTradeBars::Changed,
                   [&](const std::string& symbol) { told.push_back(symbol); });
  Trade("09:30:01", "100", 10);
  Trades.AddTrade("5", {"09:30:01", "", "100", 10});
  EXPECT_EQ(told, (std::vector<std::string>{"700", "5"}));
}

} // namespace
} // namespace Terminal
