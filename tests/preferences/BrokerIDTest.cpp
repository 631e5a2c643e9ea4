#include "preferences/PreferenceFixture.h"

#include <QAbstractItemView>
#include <QInputMethodEvent>
#include <QToolTip>

namespace {

class TBrokerIDTest : public TPreferenceTest {
protected:
  TBrokerIDTest() {
    host.market.SetBroker("0120", "Lotus Bay", "蓮灣證券", "莲湾证券");
    host.market.SetBroker("0121", "Lotus Bay", "蓮灣證券", "莲湾证券");
    host.market.SetBroker("1190", "White Heron", "白鷺環球", "白鹭环球");
    host.market.SetBroker("1330", "", "", "", "Jetty");
  }

  void OpenWithRows(const char* ids, const char* colours) {
    host.config.SetCurrent("SpecBrokerChecked", "Y");
    Store(ids, colours);
    Open();
  }

  std::string Shown(int row) { return Cell(row, 45).data().toString().toStdString(); }

  /// Types texts that need an input method too, and leaves them in the open editor.
  void Compose(int row, const char* text) {
    auto& editor = OpenEditor<QLineEdit>(row, 45);
    editor.selectAll();
    QInputMethodEvent typed;
    typed.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(&editor, &typed);
  }

  void EnterText(int row, const char* text) {
    Compose(row, text);
    QTest::keyClick(Grid().indexWidget(Cell(row, 45)), Qt::Key_Return);
    QCoreApplication::processEvents();
  }

