#include "terminal/services/SymbolEditors.h"

#include "host/ConstDef.h"
#include "platform/PopupEdit.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

using Platform::TcxPopupEdit;
using Terminal::TSymbolDirectory;
using Terminal::TSymbolEditors;

class TSymbolBoxTest : public testing::Test {
protected:
  TSymbolBoxTest() {
    Symbols.Add("700", "HARBOUR TECH");
    Symbols.Add("5", "HSBC HOLDINGS");
    Symbols.Add("09988");
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(Edit);
    layout->addWidget(new QLineEdit);
    QObject::connect(Edit, &TcxPopupEdit::Exited, [this] { Heard.append(Edit->Hint()); });
    QObject::connect(Edit, &TcxPopupEdit::KeyDown, [this](int key) {
      if (key == 13)
        Heard.append(Edit->Hint());
    });
    Manager.RegisterSymbolEditor(Edit, "A", true, true);
    Manager.OnUserSymbol = [this](std::string_view group, std::string_view symbol) {
      Passed.append(QString("%1:%2 after %3")
                        .arg(QString::fromStdString(std::string(group)),
                             QString::fromStdString(std::string(symbol)))
                        .arg(Heard.size()));
    };
    window_.show();
    QApplication::setActiveWindow(&window_);
    Edit->setFocus();
  }
  ~TSymbolBoxTest() override { Manager.RemoveSymbolEditor(Edit); }

  void Type(const QString& text) {
    Edit->selectAll();
    QTest::keyClicks(Edit, text);
  }
  /// A key goes to the list of completions while that is open, which hands it on.
  void Press(Qt::Key key) {
    auto* list = QApplication::activePopupWidget();
    QTest::keyClick(list ? list : Edit, key);
  }
  void Enter(const QString& text) {
    Type(text);
    Press(Qt::Key_Return);
  }
  void Leave() { Press(Qt::Key_Tab); }
  void SetByProgram(const QString& text) {
    Edit->setText(text);
    Edit->PerformExit();
  }

  Terminal::TLanguageTexts Languages;
  TSymbolDirectory Symbols;
  TSymbolEditors Manager{Symbols, Languages};
  TcxPopupEdit* Edit = new TcxPopupEdit;
  QStringList Heard;  ///< the hint each time the owner was told
  QStringList Passed; ///< what went on to the group

private:
  QWidget window_;
};

TEST(SymbolDirectory, FindsAListedSymbolInEveryFormATraderTypes) {
  TSymbolDirectory symbols;
  symbols.Add("700", "HARBOUR TECH");
  symbols.Add("09988", "BABA-W");
  symbols.Add("AAPL");
  symbols.Add("00700X");
  for (const auto* text : {"700", "00700", "0700.HK", "700.hk", " 700 ", "harbour tech",
                           "Harbour Tech ", "７００", "700  HARBOUR TECH", "700 harbour tech"})
    EXPECT_EQ(symbols.Resolve(text), symbols.Resolve("700")) << text;
  EXPECT_EQ(symbols.Resolve("700"), "700");
  EXPECT_EQ(symbols.Resolve("9988"), "09988");
  EXPECT_EQ(symbols.Resolve("aapl"), "AAPL");
  EXPECT_EQ(symbols.Resolve("00700x"), "00700X");
  for (const auto* text : {"", " ", "70", "7000", "TENC", "701", ".HK", "700 BABA-W", "700X", "0"})
    EXPECT_EQ(symbols.Resolve(text), std::nullopt) << text;
}

TEST(SymbolDirectory, TheSymbolAsListedGoesBeforeTheOneThatReadsTheSame) {
  TSymbolDirectory symbols;
  symbols.Add("700");
  symbols.Add("00700");
  EXPECT_EQ(symbols.Resolve("00700"), "00700");
  EXPECT_EQ(symbols.Resolve("700"), "700");
  EXPECT_EQ(symbols.Resolve("0700"), "700");
}

