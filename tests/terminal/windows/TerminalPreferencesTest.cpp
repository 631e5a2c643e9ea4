#include "terminal/windows/TerminalPreferences.h"

#include "host/ConstDef.h"
#include "terminal/script/input/Input.h"
#include "terminal/services/Services.h"

#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QSpinBox>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

class TTerminalPreferencesTest : public testing::Test {
protected:
  TTerminalPreferencesTest() { Show(); }

  /// A page of a new start.
  void Show() {
    Page = std::make_unique<TTerminalPage>(
        Services.Config, TShortcuts{{"Res_ActiveQuorPrice", 0}},
        [this](const QKeySequence& key) { return key == Used ? "Open recording" : QString(); });
    Page->Widget()->show();
    Input::Activate(Page->Widget());
  }

  template <typename TBox> TBox* Box(const char* name = nullptr) {
    return name ? Page->Widget()->findChild<TBox*>(QLatin1String(name))
                : Page->Widget()->findChild<TBox*>();
  }
  QLineEdit* Edit(const char* name) { return Box<QLineEdit>(name); }
  std::string Stored(std::string_view section, std::string_view key) {
    return Services.Config.ReadString(section, key);
  }
  std::string Caption(int number) {
    return Stored(Constdef::Section_QtyButtonCaption, "Btn" + std::to_string(number));
  }
  std::string Current(std::string_view key) {
    return Stored(Services.Config.CurrentSection(), key);
  }
  QString Key() { return Box<QKeySequenceEdit>()->keySequence().toString(); }
  void PressKey(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    Box<QKeySequenceEdit>()->setFocus();
    Input::PressKey(Box<QKeySequenceEdit>(), key, held);
  }

  TServices Services;
  const QKeySequence Used{Qt::CTRL | Qt::Key_O};
  std::unique_ptr<TTerminalPage> Page;
};

TEST_F(TTerminalPreferencesTest, StoresWhatIsTypedWherePriceViewsReadIt) {
  Input::Type(Edit("caption1"), QStringLiteral("1,000"));
  Input::Type(Edit("caption10"), QStringLiteral("2M"));
  Input::Type(Edit("concealedExchanges"), QStringLiteral(" hkg, ,szx"));
  Box<QSpinBox>("updateInterval")->setValue(500);
  Box<QSpinBox>("denominatorMode")->setValue(3);
  EXPECT_EQ(Caption(1), "") << "before it is saved";
  Page->Execute();
  EXPECT_EQ(Caption(1), "1,000");
  EXPECT_EQ(Caption(2), "");
  EXPECT_EQ(Caption(10), "2M");
  EXPECT_EQ(Current("ConcealMktDataByExch"), "HKG,SZX");
  EXPECT_EQ(Current("QuorPriceUpdateInterval"), "500");
  EXPECT_EQ(Current("DenominatorModeValue"), "3");
  Show();
  EXPECT_EQ(Edit("caption10")->text(), QStringLiteral("2M"));
  EXPECT_EQ(Edit("concealedExchanges")->text(), QStringLiteral("HKG,SZX"));
  EXPECT_EQ(Box<QSpinBox>("updateInterval")->value(), 500);
  EXPECT_EQ(Box<QSpinBox>("denominatorMode")->value(), 3);
}

TEST_F(TTerminalPreferencesTest, StoresNothingThatWasNotChanged) {
  Services.Config.WriteString(Constdef::Section_QtyButtonCaption, "Btn2", "some", false);
  Page->Reset();
  int stored = 0;
  Services.Config.OnStore = [&stored](const auto& values) { stored += int(values.size()); };
  Page->Execute();
  EXPECT_EQ(stored, 0);
  Input::Type(Edit("caption3"), QStringLiteral("5K"));
  Page->Execute();
  EXPECT_EQ(stored, 1);
  EXPECT_EQ(Caption(2), "some");
  Services.Config.OnStore = nullptr;
}

