#include "terminal/windows/PreferenceDialog.h"

#include "host/ConstDef.h"
#include "terminal/script/input/Input.h"
#include "terminal/services/Services.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <QtTest>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

/// A page with an edit and a table, that writes down what it is told.
class TPage : public Baseview::TBasePreferenceFrame {
public:
  TPage() {
    auto* column = new QVBoxLayout(&Content);
    column->addWidget(Edit = new QLineEdit);
    column->addWidget(Table = new QTableWidget(2, 1));
    Table->setTabKeyNavigation(false);
  }

  QWidget* Widget() override { return &Content; }
  int GetWidth() override { return 300; }
  int GetHeight() override { return 200; }
  bool SetLanguage(int language) override { return Tell("language" + std::to_string(language)); }
  bool Execute() override { return Tell("execute"); }
  bool Reset() override { return Tell("reset"); }
  bool ResetFactory() override { return Tell("factory"); }
  bool SendMessage(int, std::int64_t) override { return true; }

  QWidget Content;
  QLineEdit* Edit;
  QTableWidget* Table;
  std::vector<std::string> Told;

private:
  bool Tell(const std::string& what) {
    Told.push_back(what);
    return true;
  }
};

class TPreferences : public Baseview::TIBasePreferenceView {
public:
  explicit TPreferences(std::string name) : TIBasePreferenceView(nullptr), name_(std::move(name)) {
    auto page = std::make_unique<TPage>();
    Page = page.get();
    AddView(std::move(page));
  }

  std::string GetName() override { return name_; }
  std::vector<Baseview::TBasePreferenceFrame*> GetView() override { return {Page}; }

  TPage* Page;

private:
  std::string name_;
};

class TPreferenceDialogTest : public testing::Test {
protected:
  TPreferenceDialogTest() {
    Dialog.ShowPage();
    Input::Activate(&Dialog);
    First.Told.clear();
    Second.Told.clear();
  }

  QListWidget* Names() { return Dialog.findChild<QListWidget*>(); }

  /// A button that is pressed by its key stays down for a moment.
  void Alt(Qt::Key key) {
    Input::PressKey(&Dialog, key, Qt::AltModifier);
    const auto buttons = Dialog.findChildren<QPushButton*>();
    EXPECT_TRUE(QTest::qWaitFor([&] {
      return std::none_of(buttons.begin(), buttons.end(),
                          [](const auto* button) { return button->isDown(); });
    }));
  }

  using TTold = std::vector<std::string>;

  TServices Services;
  TPreferences One{"Price"};
  TPreferences Two{"News"};
  TPage& First = *One.Page;
  TPage& Second = *Two.Page;
  TPreferenceDialog Dialog{Services.Config, {&One, nullptr, &Two}};
};

TEST_F(TPreferenceDialogTest, ListsThePagesOfAllPackagesAndShowsTheOneChosen) {
  ASSERT_EQ(Names()->count(), 2);
  EXPECT_EQ(Names()->item(0)->text(), QStringLiteral("Price"));
  EXPECT_EQ(Names()->item(1)->text(), QStringLiteral("News"));
  EXPECT_TRUE(First.Content.isVisible());
  EXPECT_FALSE(Second.Content.isVisible());
  Names()->setFocus();
  Input::PressKey(Names(), Qt::Key_Down);
  EXPECT_FALSE(First.Content.isVisible());
  EXPECT_TRUE(Second.Content.isVisible());
  EXPECT_EQ(Dialog.Page(), &Second);
}

TEST_F(TPreferenceDialogTest, OkSavesEveryPageAndCloses) {
  Alt(Qt::Key_O);
  EXPECT_EQ(First.Told, TTold{"execute"});
  EXPECT_EQ(Second.Told, TTold{"execute"});
  EXPECT_FALSE(Dialog.isVisible());
}