TEST(SymbolDirectory, AChangedNameReplacesTheFormerOne) {
  TSymbolDirectory symbols;
  symbols.Add("700", "OLD NAME");
  const auto revision = symbols.Revision();
  symbols.Add("700", "NEW NAME");
  EXPECT_EQ(symbols.Resolve("old name"), std::nullopt);
  EXPECT_EQ(symbols.Resolve("new name"), "700");
  EXPECT_GT(symbols.Revision(), revision);
  symbols.Add("700");
  EXPECT_EQ(symbols.Entries().size(), 1U);
  EXPECT_EQ(TSymbolDirectory::Text(symbols.Entries()[0], Constdef::Language_English),
            "700  NEW NAME");
}

TEST(SymbolDirectory, ResolvesANameInEveryLanguageAndWhatIsOfferedInIt) {
  TSymbolDirectory symbols;
  symbols.Add("5", "BANK", "銀行", "银行");
  for (const char* text : {"bank", "銀行", "银行", "5  BANK", "5  銀行", "5 银行"})
    EXPECT_EQ(symbols.Resolve(text), "5") << text;
  EXPECT_EQ(symbols.Resolve("5 行"), std::nullopt);
  EXPECT_EQ(TSymbolDirectory::Text(symbols.Entries()[0], Constdef::Language_TraditionalChinese),
            QStringLiteral("5  銀行"));
  EXPECT_EQ(TSymbolDirectory::Text(symbols.Entries()[0], Constdef::Language_SimplifiedChinese),
            QStringLiteral("5  银行"));
}

TEST(SymbolDirectory, NewNamesReplaceTheFormerOnesTogether) {
  TSymbolDirectory symbols;
  symbols.Add("5", "BANK", "銀行", "银行");
  symbols.Add("5", "OTHER");
  const auto& entry = symbols.Entries()[0];
  for (const int language : {1, 2, 3})
    EXPECT_EQ(entry.NameIn(language), QStringLiteral("OTHER")) << language;
  EXPECT_EQ(symbols.Resolve("銀行"), std::nullopt);
  symbols.Add("5", "");
  EXPECT_EQ(entry.NameIn(Constdef::Language_English), QStringLiteral("OTHER"));
}

TEST_F(TSymbolBoxTest, EnterResolvesWhatWasTyped) {
  Enter("0700.HK");
  EXPECT_EQ(Edit->Hint(), "700");
  EXPECT_EQ(Edit->text(), "700");
  EXPECT_EQ(Heard, QStringList{"700"});
  Enter("9988");
  EXPECT_EQ(Edit->Hint(), "09988");
  EXPECT_EQ(Edit->text(), "09988");
}

TEST_F(TSymbolBoxTest, LeavingTheBoxResolvesWhatWasTyped) {
  Type("harbour tech");
  EXPECT_EQ(Edit->Hint(), "");
  Leave();
  EXPECT_EQ(Edit->Hint(), "700");
  EXPECT_EQ(Edit->text(), "700");
  EXPECT_EQ(Heard, QStringList{"700"});
}

TEST_F(TSymbolBoxTest, AnUnknownSymbolGivesWayAndAHintSaysWhy) {
  Enter("700");
  Enter("12345");
  EXPECT_EQ(Edit->Hint(), "700");
  EXPECT_EQ(Edit->text(), "700");
  EXPECT_TRUE(QToolTip::text().contains("Nothing is listed as 12345."));
  QToolTip::hideText();
  Type("<b>x</b>");
  Leave();
  EXPECT_EQ(Edit->Hint(), "700");
  EXPECT_EQ(Edit->text(), "700");
  EXPECT_TRUE(QToolTip::text().contains("Nothing is listed as &lt;b&gt;x&lt;/b&gt;."))
      << QToolTip::text().toStdString();
}

