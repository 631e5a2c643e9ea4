#include "market/UserAccount.h"

#include "market/Brokers.h"

#include <gtest/gtest.h>

namespace {

using namespace Market;
using namespace std::chrono_literals;

/// The user's account and one instrument, at 10:00.
class TUserAccountTest : public testing::Test, private TMarketListener {
protected:
  TUserAccountTest() { Instrument.AdvanceTo(10h); }

  static TInstrumentSettings Settings() {
    TInstrumentSettings settings;
    settings.Symbol = "5";
    settings.BoardLot = 500;
    settings.PreviousClose = 5'000;
    return settings;
  }

  void Submit(int number, TSide side, TPrice price, TQuantity quantity) {
    Account.Apply({TOrderAction::Submit, number, "5", side, price, quantity}, &Instrument,
                  ++LastId);
  }
  void Change(int number, TPrice price, TQuantity quantity) {
    Account.Apply({TOrderAction::Change, number, {}, {}, price, quantity}, &Instrument, 0);
  }
  void Cancel(int number) {
    Account.Apply({TOrderAction::Cancel, number, {}, {}, 0, 0}, &Instrument, 0);
  }
  void Other(TSide side, TPrice price, TQuantity quantity) {
    Instrument.Enter({++LastId, side, TOrderKind::Limit, price, quantity, 120});
  }

  /// The only report since the last call.
  template <class TReport> TReport Only() {
    const auto reports = Account.TakeReports();
    EXPECT_EQ(reports.size(), 1u);
    const auto* report = reports.empty() ? nullptr : std::get_if<TReport>(&reports.front());
    EXPECT_NE(report, nullptr);
    return report ? *report : TReport();
  }

