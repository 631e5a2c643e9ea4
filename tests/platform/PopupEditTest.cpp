#include "platform/PopupEdit.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QFocusEvent>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Platform;

namespace {

/// An edit beside another one; what the edit tells is written down in order.
class TPopupEditTest : public ::testing::Test {
protected:
  QWidget Window;
  TcxPopupEdit* Edit = new TcxPopupEdit;
  QLineEdit* Other = new QLineEdit;
  QStringList Told;

  TPopupEditTest() {
    auto* layout = new QVBoxLayout(&Window);
    layout->addWidget(Edit);
    layout->addWidget(Other);
    Edit->Resolver = [this] {
      Told << "resolve " + Edit->text();
      Edit->SetHint(Edit->text());
    };
    QObject::connect(Edit, &TcxPopupEdit::Exited, Edit, [this] { Told << "exit"; });
    QObject::connect(Edit, &TcxPopupEdit::KeyDown, Edit,
                     [this](int key) { Told << QString("down %1 %2").arg(key).arg(Edit->text()); });
    QObject::connect(Edit, &TcxPopupEdit::KeyPress, Edit, [this](int character) {
      Told << QString("press %1 %2").arg(character).arg(Edit->text());
    });
  }

  void SetUp() override {
    Window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window));
    Edit->setFocus();
    ASSERT_TRUE(Edit->hasFocus());
  }
};

} // namespace

TEST_F(TPopupEditTest, EnterResolvesBeforeTheOwnerHears) {
  Edit->setText("700");
  QTest::keyClick(Edit, Qt::Key_Return);
  EXPECT_EQ(Told, QStringList({"resolve 700", "down 13 700", "press 13 700"}));
  Told.clear();
  QTest::keyClick(Edit, Qt::Key_Enter);
  EXPECT_EQ(Told, QStringList({"resolve 700", "down 13 700", "press 13 700"}));
}

TEST_F(TPopupEditTest, EnterIsUsedUpByTheBox) {
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
  QApplication::sendEvent(Edit, &enter);
  EXPECT_TRUE(enter.isAccepted());
}

TEST_F(TPopupEditTest, OtherKeysGoToTheBoxBetweenDownAndPress) {
  QTest::keyClick(Edit, Qt::Key_7);
  EXPECT_EQ(Told, QStringList({"down 55 ", "press 55 7"}));
  Told.clear();
  QTest::keyClick(Edit, Qt::Key_Left);
  EXPECT_EQ(Told, QStringList({QString("down %1 7").arg(Qt::Key_Left)}));
  EXPECT_EQ(Edit->cursorPosition(), 0);
  QTest::keyClick(Edit, Qt::Key_Right);
  Told.clear();
  QKeyEvent backspace(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier, "\b");
  QApplication::sendEvent(Edit, &backspace);
  EXPECT_EQ(Told, QStringList({QString("down %1 7").arg(Qt::Key_Backspace)})); // no character
  EXPECT_EQ(Edit->text(), "");
}

TEST_F(TPopupEditTest, LeavingByFocusResolvesAndTellsOnce) {
  Edit->setText("5");
  Other->setFocus();
  EXPECT_EQ(Told, QStringList({"resolve 5", "exit"}));
  EXPECT_EQ(Edit->Hint(), "5");
  Edit->setFocus();
  EXPECT_EQ(Told.size(), 2);
}

TEST_F(TPopupEditTest, EnterThenLeavingTellsEachOnce) {
  Edit->setText("5");
  QTest::keyClick(Edit, Qt::Key_Return);
  Other->setFocus();
  EXPECT_EQ(Told.count("exit"), 1);
  EXPECT_EQ(Told.count("resolve 5"), 2);
}

TEST_F(TPopupEditTest, PerformExitDoesNotMoveTheFocus) {
  Edit->setText("388");
  Edit->PerformExit();
  EXPECT_EQ(Told, QStringList({"resolve 388", "exit"}));
  EXPECT_TRUE(Edit->hasFocus());
}

TEST_F(TPopupEditTest, APopupOrAnotherWindowIsNoLeaving) {
  for (const auto reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
    QFocusEvent event(QEvent::FocusOut, reason);
    QApplication::sendEvent(Edit, &event);
    EXPECT_TRUE(Told.isEmpty()) << reason;
  }
  QFocusEvent tab(QEvent::FocusOut, Qt::TabFocusReason);
  QApplication::sendEvent(Edit, &tab);
  EXPECT_EQ(Told, QStringList({"resolve ", "exit"}));
}

TEST_F(TPopupEditTest, WithoutResolverTheHintStays) {
  Edit->Resolver = nullptr;
  Edit->SetHint("1");
  Edit->setText("999");
  Edit->PerformExit();
  EXPECT_EQ(Edit->Hint(), "1");
  EXPECT_EQ(Told, QStringList({"exit"}));
}

TEST_F(TPopupEditTest, ACompletionListIsNoLeaving) {
  Edit->setCompleter(new QCompleter(QStringList{"700", "701"}, Edit));
  QTest::keyClicks(Edit, "70");
  ASSERT_TRUE(Edit->completer()->popup()->isVisible());
  EXPECT_EQ(Told.count("exit"), 0);
  Edit->completer()->popup()->hide();
  EXPECT_EQ(Told.count("exit"), 0);
}

TEST_F(TPopupEditTest, EnterResolvesTheChosenCompletion) {
  Edit->setCompleter(new QCompleter(QStringList{"700", "701"}, Edit));
  QTest::keyClicks(Edit, "70");
  QAbstractItemView* list = Edit->completer()->popup();
  ASSERT_TRUE(list->isVisible());
  list->setCurrentIndex(list->model()->index(1, 0));
  Told.clear();
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(Told, QStringList({"resolve 701", "down 13 701", "press 13 701"}));
  EXPECT_FALSE(list->isVisible());
  EXPECT_EQ(Edit->text(), "701");
}

TEST_F(TPopupEditTest, ACompletionDoesNotOverwriteTheResolvedText) {
  Edit->setCompleter(new QCompleter(QStringList{"700 First", "701 Second"}, Edit));
  Edit->Resolver = [this] { Edit->setText(Edit->text().section(' ', 0, 0)); };
  QTest::keyClicks(Edit, "70");
  QAbstractItemView* list = Edit->completer()->popup();
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(Edit->text(), "700");
}

TEST_F(TPopupEditTest, EnterKeepsWhatWasTypedWhenNoCompletionIsChosen) {
  Edit->setCompleter(new QCompleter(QStringList{"700", "701"}, Edit));
  QTest::keyClicks(Edit, "70");
  Told.clear();
  QTest::keyClick(Edit->completer()->popup(), Qt::Key_Return);
  EXPECT_EQ(Told.value(0), "resolve 70");
  EXPECT_FALSE(Edit->completer()->popup()->isVisible());
}