TEST_F(TSymbolBoxTest, EscapeShowsTheSymbolAgain) {
  Enter("700");
  Type("5");
  Edit->completer()->popup()->hide();
  QTest::keyClick(Edit, Qt::Key_Escape);
  EXPECT_EQ(Edit->text(), "700");
  EXPECT_EQ(Edit->selectedText(), "700");
  Leave();
  EXPECT_EQ(Edit->Hint(), "700");
}

TEST_F(TSymbolBoxTest, ANameThatFitsSeveralOpensTheList) {
  Symbols.Add("11", "HSBC PREF");
  Enter("700");
  Enter("hsbc");
  auto* list = Edit->completer()->popup();
  ASSERT_TRUE(list->isVisible());
  EXPECT_EQ(list->model()->rowCount(), 2);
  EXPECT_EQ(Edit->text(), "hsbc");
  EXPECT_EQ(Edit->Hint(), "700");
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(Edit->Hint(), "11");
}

TEST_F(TSymbolBoxTest, AFullNameThatTwoHaveOpensTheList) {
  Symbols.Add("11", "HSBC HOLDINGS");
  Enter("hsbc holdings");
  EXPECT_TRUE(Edit->completer()->popup()->isVisible());
  EXPECT_EQ(Edit->Hint(), "");
  Edit->completer()->popup()->hide();
  EXPECT_EQ(Symbols.Resolve("11  HSBC HOLDINGS"), "11");
}

TEST_F(TSymbolBoxTest, AClickIntoTheBoxSelectsItsText) {
  Enter("700");
  Leave();
  QTest::mouseClick(Edit, Qt::LeftButton, {}, {20, Edit->height() / 2});
  EXPECT_EQ(Edit->selectedText(), "700");
  QTest::mouseClick(Edit, Qt::LeftButton, {}, {20, Edit->height() / 2});
  EXPECT_EQ(Edit->selectedText(), "") << "the next one places the caret";
}

TEST_F(TSymbolBoxTest, AClearedBoxShowsItsSymbolAgainWhenItIsLeft) {
  Enter("700");
  Edit->selectAll();
  Press(Qt::Key_Delete);
  Leave();
  EXPECT_EQ(Edit->text(), "700");
}

TEST_F(TSymbolBoxTest, ATextThatIsTheHintIsNotResolved) {
  Edit->SetHint("NOT LISTED");
  SetByProgram("NOT LISTED");
  EXPECT_EQ(Edit->Hint(), "NOT LISTED");
  EXPECT_EQ(Edit->text(), "NOT LISTED");
  EXPECT_EQ(Heard, QStringList{"NOT LISTED"});
}

TEST_F(TSymbolBoxTest, AnUnknownSymbolThatCameByProgramGivesWayAtOnce) {
  Enter("700");
  SetByProgram("12345");
  EXPECT_EQ(Edit->Hint(), "700");
  EXPECT_EQ(Edit->text(), "700");
}

TEST_F(TSymbolBoxTest, ASymbolThatTheUserEntersGoesOnToTheGroupAfterItsOwnerHeard) {
  Enter("00700");
  Enter("0700.HK");
  Type("5");
  Leave();
  EXPECT_EQ(Passed, (QStringList{"A:700 after 1", "A:5 after 3"})) << "the same symbol is no news";
}

TEST_F(TSymbolBoxTest, ASymbolThatCameByProgramDoesNotEcho) {
  SetByProgram("00700");
  EXPECT_EQ(Edit->Hint(), "700");
  Type("12");
  SetByProgram("5");
  EXPECT_EQ(Edit->Hint(), "5");
  EXPECT_EQ(Passed, QStringList());
}

TEST_F(TSymbolBoxTest, ABoxOutsideAnyGroupPassesNothingOn) {
  Manager.RegisterSymbolEditor(Edit, "", true, true);
  EXPECT_EQ(Manager.RegistrationCount(), 1U);
  Enter("700");
  Manager.RegisterSymbolEditor(Edit, "B", true, true);
  Enter("5");
  EXPECT_EQ(Passed, QStringList{"B:5 after 2"});
}