  TTickGrid Grid{{{0, 250, 1}, {250, 500, 5}, {500, 10'000, 10}}};
  TTradingDay TradingDay{1};
  TUserAccount Account;
  TInstrumentMarket Instrument{Settings(), Grid, TradingDay, *this};
  TOrderId LastId = 0;

private:
  void Traded(const TInstrumentMarket&, const TMatch& trade) override { Account.Traded(trade); }
  void Lapsed(const TInstrumentMarket&, const TBookOrder& order) override {
    Account.Lapsed(order.Id);
  }
};

TEST_F(TUserAccountTest, OrderRestsUnderTheUsersOwnBroker) {
  Submit(1, TSide::Bid, 4'990, 1'000);
  const auto order = Only<TUserOrder>();
  EXPECT_EQ(order.Number, 1);
  EXPECT_EQ(order.Symbol, "5");
  EXPECT_EQ(order.Status, TOrderStatus::Working);
  EXPECT_EQ(order.Entered, 10h);
  ASSERT_NE(Instrument.Book().Front(TSide::Bid), nullptr);
  EXPECT_EQ(Instrument.Book().Front(TSide::Bid)->Broker, UserBroker);
  EXPECT_EQ(Instrument.Book().Front(TSide::Bid)->Quantity, 1'000);
}

TEST_F(TUserAccountTest, RestingOrderIsFilledByOthersStepByStep) {
  Submit(1, TSide::Bid, 4'990, 1'500);
  Account.TakeReports();
  Other(TSide::Ask, 4'990, 500);
  auto reports = Account.TakeReports();
  ASSERT_EQ(reports.size(), 2u);
  EXPECT_EQ(std::get<TUserOrder>(reports[0]).Status, TOrderStatus::PartlyFilled);
  EXPECT_EQ(std::get<TUserOrder>(reports[0]).Open(), 1'000);
  EXPECT_EQ(std::get<TUserTrade>(reports[1]).Quantity, 500);
  EXPECT_EQ(std::get<TUserTrade>(reports[1]).Price, 4'990);
  EXPECT_EQ(std::get<TUserTrade>(reports[1]).Time, 10h);
  Other(TSide::Ask, 4'980, 1'000);
  reports = Account.TakeReports();
  ASSERT_EQ(reports.size(), 2u);
  EXPECT_EQ(std::get<TUserOrder>(reports[0]).Status, TOrderStatus::Filled);
}

TEST_F(TUserAccountTest, OrderThatTradesAtOnceTellsItselfFirstAndItsAveragePrice) {
  Other(TSide::Ask, 5'000, 500);
  Other(TSide::Ask, 5'020, 500);
  Submit(7, TSide::Bid, 5'020, 1'500);
  const auto reports = Account.TakeReports();
  ASSERT_EQ(reports.size(), 3u);
  const auto& order = std::get<TUserOrder>(reports[0]);
  EXPECT_EQ(order.Status, TOrderStatus::PartlyFilled);
  EXPECT_EQ(order.Filled, 1'000);
  EXPECT_DOUBLE_EQ(order.AveragePrice, 5.01);
  EXPECT_EQ(std::get<TUserTrade>(reports[1]).Price, 5'000);
  EXPECT_EQ(std::get<TUserTrade>(reports[2]).Price, 5'020);
  EXPECT_EQ(std::get<TUserTrade>(reports[2]).Order, 7);
}

TEST_F(TUserAccountTest, OthersTradesAreNotTheUsers) {
  Submit(1, TSide::Bid, 4'900, 500);
  Account.TakeReports();
  Other(TSide::Ask, 5'000, 500);
  Other(TSide::Bid, 5'000, 500);
  EXPECT_TRUE(Account.TakeReports().empty());
}

TEST_F(TUserAccountTest, ChangeMovesTheOrderAndKeepsWhatIsFilled) {
  Submit(1, TSide::Bid, 4'990, 1'500);
  Other(TSide::Ask, 4'990, 500);
  Account.TakeReports();
  Change(1, 4'980, 2'500);
  const auto order = Only<TUserOrder>();
  EXPECT_EQ(order.Price, 4'980);
  EXPECT_EQ(order.Quantity, 2'500);
  EXPECT_EQ(order.Filled, 500);
  EXPECT_EQ(order.Status, TOrderStatus::PartlyFilled);
  EXPECT_EQ(Instrument.Book().LevelAt(TSide::Bid, 4'980).Quantity, 2'000);
  EXPECT_EQ(Instrument.Book().LevelAt(TSide::Bid, 4'990).Quantity, 0);
}

TEST_F(TUserAccountTest, RefusedChangeLeavesTheOrderAsItWas) {
  Submit(1, TSide::Bid, 4'990, 1'500);
  Other(TSide::Ask, 4'990, 500);
  Account.TakeReports();
  Change(1, 4'985, 1'500);
  EXPECT_EQ(Only<TOrderRefusal>().Reason, Refused_Tick);
  Change(1, 4'990, 500);
  EXPECT_EQ(Only<TOrderRefusal>().Reason, Refused_Filled);
  Change(1, 4'990, 1'400);
  EXPECT_EQ(Only<TOrderRefusal>().Reason, Refused_Lot);
  EXPECT_EQ(Instrument.Book().LevelAt(TSide::Bid, 4'990).Quantity, 1'000);
}

TEST_F(TUserAccountTest, CancelTakesTheOrderOffTheBookOnce) {
  Submit(1, TSide::Ask, 5'010, 500);
  Account.TakeReports();
  Cancel(1);
  EXPECT_EQ(Only<TUserOrder>().Status, TOrderStatus::Cancelled);
  EXPECT_EQ(Instrument.Book().OrderCount(), 0u);
  Cancel(1);
  EXPECT_EQ(Only<TOrderRefusal>().Reason, Refused_Done);
  Cancel(2);
  EXPECT_EQ(Only<TOrderRefusal>().Number, 2);
}

TEST_F(TUserAccountTest, RejectionsSayWhy) {
  Other(TSide::Ask, 5'000, 500);
  struct TCase {
    TPrice Price;
    TQuantity Quantity;
    const char* Reason;
  };
  int number = 0;
  for (const TCase& wrong :
       {TCase{4'995, 500, Refused_Tick}, TCase{4'990, 400, Refused_Lot},
        TCase{4'990, 1'500'500, Refused_Size}, TCase{5'100, 500, Refused_Limit}}) {
    Submit(++number, TSide::Bid, wrong.Price, wrong.Quantity);
    const auto order = Only<TUserOrder>();
    EXPECT_EQ(order.Status, TOrderStatus::Rejected);
    EXPECT_EQ(order.Reason, wrong.Reason);
  }
  Account.Apply({TOrderAction::Submit, 9, "nothing", TSide::Bid, 4'990, 500}, nullptr, ++LastId);
  EXPECT_EQ(Only<TUserOrder>().Reason, Refused_Symbol);
  EXPECT_EQ(Instrument.Book().BestPrice(TSide::Bid), std::nullopt);
}

TEST_F(TUserAccountTest, NoOrderIsTakenAtLunchButOneMayBeCancelled) {
  Submit(1, TSide::Bid, 4'990, 500);
  Account.TakeReports();
  Instrument.AdvanceTo(12h + 30min);
  Submit(2, TSide::Bid, 4'990, 500);
  EXPECT_EQ(Only<TUserOrder>().Reason, Refused_Phase);
  Cancel(1);
  EXPECT_EQ(Only<TUserOrder>().Status, TOrderStatus::Cancelled);
}

TEST_F(TUserAccountTest, NumberThatIsUsedAgainStartsAfresh) {
  Submit(1, TSide::Bid, 4'990, 1'000);
  Other(TSide::Ask, 4'990, 500);
  Cancel(1);
  Account.TakeReports();
  Submit(1, TSide::Bid, 4'980, 500);
  const auto order = Only<TUserOrder>();
  EXPECT_EQ(order.Status, TOrderStatus::Working);
  EXPECT_EQ(order.Filled, 0);
  EXPECT_EQ(order.AveragePrice, 0);
}

TEST_F(TUserAccountTest, OrderThatIsLeftAtTheEndOfTheDayIsCancelled) {
  Submit(1, TSide::Bid, 4'990, 500);
  Account.TakeReports();
  Instrument.AdvanceTo(16h + 10min);
  EXPECT_EQ(Only<TUserOrder>().Status, TOrderStatus::Cancelled);
}

} // namespace
