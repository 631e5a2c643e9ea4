#include "terminal/windows/OrderTicket.h"
#include "host/RecordFields.h"

#include "data/Orders.h"
#include "host/ConstDef.h"
#include "host/DataDef.h"
#include "platform/Colour.h"
#include "terminal/script/input/Input.h"

#include <QtTest>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

namespace Field = Host::Field;

using namespace Data;

class TOrderTicketTest : public testing::Test {
protected:
  TOrderTicketTest() {
    Services.Market.DefineSpreadTables({{"01", 1, {{0.25, 0.5, 0.005}, {100, 200, 0.1}}}});
    Services.Market.DefineInstrument("700", "HKD", "TESTCO");
    Services.Market.DefineInstrument("5", "HKD", "Bank");
    Data::TRecordChange change;
    change.Symbol = "700";
    change.Fields = {
        {Field::Nominal, "101.2"}, {Field::BoardLot, "500"}, {Field::SpreadCode, "01"}};
    Services.Subscriptions.Apply(change);
    Services.Channels.Subscribe(
        Constdef::Channel_CopyOrder,
        [this](System::TObject*, System::TObject* data) {
          const auto* record = dynamic_cast<Datadef::TCopyOrderRecord*>(data);
          if (const auto* order = dynamic_cast<TClientOrder*>(record->Order))
            Announced.push_back(record->Source + ":" + order->Symbol());
        },
        &Owner);
    Desk.SetMarket([this](const TOrderRequest& request) { Sent.push_back(request); });
    Ticket.show();
    Input::Activate(&Ticket);
  }

  ~TOrderTicketTest() override {
    Services.Channels.Unsubscribe(Constdef::Channel_CopyOrder, &Owner);
  }

  void Copy(TOrder& order) {
    Datadef::TCopyOrderRecord record;
    record.Order = &order;
    Services.Channels.Send(Constdef::Channel_CopyOrder, nullptr, &record);
  }

  void CopyFromBid(double price = 101.2, double quantity = 12400) {
    TOrder order;
    order.SetSymbol("700");
    order.SetPrice(price);
    order.SetQuantity(quantity);
    order.SetValue("OrderFlags", "1");
    Copy(order);
  }

  /// An order to buy 2,000 of 700 at 101.3, keyed in.
  void KeyIn() {
    Input::Type(Symbol(), QStringLiteral("700"));
    Input::PressKey(Symbol(), Qt::Key_Return);
    Input::Type(Price(), QStringLiteral("101.3"));
    Input::Type(Quantity(), QStringLiteral("2000"));
    Input::Click(Buy());
    Quantity()->setFocus();
  }

  template <typename T> T* Named(const char* name) {
    return Ticket.findChild<T*>(QLatin1String(name));
  }
  QLineEdit* Symbol() { return Named<QLineEdit>("symbol"); }
  QLineEdit* Price() { return Named<QLineEdit>("price"); }
  QLineEdit* Quantity() { return Named<QLineEdit>("quantity"); }
  QPushButton* Buy() { return Named<QPushButton>("buy"); }
  QPushButton* Sell() { return Named<QPushButton>("sell"); }
  QPushButton* Send() { return Named<QPushButton>("send"); }
  QString Text(const char* label) { return Named<QLabel>(label)->text(); }

  TServices Services;
  System::TObject Owner;
  TOrderDesk Desk;
  std::vector<TOrderRequest> Sent;
  std::vector<std::string> Announced;
  TOrderTicket Ticket{Services, Desk, [](System::TObject*) { return QStringLiteral("View 7"); }};
};

TEST_F(TOrderTicketTest, SaysThatItTradesOnPaper) {
  EXPECT_EQ(Text("paperTrading"), QStringLiteral("PAPER TRADING, SIMULATED MARKET"));
}