  /// What is offered under the open editor, a line each.
  TRows Offered() {
    TRows lines;
    if (const auto* popup = qobject_cast<QAbstractItemView*>(QApplication::activePopupWidget()))
      for (int row = 0; row < popup->model()->rowCount(); ++row)
        lines.push_back(popup->model()->index(row, 0).data().toString().toStdString());
    return lines;
  }
};

// A comma would begin a row of its own in the stored list, and move the colours by one.
TEST_F(TBrokerIDTest, ACommaIsRefused) {
  OpenWithRows("1111,2222", "$000000FF,$00FF0000");
  EnterID(0, "12,34");
  EXPECT_EQ(Rows(), (TRows{"1111 ff", "2222 ff0000"}));
  page->Execute();
  EXPECT_EQ(Stored("DetailSpecialBroker"), "1111,2222");
  EXPECT_EQ(Stored("DetailSpecialBrokerColor"), "$000000FF,$00FF0000");
}

TEST_F(TBrokerIDTest, OneToFourDigitsAreABroker) {
  OpenWithRows("1111", "$000000FF");
  for (const char* id : {"7", "88", "120", "0120", "9999", " 5 ", " "}) {
    EnterID(0, id);
    EXPECT_EQ(Rows(), TRows{std::string(id) + " ff"});
  }
  for (const char* text : {"12345", "1 2", "-1", "12a", "nobody", "１２"}) {
    EnterID(0, "1111");
    EnterText(0, text);
    EXPECT_EQ(Rows(), TRows{"1111 ff"}) << text;
  }
}

TEST_F(TBrokerIDTest, WhatIsRefusedSaysWhy) {
  OpenWithRows("1111", "$000000FF");
  EnterID(0, "12345");
  EXPECT_TRUE(
      QTest::qWaitFor([] { return QToolTip::text() == QLatin1String("Res_BrokerIDHint"); }));
  QToolTip::hideText();
}

TEST_F(TBrokerIDTest, NumbersAreShownWithFourDigits) {
  OpenWithRows("7,88,999,1234,AB", "");
  EXPECT_EQ(Shown(0), "0007");
  EXPECT_EQ(Shown(1), "0088");
  EXPECT_EQ(Shown(2), "0999");
  EXPECT_EQ(Shown(3), "1234");
  EXPECT_EQ(Shown(4), "AB");
  Press("btnAdd");
  EXPECT_EQ(Shown(5), "");
}

TEST_F(TBrokerIDTest, NamesStandBesideTheNumbersInTheUsersLanguage) {
  OpenWithRows("1190,120,1330,5555", "");
  EXPECT_EQ(Shown(0), "1190  White Heron");
  EXPECT_EQ(Shown(1), "0120  Lotus Bay");
  EXPECT_EQ(Shown(2), "1330  Jetty");
  EXPECT_EQ(Shown(3), "5555");
  host.language.language = 1;
  EXPECT_EQ(Shown(0), "1190  白鷺環球");
  host.language.language = 2;
  EXPECT_EQ(Shown(0), "1190  白鹭环球");
  EXPECT_EQ(Rows().front(), "1190 -") << "the number is what is edited and stored";
}

TEST_F(TBrokerIDTest, NamesThatComeLaterAreShown) {
  OpenWithRows("5555", "$000000FF");
  const auto picture = [this] {
    QCoreApplication::processEvents();
    return Grid().viewport()->grab(Grid().visualRect(Cell(0, 45))).toImage();
  };
  int painted = 0;
  const auto before = picture();
  struct TCounter : QObject {
    explicit TCounter(int& count_) : count(count_) {}
    bool eventFilter(QObject*, QEvent* event) override {
      count += event->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
    int& count;
  } counter(painted);
  Grid().viewport()->installEventFilter(&counter);
  host.market.SetBroker("5555", "Late Comer");
  host.market.AnnounceBrokers();
  QCoreApplication::processEvents();
  EXPECT_GT(painted, 0);
  EXPECT_NE(picture(), before);
  page.reset();
  EXPECT_EQ(host.market.BrokerListenerCount(), 0);
}

TEST_F(TBrokerIDTest, ABrokerIsLookedUpByItsNameInThreeLanguages) {
  for (const char* name : {"heron", "白鷺", "白鹭", "White Heron"}) {
    OpenWithRows("1111", "$000000FF");
    Compose(0, name);
    EXPECT_EQ(Offered(), TRows{"1190  White Heron"}) << name;
  }
}

TEST_F(TBrokerIDTest, LongNamesAreOfferedInFullAndShownOnOneLine) {
  host.market.SetBroker("4444", "A Securities House With A Name That Is Wider Than Its Column");
  OpenWithRows("4444", "$000000FF");
  EXPECT_FALSE(Grid().wordWrap());
  TypeID(0, "wider");
  const auto* list = qobject_cast<QAbstractItemView*>(QApplication::activePopupWidget());
  ASSERT_NE(list, nullptr);
  EXPECT_GE(list->viewport()->width(), list->sizeHintForColumn(0));
}

TEST_F(TBrokerIDTest, TheChosenBrokersNumberIsEntered) {
  OpenWithRows("1111", "$000000FF");
  TypeID(0, "lotus");
  ASSERT_EQ(Offered(), (TRows{"0120  Lotus Bay", "0121  Lotus Bay"}));
  auto* list = QApplication::activePopupWidget();
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  const auto* editor = qobject_cast<QLineEdit*>(Grid().indexWidget(Cell(0, 45)));
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->text(), "0121");
  page->Execute();
  EXPECT_EQ(Stored("DetailSpecialBroker"), "0121");
}

TEST_F(TBrokerIDTest, ANameThatOnlyOneBrokerHasNeedNotBeChosen) {
  OpenWithRows("1111", "$000000FF");
  EnterID(0, "HERON");
  EXPECT_EQ(Rows(), TRows{"1190 ff"});
  EnterID(0, "lotus");
  EXPECT_EQ(Rows(), TRows{"1190 ff"}) << "two are called so";
}

TEST_F(TBrokerIDTest, NothingIsOfferedForANumber) {
  OpenWithRows("1111", "$000000FF");
  for (const char* text : {"1", "1190", " "}) {
    TypeID(0, text);
    EXPECT_EQ(Offered(), TRows()) << text;
  }
}

} // namespace