TEST_F(TSymbolBoxTest, OffersListedSymbolsAndNamesWhileTheUserTypes) {
  auto* completer = Edit->completer();
  ASSERT_NE(completer, nullptr);
  Type("hsb");
  ASSERT_EQ(completer->completionCount(), 1);
  EXPECT_EQ(completer->currentCompletion(), "5  HSBC HOLDINGS");
  Symbols.Add("11", "HSBX");
  Type("hsb");
  EXPECT_EQ(completer->completionCount(), 2) << "a symbol listed since is offered";
}

TEST_F(TSymbolBoxTest, CompletionsHaveTheNamesOfTheLanguage) {
  Symbols.Add("5", "BANK", "銀行", "银行");
  const auto offered = [this] {
    Type("5");
    return Edit->completer()->currentCompletion();
  };
  EXPECT_EQ(offered(), QStringLiteral("5  BANK"));
  Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  EXPECT_EQ(offered(), QStringLiteral("5  銀行"));
}

TEST_F(TSymbolBoxTest, AnOfferedSymbolIsEnteredByKey) {
  Type("hsb");
  auto* list = Edit->completer()->popup();
  ASSERT_TRUE(list->isVisible());
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(Edit->Hint(), "5");
  EXPECT_EQ(Edit->text(), "5");
  EXPECT_EQ(Passed, QStringList{"A:5 after 1"});
  EXPECT_FALSE(list->isVisible());
}

TEST_F(TSymbolBoxTest, AnOfferedSymbolIsEnteredByMouse) {
  Type("hsb");
  auto* list = Edit->completer()->popup();
  ASSERT_TRUE(list->isVisible());
  const auto entry = list->model()->index(0, 0);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(entry).center());
  EXPECT_TRUE(QTest::qWaitFor([this] { return Edit->Hint() == "5"; }, 2000));
  EXPECT_EQ(Edit->text(), "5");
  EXPECT_EQ(Passed, QStringList{"A:5 after 1"});
}

TEST_F(TSymbolBoxTest, IsAnOrdinaryEditOnceItIsRemoved) {
  Manager.RemoveSymbolEditor(Edit);
  EXPECT_EQ(Manager.RegistrationCount(), 0U);
  EXPECT_EQ(Edit->completer(), nullptr);
  Enter("700");
  EXPECT_EQ(Edit->Hint(), "");
  EXPECT_EQ(Edit->text(), "700");
}

TEST_F(TSymbolBoxTest, MayResolveOnEnterOnly) {
  Manager.RegisterSymbolEditor(Edit, "A", false, false);
  EXPECT_EQ(Edit->completer(), nullptr);
  Type("00700");
  Leave();
  EXPECT_EQ(Edit->Hint(), "");
  Edit->setFocus();
  QTest::keyClick(Edit, Qt::Key_Return);
  EXPECT_EQ(Edit->Hint(), "700");
}

TEST_F(TSymbolBoxTest, MayBeClosedByWhoTakesItsSymbol) {
  auto* second = new TcxPopupEdit;
  Manager.RegisterSymbolEditor(second, "A", true, true);
  Manager.OnUserSymbol = [&](std::string_view, std::string_view) {
    Manager.RemoveSymbolEditor(second);
  };
  QTest::keyClicks(second, "700");
  QTest::keyClick(second, Qt::Key_Return);
  EXPECT_EQ(second->Hint(), "700");
  EXPECT_EQ(Manager.RegistrationCount(), 1U);
  delete second;
}

TEST(SymbolBoxes, ABoxThatDiesIsForgotten) {
  TSymbolDirectory symbols;
  Terminal::TLanguageTexts languages;
  TSymbolEditors manager(symbols, languages);
  {
    TcxPopupEdit edit;
    manager.RegisterSymbolEditor(&edit, "A", true, true);
    EXPECT_EQ(manager.RegistrationCount(), 1U);
  }
  EXPECT_EQ(manager.RegistrationCount(), 0U);
}

} // namespace