TEST_F(TOrderTicketTest, ShowsPlainlyWhatArrivedAndFromWhere) {
  CopyFromBid();
  EXPECT_EQ(Symbol()->text(), QStringLiteral("700"));
  EXPECT_EQ(Price()->text(), QStringLiteral("101.2"));
  EXPECT_EQ(Quantity()->text(), QStringLiteral("12,400"));
  EXPECT_EQ(Text("amount"), QStringLiteral("HKD 1,254,880.00"));
  EXPECT_EQ(Text("source"), QStringLiteral("From the bid, View 7"));
  EXPECT_TRUE(Sell()->isChecked()) << "a click on the bid sells to it";
  EXPECT_FALSE(Buy()->isChecked());
}

TEST_F(TOrderTicketTest, BuysAtAPriceThatIsNotABid) {
  TOrder order;
  order.SetSymbol("700");
  order.SetPrice(101.3);
  Copy(order);
  EXPECT_TRUE(Buy()->isChecked());
  EXPECT_EQ(Text("source"), QStringLiteral("Not from the bid, View 7"));
}

TEST_F(TOrderTicketTest, AFigureThatWasNotGivenStaysWithTheSymbolAlone) {
  CopyFromBid();
  TOrder same;
  same.SetSymbol("700");
  same.SetQuantity(3000);
  Copy(same);
  EXPECT_EQ(Price()->text(), QStringLiteral("101.2"));
  EXPECT_EQ(Quantity()->text(), QStringLiteral("3,000"));
  EXPECT_TRUE(Sell()->isChecked());
  TOrder other;
  other.SetSymbol("5");
  Copy(other);
  EXPECT_EQ(Price()->text(), QString());
  EXPECT_EQ(Quantity()->text(), QString());
  EXPECT_FALSE(Sell()->isChecked() || Buy()->isChecked());
}

TEST_F(TOrderTicketTest, AQuantityOfZeroIsNone) {
  CopyFromBid(101.2, 0);
  EXPECT_EQ(Quantity()->text(), QString());
}

TEST_F(TOrderTicketTest, AnnouncesTheSymbolThatTheUserEntersAndNoneThatAViewCopied) {
  CopyFromBid();
  EXPECT_TRUE(Announced.empty());
  Input::Type(Symbol(), QStringLiteral("00005"));
  Input::PressKey(Symbol(), Qt::Key_Return);
  EXPECT_EQ(Announced, std::vector<std::string>{":5"});
  EXPECT_EQ(Text("source"), QString());
  EXPECT_TRUE(Price()->hasFocus());
  EXPECT_EQ(Price()->text(), QString()) << "the price was another symbol's";
}

TEST_F(TOrderTicketTest, TakesNoSymbolThatIsNotListed) {
  Input::Type(Symbol(), QStringLiteral("nothing"));
  Input::PressKey(Symbol(), Qt::Key_Return);
  EXPECT_TRUE(Announced.empty());
  EXPECT_TRUE(Symbol()->hasFocus());
}

TEST_F(TOrderTicketTest, ArrowKeysStepPriceAndQuantity) {
  KeyIn();
  Price()->setFocus();
  Input::PressKey(Price(), Qt::Key_Up);
  EXPECT_EQ(Price()->text(), QStringLiteral("101.4"));
  Input::PressKey(Price(), Qt::Key_PageDown);
  EXPECT_EQ(Price()->text(), QStringLiteral("100.4"));
  Quantity()->setFocus();
  Input::PressKey(Quantity(), Qt::Key_Down);
  EXPECT_EQ(Quantity()->text(), QStringLiteral("1,500"));
  EXPECT_EQ(Text("amount"), QStringLiteral("HKD 150,600.00"));
}

TEST_F(TOrderTicketTest, TheFirstStepGivesThePresentPrice) {
  Input::Type(Symbol(), QStringLiteral("700"));
  Input::PressKey(Symbol(), Qt::Key_Return);
  Input::PressKey(Price(), Qt::Key_Down);
  EXPECT_EQ(Price()->text(), QStringLiteral("101.2"));
}

