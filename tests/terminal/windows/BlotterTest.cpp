#include "terminal/windows/Blotter.h"
#include "host/RecordFields.h"

#include "data/Orders.h"
#include "host/ConstDef.h"
#include "terminal/script/input/Input.h"
#include "terminal/services/Services.h"
#include "terminal/windows/StepEdit.h"

#include <gtest/gtest.h>

namespace Terminal {
namespace {

namespace Field = Host::Field;

using namespace Data;
using TModel = TOrdersModel;

class TBlotterTest : public testing::Test {
protected:
  TBlotterTest() {
    Services.Market.DefineSpreadTables({{"01", 1, {{100, 200, 0.1}}}});
    Services.Market.DefineInstrument("700", "HKD", "TESTCO");
    Services.Market.DefineInstrument("80700", "CNY", "TESTCO-R");
    Data::TRecordChange change;
    change.Symbol = "700";
    change.Fields = {
        {Field::Nominal, "101.2"}, {Field::BoardLot, "500"}, {Field::SpreadCode, "01"}};
    Services.Subscriptions.Apply(change);
    Desk.SetMarket([this](const TOrderRequest& request) { Asked.push_back(request); });
    View.resize(900, 300);
    View.show();
    Input::Activate(&View);
  }

  TUserOrder Order(int number, TOrderStatus status = TOrderStatus::Working) {
    TUserOrder order;
    order.Number = number;
    order.Symbol = "700";
    order.Side = TSide::Ask;
    order.Price = 101300;
    order.Quantity = 2000;
    order.Status = status;
    order.Entered = std::chrono::hours(10);
    return order;
  }

  void Trade(const char* symbol, TSide side, TPrice price, TQuantity quantity) {
    TUserTrade trade;
    trade.Order = 1;
    trade.Symbol = symbol;
    trade.Side = side;
    trade.Price = price;
    trade.Quantity = quantity;
    Desk.ApplyTrade(trade);
  }

  QTableView* Orders() { return View.findChild<QTableView*>(QStringLiteral("orders")); }
  QTableView* Trades() { return View.findChild<QTableView*>(QStringLiteral("trades")); }
  QString Text(const char* label) { return View.findChild<QLabel*>(QLatin1String(label))->text(); }

  static QStringList Row(const QTableView* table, int row) {
    QStringList texts;
    for (int column = 0; column < table->model()->columnCount(); ++column)
      texts.append(table->model()->index(row, column).data().toString());
    return texts;
  }

  void Choose(int row, TModel::TColumn column = TModel::NumberColumn) {
    Input::Click(Orders()->viewport(),
                 Orders()->visualRect(Orders()->model()->index(row, column)).center());
  }

  TStepEdit* Editor() { return Orders()->findChild<TStepEdit*>(); }