TEST_F(TTerminalPreferencesTest, TakesQuantitiesOnlyForCaptions) {
  for (const auto& [typed, taken] : {std::pair("0", ""), {"1.5K", "15K"}, {"x20k", "20k"}}) {
    Edit("caption1")->clear();
    Input::Type(Edit("caption1"), QLatin1String(typed));
    EXPECT_EQ(Edit("caption1")->text(), QLatin1String(taken)) << typed;
  }
}

TEST_F(TTerminalPreferencesTest, ShowsTheStoredValuesOrThoseOfANewStart) {
  Input::Type(Edit("caption1"), QStringLiteral("9"));
  Page->Reset();
  EXPECT_EQ(Edit("caption1")->text(), QString());
  Page->ResetFactory();
  EXPECT_EQ(Edit("caption1")->text(), QStringLiteral("100"));
  EXPECT_EQ(Edit("caption10")->text(), QStringLiteral("500K"));
  EXPECT_EQ(Box<QSpinBox>("updateInterval")->value(), 50);
  EXPECT_EQ(Key(), QStringLiteral("Ctrl+L"));
  EXPECT_EQ(Caption(1), "");
}

TEST_F(TTerminalPreferencesTest, TakesTheKeyThatIsPressed) {
  PressKey(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Key(), QStringLiteral("Ctrl+Shift+P"));
  PressKey(Qt::Key_F9);
  EXPECT_EQ(Key(), QStringLiteral("F9"));
  for (const auto typed : {Qt::Key_7, Qt::Key_Escape, Qt::Key_Return, Qt::Key_Control})
    PressKey(typed);
  EXPECT_EQ(Key(), QStringLiteral("F9"));
  Page->Execute();
  EXPECT_EQ(Stored("Shortcuts", "Res_ActiveQuorPrice"), "F9");
  PressKey(Qt::Key_Backspace);
  EXPECT_EQ(Key(), QString());
  Page->Execute();
  EXPECT_EQ(Stored("Shortcuts", "Res_ActiveQuorPrice"), "");
}

TEST_F(TTerminalPreferencesTest, SaysThatAKeyIsInUseAndDoesNotTakeIt) {
  PressKey(Qt::Key_F9);
  Page->Execute();
  const auto* use = Box<QLabel>("keyUse");
  EXPECT_TRUE(use->isHidden());
  PressKey(Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(use->text(), QStringLiteral("In use already: Open recording"));
  EXPECT_FALSE(use->isHidden());
  Page->Execute();
  EXPECT_EQ(Stored("Shortcuts", "Res_ActiveQuorPrice"), "F9");
  EXPECT_EQ(Key(), QStringLiteral("F9"));
}

TEST_F(TTerminalPreferencesTest, SpeaksTheLanguage) {
  const auto texts = [this] {
    QStringList shown;
    for (const auto* label : Page->Widget()->findChildren<QLabel*>())
      shown.append(label->text());
    return shown;
  };
  EXPECT_TRUE(texts().contains(QStringLiteral("Go to price view")));
  Services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  Page->SetLanguage(Constdef::Language_TraditionalChinese);
  EXPECT_TRUE(texts().contains(QStringLiteral("切換至報價")));
  EXPECT_TRUE(texts().contains(QStringLiteral("適用於其後開啟的報價")));
  EXPECT_EQ(Box<QSpinBox>("updateInterval")->suffix(), QStringLiteral(" 毫秒"));
}

TEST(WindowDefaults, AreLoadedWhereNothingWasStored) {
  TServices services;
  auto& config = services.Config;
  config.Load("QuorPrcBtnCaption", "Btn2", "700");
  config.Load("Shortcuts", "Res_ActiveQuorPrice", "");
  for (const auto& value : WindowDefaults({{"Res_ActiveQuorPrice", 0}, {"Other", Qt::Key_F4}}))
    config.LoadDefault(value);
  EXPECT_EQ(config.ReadString("QuorPrcBtnCaption", "Btn1"), "100");
  EXPECT_EQ(config.ReadString("QuorPrcBtnCaption", "Btn2"), "700");
  EXPECT_EQ(ShortcutKey(config, "Res_ActiveQuorPrice"), QKeySequence());
  EXPECT_EQ(ShortcutKey(config, "Other"), QKeySequence(Qt::Key_F4));
}

} // namespace
} // namespace Terminal