TEST_F(TOrderTicketTest, NothingIsSentBeforeTheWholeOrderWasShownAndConfirmed) {
  KeyIn();
  Input::PressKey(Quantity(), Qt::Key_Return);
  EXPECT_TRUE(Sent.empty());
  EXPECT_TRUE(Text("message").contains(QStringLiteral("BUY 700 TESTCO: 2,000 @ 101.3")))
      << Text("message").toStdString();
  EXPECT_EQ(Send()->text(), QStringLiteral("Confirm"));
  Input::PressKey(Send(), Qt::Key_Return);
  ASSERT_EQ(Sent.size(), 1u);
  EXPECT_EQ(Sent[0].Action, TOrderAction::Submit);
  EXPECT_EQ(Sent[0].Symbol, "700");
  EXPECT_EQ(Sent[0].Side, TSide::Bid);
  EXPECT_EQ(Sent[0].Price, 101300);
  EXPECT_EQ(Sent[0].Quantity, 2000);
  EXPECT_EQ(Text("message"), QStringLiteral("Order 1 was sent."));
  Input::PressKey(Price(), Qt::Key_Return);
  EXPECT_EQ(Sent.size(), 1u) << "the next one is shown first again";
}

TEST_F(TOrderTicketTest, EscapeGoesBack) {
  KeyIn();
  Input::PressKey(Quantity(), Qt::Key_Return);
  Input::PressKey(Send(), Qt::Key_Escape);
  EXPECT_EQ(Text("message"), QString());
  EXPECT_TRUE(Price()->hasFocus());
  Input::PressKey(Price(), Qt::Key_Return);
  EXPECT_TRUE(Sent.empty());
}

TEST_F(TOrderTicketTest, AChangeMustBeShownAgain) {
  KeyIn();
  Input::PressKey(Quantity(), Qt::Key_Return);
  CopyFromBid(101.4, 500);
  Input::PressKey(Send(), Qt::Key_Return);
  EXPECT_TRUE(Sent.empty());
  EXPECT_TRUE(Text("message").contains(QStringLiteral("SELL 700 TESTCO: 500 @ 101.4")));
  Input::Click(Buy());
  Input::PressKey(Buy(), Qt::Key_Return);
  EXPECT_TRUE(Sent.empty());
  EXPECT_TRUE(Text("message").contains(QStringLiteral("BUY")));
}