  TServices Services;
  TOrderDesk Desk;
  std::vector<TOrderRequest> Asked;
  TBlotter View{Services, Desk};
};

TEST_F(TBlotterTest, ShowsEveryOrderTheLatestFirst) {
  Desk.ApplyOrder(Order(1));
  TUserOrder filled = Order(2, TOrderStatus::PartlyFilled);
  filled.Side = TSide::Bid;
  filled.Filled = 500;
  filled.AveragePrice = 101.25;
  Desk.ApplyOrder(filled);
  EXPECT_EQ(Row(Orders(), 0), (QStringList{"2", "10:00:00", "700", "Buy", "101.3", "2,000", "500",
                                           "101.250", "Partly filled", ""}));
  EXPECT_EQ(Row(Orders(), 1), (QStringList{"1", "10:00:00", "700", "Sell", "101.3", "2,000", "0",
                                           "", "Working", ""}));
}

TEST_F(TBlotterTest, FollowsAnOrderThatChanges) {
  Desk.ApplyOrder(Order(1));
  Desk.ApplyOrder(Order(2));
  Desk.ApplyOrder(Order(1, TOrderStatus::Cancelled));
  ASSERT_EQ(Orders()->model()->rowCount(), 2);
  EXPECT_EQ(Row(Orders(), 1)[TModel::StatusColumn], QStringLiteral("Cancelled"));
  EXPECT_EQ(Row(Orders(), 0)[TModel::StatusColumn], QStringLiteral("Working"));
}

TEST_F(TBlotterTest, TakesInAnOrderThatIsToldOfLate) {
  Desk.ApplyOrder(Order(2));
  Desk.ApplyOrder(Order(1));
  EXPECT_EQ(Row(Orders(), 0)[TModel::NumberColumn], QStringLiteral("2"));
  EXPECT_EQ(Row(Orders(), 1)[TModel::NumberColumn], QStringLiteral("1"));
}

TEST_F(TBlotterTest, DeleteCancelsAnOrderThatIsAlive) {
  Desk.ApplyOrder(Order(1));
  Desk.ApplyOrder(Order(2, TOrderStatus::Filled));
  Choose(0);
  Input::PressKey(Orders(), Qt::Key_Delete);
  EXPECT_TRUE(Asked.empty()) << "it is filled";
  Choose(1);
  Input::PressKey(Orders(), Qt::Key_Delete);
  ASSERT_EQ(Asked.size(), 1u);
  EXPECT_EQ(Asked[0].Action, TOrderAction::Cancel);
  EXPECT_EQ(Asked[0].Number, 1);
}

TEST_F(TBlotterTest, F2AndEnterChangeThePrice) {
  for (const auto key : {Qt::Key_F2, Qt::Key_Return}) {
    Asked.clear();
    Desk.ApplyOrder(Order(1));
    Choose(0);
    Input::PressKey(Orders(), key);
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->text(), QStringLiteral("101.3"));
    Input::PressKey(Editor(), Qt::Key_Up);
    EXPECT_TRUE(Asked.empty());
    Input::PressKey(Editor(), Qt::Key_Return);
    Input::Deliver();
    ASSERT_EQ(Asked.size(), 1u);
    EXPECT_EQ(Asked[0].Action, TOrderAction::Change);
    EXPECT_EQ(Asked[0].Number, 1);
    EXPECT_EQ(Asked[0].Price, 101400);
    EXPECT_EQ(Asked[0].Quantity, 2000);
    EXPECT_EQ(Row(Orders(), 0)[TModel::PriceColumn], QStringLiteral("101.3"))
        << "until the market has changed it";
  }
}

TEST_F(TBlotterTest, ChangesTheQuantityWhereThatIsChosen) {
  Desk.ApplyOrder(Order(1));
  Choose(0, TModel::QuantityColumn);
  Input::PressKey(Orders(), Qt::Key_F2);
  ASSERT_NE(Editor(), nullptr);
  Input::PressKey(Editor(), Qt::Key_Down);
  Input::PressKey(Editor(), Qt::Key_Return);
  Input::Deliver();
  ASSERT_EQ(Asked.size(), 1u);
  EXPECT_EQ(Asked[0].Price, 101300);
  EXPECT_EQ(Asked[0].Quantity, 1500);
}

TEST_F(TBlotterTest, WhatIsTypedStaysWhileTheOrderIsFilled) {
  Desk.ApplyOrder(Order(1));
  Choose(0);
  Input::PressKey(Orders(), Qt::Key_F2);
  Input::Type(Editor(), QStringLiteral("101.9"));
  TUserOrder filled = Order(1, TOrderStatus::PartlyFilled);
  filled.Filled = 500;
  Desk.ApplyOrder(filled);
  EXPECT_EQ(Editor()->text(), QStringLiteral("101.9"));
}

TEST_F(TBlotterTest, EscapeLeavesTheOrderAlone) {
  Desk.ApplyOrder(Order(1));
  Choose(0);
  Input::PressKey(Orders(), Qt::Key_F2);
  Input::PressKey(Editor(), Qt::Key_Up);
  Input::PressKey(Editor(), Qt::Key_Escape);
  Input::Deliver();
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_TRUE(Asked.empty());
}

TEST_F(TBlotterTest, AnOrderThatIsDoneCannotBeChanged) {
  Desk.ApplyOrder(Order(1, TOrderStatus::Filled));
  Choose(0);
  Input::PressKey(Orders(), Qt::Key_F2);
  EXPECT_EQ(Editor(), nullptr);
}

TEST_F(TBlotterTest, ShowsTradesAndWhatWasBoughtAndSoldInEachCurrency) {
  Trade("700", TSide::Bid, 101000, 1000);
  Trade("700", TSide::Ask, 102000, 500);
  Trade("80700", TSide::Bid, 90000, 100);
  EXPECT_EQ(Row(Trades(), 2),
            (QStringList{"00:00:00", "1", "700", "Buy", "101.0", "1,000", "HKD 101,000.00"}));
  const QString totals = Text("totals");
  EXPECT_TRUE(
      totals.contains(QStringLiteral("HKD  Bought 101,000.00  Sold 51,000.00  Net -50,000.00")))
      << totals.toStdString();
  EXPECT_TRUE(totals.contains(QStringLiteral("CNY  Bought 9,000.00  Sold 0.00  Net -9,000.00")))
      << totals.toStdString();
}

TEST_F(TBlotterTest, SaysWhyTheMarketRefused) {
  Desk.ApplyRefusal(3, "Term_StatusFilled");
  EXPECT_EQ(Text("refusal"), QStringLiteral("Order 3: Filled"));
  Services.Languages.SetLanguage(Constdef::Language_SimplifiedChinese);
  View.SetTexts();
  EXPECT_EQ(Text("refusal"), QStringLiteral("委托 3：全部成交"));
}

TEST_F(TBlotterTest, ARefusalStaysWhileOrdersAreFilledAndTraded) {
  Desk.ApplyOrder(Order(1));
  Desk.ApplyRefusal(1, "Term_RefusedLimit");
  const QString refusal = Text("refusal");
  EXPECT_NE(refusal, QString());
  Desk.ApplyOrder(Order(1, TOrderStatus::PartlyFilled));
  Desk.ApplyOrder(Order(2));
  Trade("700", TSide::Ask, 101300, 500);
  EXPECT_EQ(Text("refusal"), refusal);
}

TEST_F(TBlotterTest, ARefusalGoesWhenTheUserAsksAnewAndWhenTheMarketBeginsAnew) {
  Desk.ApplyOrder(Order(1));
  Desk.ApplyRefusal(1, "Term_RefusedLimit");
  Choose(0);
  Input::PressKey(Orders(), Qt::Key_F2);
  Input::PressKey(Editor(), Qt::Key_Up);
  EXPECT_NE(Text("refusal"), QString()) << "while the user still thinks";
  Input::PressKey(Editor(), Qt::Key_Return);
  Input::Deliver();
  EXPECT_EQ(Text("refusal"), QString());
  Desk.ApplyRefusal(1, "Term_RefusedLimit");
  Input::PressKey(Orders(), Qt::Key_Delete);
  EXPECT_EQ(Text("refusal"), QString());
  Desk.ApplyRefusal(1, "Term_RefusedLimit");
  Desk.SetMarket({});
  EXPECT_EQ(Text("refusal"), QString());
}

TEST_F(TBlotterTest, SaysThatWhatWasTypedIsNoFigureAndAsksForNothing) {
  Desk.ApplyOrder(Order(1));
  const auto type = [this](TModel::TColumn column, const char* text) {
    Choose(0, column);
    Input::PressKey(Orders(), Qt::Key_F2);
    Input::Type(Editor(), QLatin1String(text));
    Input::PressKey(Editor(), Qt::Key_Return);
    Input::Deliver();
    return Text("refusal");
  };
  const auto noPrice = QStringLiteral(
      "Order 1: unchanged, for what was typed is no price above zero with three decimals at most.");
  EXPECT_EQ(type(TModel::PriceColumn, "abc"), noPrice);
  EXPECT_EQ(
      type(TModel::QuantityColumn, "1.5"),
      QStringLiteral("Order 1: unchanged, for what was typed is no whole quantity above zero."));
  EXPECT_EQ(type(TModel::PriceColumn, "101.2345"), noPrice);
  EXPECT_TRUE(Asked.empty());
  EXPECT_EQ(type(TModel::PriceColumn, "101.4"), QString());
  EXPECT_EQ(Asked.size(), 1u);
}

TEST_F(TBlotterTest, AChangeOfAnOrderThatIsDoneMeanwhileIsTheMarketsToRefuse) {
  Desk.ApplyOrder(Order(1));
  Choose(0);
  Input::PressKey(Orders(), Qt::Key_F2);
  Input::PressKey(Editor(), Qt::Key_Up);
  Desk.ApplyOrder(Order(1, TOrderStatus::Filled));
  Input::PressKey(Editor(), Qt::Key_Return);
  Input::Deliver();
  ASSERT_EQ(Asked.size(), 1u);
  EXPECT_EQ(Asked[0].Price, 101400);
}

TEST_F(TBlotterTest, IsEmptyWhenTheMarketBeginsAnew) {
  Desk.ApplyOrder(Order(1));
  Trade("700", TSide::Bid, 101000, 1000);
  Desk.SetMarket({});
  EXPECT_EQ(Orders()->model()->rowCount(), 0);
  EXPECT_EQ(Trades()->model()->rowCount(), 0);
  EXPECT_EQ(Text("totals"), QString());
}

TEST_F(TBlotterTest, CountsOrdersAndTradesOnTheTabs) {
  Desk.ApplyOrder(Order(1));
  Trade("700", TSide::Bid, 101000, 1000);
  const auto* tabs = View.findChild<QTabWidget*>();
  EXPECT_EQ(tabs->tabText(0), QStringLiteral("Orders (1)"));
  EXPECT_EQ(tabs->tabText(1), QStringLiteral("Trades (1)"));
}

} // namespace
} // namespace Terminal