TEST_F(TPreferenceDialogTest, ApplySavesAndStays) {
  Alt(Qt::Key_A);
  EXPECT_EQ(First.Told, TTold{"execute"});
  EXPECT_EQ(Second.Told, TTold{"execute"});
  EXPECT_TRUE(Dialog.isVisible());
}

TEST_F(TPreferenceDialogTest, CancelAndEscapeShowTheSavedValuesAgain) {
  Alt(Qt::Key_C);
  EXPECT_EQ(First.Told, TTold{"reset"});
  EXPECT_EQ(Second.Told, TTold{"reset"});
  EXPECT_FALSE(Dialog.isVisible());
  Dialog.ShowPage();
  First.Told.clear();
  Input::PressKey(First.Edit, Qt::Key_Escape);
  EXPECT_EQ(First.Told, TTold{"reset"});
  EXPECT_FALSE(Dialog.isVisible());
}

TEST_F(TPreferenceDialogTest, ResetAndDefaultsAreForThePageThatIsShown) {
  Alt(Qt::Key_R);
  Alt(Qt::Key_D);
  EXPECT_EQ(First.Told, (TTold{"reset", "factory"}));
  EXPECT_TRUE(Second.Told.empty());
  EXPECT_TRUE(Dialog.isVisible());
}

TEST_F(TPreferenceDialogTest, EnterInAnEditIsOk) {
  First.Edit->setFocus();
  Input::PressKey(First.Edit, Qt::Key_Return);
  EXPECT_EQ(First.Told, TTold{"execute"});
  EXPECT_FALSE(Dialog.isVisible());
}

TEST_F(TPreferenceDialogTest, EnterThatEndsTheEditingOfACellLeavesTheDialogOpen) {
  First.Table->setFocus();
  First.Table->setCurrentCell(0, 0);
  First.Table->edit(First.Table->currentIndex());
  auto* editor = First.Table->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  Input::Type(editor, QStringLiteral("1234"));
  Input::PressKey(editor, Qt::Key_Return);
  Input::Deliver();
  EXPECT_TRUE(Dialog.isVisible());
  ASSERT_NE(First.Table->item(0, 0), nullptr);
  EXPECT_EQ(First.Table->item(0, 0)->text(), QStringLiteral("1234"));
  EXPECT_TRUE(First.Told.empty());
}

TEST_F(TPreferenceDialogTest, TheTabKeyGoesFromTheListThroughThePageToTheButtons) {
  Names()->setFocus();
  const auto next = [] {
    Input::PressKey(QApplication::focusWidget(), Qt::Key_Tab);
    return QApplication::focusWidget();
  };
  EXPECT_EQ(next(), First.Edit);
  EXPECT_EQ(next(), First.Table);
  std::set<QWidget*> buttons;
  for (auto* widget = next(); widget != Names() && buttons.size() < 10; widget = next())
    buttons.insert(widget);
  for (const auto which : {QDialogButtonBox::Ok, QDialogButtonBox::Apply, QDialogButtonBox::Reset,
                           QDialogButtonBox::RestoreDefaults, QDialogButtonBox::Cancel})
    EXPECT_EQ(buttons.count(Dialog.Button(which)), 1u) << which;
}

TEST_F(TPreferenceDialogTest, AltKeysServeInEveryLanguage) {
  for (const int language : {1, 2, 3}) {
    Services.Languages.SetLanguage(language);
    Dialog.SetLanguage(language);
    First.Told.clear();
    Alt(Qt::Key_A);
    EXPECT_EQ(First.Told, TTold{"execute"}) << language;
  }
  EXPECT_EQ(Dialog.Button(QDialogButtonBox::Apply)->text(), QStringLiteral("&Apply"));
  Services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  Dialog.SetLanguage(Constdef::Language_TraditionalChinese);
  EXPECT_EQ(Dialog.Button(QDialogButtonBox::Ok)->text(), QStringLiteral("確定(&O)"));
  EXPECT_EQ(Dialog.windowTitle(), QStringLiteral("喜好設定"));
}

} // namespace
} // namespace Terminal