TEST_F(TOrderTicketTest, AHeldKeyAndADoubleClickSendNothing) {
  KeyIn();
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
  Input::PressKey(Quantity(), Qt::Key_Return);
  QCoreApplication::sendEvent(Send(), &held);
  EXPECT_TRUE(Sent.empty());
  Input::PressKey(Send(), Qt::Key_Escape);
  QTest::mouseClick(Send(), Qt::LeftButton);
  EXPECT_FALSE(Text("message").isEmpty());
  const QPoint middle = Send()->rect().center();
  QMouseEvent second(QEvent::MouseButtonDblClick, middle, Send()->mapToGlobal(middle),
                     Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(Send(), &second);
  QTest::mouseRelease(Send(), Qt::LeftButton);
  EXPECT_TRUE(Sent.empty());
  QTest::mouseClick(Send(), Qt::LeftButton);
  EXPECT_EQ(Sent.size(), 1u);
}

TEST_F(TOrderTicketTest, SaysWhatIsMissing) {
  const auto advance = [this] {
    Input::Click(Send());
    return Text("message");
  };
  EXPECT_EQ(advance(), QStringLiteral("No such symbol is listed."));
  Input::Type(Symbol(), QStringLiteral("700"));
  Input::PressKey(Symbol(), Qt::Key_Return);
  EXPECT_EQ(advance(), QStringLiteral("Choose buy or sell."));
  Input::Click(Sell());
  EXPECT_EQ(advance(), QStringLiteral("Enter a price above zero."));
  Input::Type(Price(), QStringLiteral("101.3"));
  EXPECT_EQ(advance(), QStringLiteral("Enter a whole quantity above zero."));
  EXPECT_TRUE(Quantity()->hasFocus());
  EXPECT_TRUE(Sent.empty());
}

TEST_F(TOrderTicketTest, ShowsWhatBecameOfTheOrder) {
  KeyIn();
  Input::PressKey(Quantity(), Qt::Key_Return);
  Input::PressKey(Send(), Qt::Key_Return);
  TUserOrder order;
  order.Number = 2;
  order.Status = TOrderStatus::Filled;
  Desk.ApplyOrder(order);
  EXPECT_EQ(Text("message"), QStringLiteral("Order 1 was sent.")) << "another order's outcome";
  order.Number = 1;
  order.Status = TOrderStatus::PartlyFilled;
  Desk.ApplyOrder(order);
  EXPECT_EQ(Text("message"), QStringLiteral("Order 1: Partly filled"));
}

TEST_F(TOrderTicketTest, SaysSoWhereThereIsNoMarket) {
  KeyIn();
  Desk.SetMarket({});
  EXPECT_FALSE(Send()->isEnabled());
  EXPECT_FALSE(Text("message").isEmpty());
  Input::PressKey(Quantity(), Qt::Key_Return);
  Input::PressKey(Quantity(), Qt::Key_Return);
  EXPECT_TRUE(Desk.Orders().empty());
  Desk.SetMarket([this](const TOrderRequest& request) { Sent.push_back(request); });
  EXPECT_TRUE(Send()->isEnabled());
  EXPECT_EQ(Text("message"), QString());
}

TEST_F(TOrderTicketTest, ClearLeavesNothing) {
  KeyIn();
  Input::Click(Named<QPushButton>("clear"));
  EXPECT_EQ(Symbol()->text() + Price()->text() + Quantity()->text(), QString());
  EXPECT_FALSE(Buy()->isChecked());
  EXPECT_TRUE(Symbol()->hasFocus());
}

TEST_F(TOrderTicketTest, TheTabKeyGoesThroughTheForm) {
  Input::Click(Buy());
  for (const char* name : {"symbol", "price", "quantity", "send", "clear"}) {
    const auto* expected = Named<QWidget>(name);
    for (int i = 0; i < 2 && !expected->hasFocus(); ++i) // the other side comes first
      Input::PressKey(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(expected->hasFocus()) << name;
  }
}

TEST_F(TOrderTicketTest, AltKeysChooseTheSideInEveryLanguage) {
  for (const int language : {1, 2, 3}) {
    Services.Languages.SetLanguage(language);
    Ticket.SetTexts();
    // A button that is pressed by its key stays down for a moment.
    Input::PressKey(Price(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Sell()->isChecked(); })) << language;
    Input::PressKey(Price(), Qt::Key_B, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Buy()->isChecked(); })) << language;
  }
}

TEST_F(TOrderTicketTest, TheChosenSideIsInTheColoursThatPriceViewsHaveForIt) {
  Services.Skin.OnChanged = [this] { Ticket.SetSkin(); };
  const auto ground = [this](QPushButton* side) {
    Input::Click(side);
    return side->grab().toImage().pixelColor(6, side->height() / 2);
  };
  const auto skin = [this](const char* name) {
    return Platform::ToQColor(Services.Skin.GetColour(0, name));
  };
  for (const char* look : {"Dark", "Light"})
    for (const char* colours : {"BlueOrange", "RedUp", "GreenUp"}) {
      Services.Skin.Select(look);
      Services.Skin.SelectPriceColours(colours);
      EXPECT_EQ(ground(Buy()), skin("coBuyColorLabel")) << look << " " << colours;
      EXPECT_EQ(ground(Sell()), skin("coSellColorLabel")) << look << " " << colours;
    }
  Services.Skin.OnChanged = nullptr;
}

TEST_F(TOrderTicketTest, NamesTheInstrumentInTheLanguage) {
  Services.Market.DefineInstrument("700", "HKD", "TESTCO", "測試科技");
  CopyFromBid();
  const auto shown = [this] {
    QStringList texts;
    for (const auto* label : Ticket.findChildren<QLabel*>())
      texts.append(label->text());
    return texts;
  };
  EXPECT_TRUE(shown().contains(QStringLiteral("TESTCO")));
  Services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  Ticket.SetTexts();
  EXPECT_TRUE(shown().contains(QStringLiteral("測試科技")));
}

} // namespace
} // namespace Terminal
