#include "terminal/script/input/Input.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QShortcut>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

/// Writes down what input reaches it.
class TRecorder : public QWidget {
public:
  struct TMouse {
    QEvent::Type Type;
    QPoint Position;
    Qt::MouseButtons Pressed;
    quint64 Time;
  };

  struct TKey {
    QEvent::Type Type;
    int Key;
    QString Text;
  };

  TRecorder() { setFocusPolicy(Qt::ClickFocus); }

  std::vector<TMouse> Mouse;
  std::vector<TKey> Keys;
  int FromProgram = 0; ///< events that say that no window system sent them

protected:
  bool event(QEvent* event) override {
    const bool isInput = dynamic_cast<QMouseEvent*>(event) || event->type() == QEvent::KeyPress ||
                         event->type() == QEvent::KeyRelease;
    FromProgram += isInput && !event->spontaneous();
    if (const auto* mouse = dynamic_cast<QMouseEvent*>(event))
      Mouse.push_back(
          {event->type(), mouse->position().toPoint(), mouse->buttons(), mouse->timestamp()});
    if (const auto* key = dynamic_cast<QKeyEvent*>(event))
      Keys.push_back({event->type(), key->key(), key->text()});
    if (isInput)
      event->accept();
    return isInput || QWidget::event(event);
  }
};

class TScriptInputTest : public testing::Test {
protected:
  TScriptInputTest() {
    auto* column = new QVBoxLayout(&Window);
    for (auto* widget : {static_cast<QWidget*>(Edit), static_cast<QWidget*>(Recorder)})
      column->addWidget(widget);
    Window.resize(200, 200);
    Window.show();
    Input::Deliver();
  }

  QWidget Window;
  QLineEdit* Edit = new QLineEdit;
  TRecorder* Recorder = new TRecorder;
};

TEST_F(TScriptInputTest, AClickIsAPressAndAReleaseOfTheWindowSystem) {
  Input::Click(Recorder, {7, 9});
  ASSERT_EQ(Recorder->Mouse.size(), 2u);
  EXPECT_EQ(Recorder->Mouse[0].Type, QEvent::MouseButtonPress);
  EXPECT_EQ(Recorder->Mouse[0].Pressed, Qt::LeftButton);
  EXPECT_EQ(Recorder->Mouse[1].Type, QEvent::MouseButtonRelease);
  EXPECT_EQ(Recorder->Mouse[1].Pressed, Qt::NoButton);
  for (const auto& mouse : Recorder->Mouse)
    EXPECT_EQ(mouse.Position, QPoint(7, 9));
  EXPECT_EQ(Recorder->FromProgram, 0);
  EXPECT_TRUE(Recorder->hasFocus());
}

TEST_F(TScriptInputTest, AClickReachesWhatTheWindowCutsOff) {
  Recorder->setFixedSize(300, 300);
  Window.setFixedSize(100, 100);
  Input::Deliver();
  ASSERT_EQ(Window.childAt(Recorder->mapTo(&Window, QPoint(290, 290))), nullptr);
  Input::Click(Recorder, {290, 290});
  ASSERT_EQ(Recorder->Mouse.size(), 2u);
  for (const auto& mouse : Recorder->Mouse)
    EXPECT_EQ(mouse.Position, QPoint(290, 290));
  EXPECT_EQ(Recorder->FromProgram, 0);
  EXPECT_TRUE(Recorder->hasFocus());
  EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

TEST_F(TScriptInputTest, TwoClicksAreNoDoubleClick) {
  Input::Click(Recorder);
  Input::Click(Recorder);
  ASSERT_EQ(Recorder->Mouse.size(), 4u);
  EXPECT_EQ(Recorder->Mouse[2].Type, QEvent::MouseButtonPress);
  EXPECT_GT(Recorder->Mouse[2].Time,
            Recorder->Mouse[0].Time + static_cast<quint64>(QApplication::doubleClickInterval()));
}

TEST_F(TScriptInputTest, TheMouseMovesOverWhatFollowsItAgainAndAgain) {
  Input::MoveMouse(Recorder, {5, 5});
  EXPECT_TRUE(Recorder->Mouse.empty());
  Recorder->setMouseTracking(true);
  Input::MoveMouse(Recorder, {5, 5});
  Input::MoveMouse(Recorder, {5, 5});
  ASSERT_EQ(Recorder->Mouse.size(), 2u);
  EXPECT_EQ(Recorder->Mouse[1].Type, QEvent::MouseMove);
  EXPECT_EQ(Recorder->Mouse[1].Pressed, Qt::NoButton);
  EXPECT_EQ(Recorder->FromProgram, 0);
}

TEST_F(TScriptInputTest, AKeyIsOfTheWindowSystemAndGoesWhereTheFocusIs) {
  Recorder->setFocus();
  Input::PressKey(Recorder, Qt::Key_Return);
  ASSERT_EQ(Recorder->Keys.size(), 3u);
  EXPECT_EQ(Recorder->Keys[0].Type, QEvent::ShortcutOverride);
  EXPECT_EQ(Recorder->Keys[1].Type, QEvent::KeyPress);
  EXPECT_EQ(Recorder->Keys[1].Key, Qt::Key_Return);
  EXPECT_EQ(Recorder->Keys[1].Text, QStringLiteral("\r"));
  EXPECT_EQ(Recorder->Keys[2].Type, QEvent::KeyRelease);
  EXPECT_EQ(Recorder->FromProgram, 0);
}

TEST_F(TScriptInputTest, AShortcutIsBeforeTheFocus) {
  int asked = 0;
  QShortcut shortcut(QKeySequence(Qt::Key_F4), &Window);
  QObject::connect(&shortcut, &QShortcut::activated, [&asked] { ++asked; });
  Input::Click(Recorder);
  Input::PressKey(Recorder, Qt::Key_F4);
  EXPECT_EQ(asked, 1);
  for (const auto& key : Recorder->Keys)
    EXPECT_NE(key.Type, QEvent::KeyPress);
}

TEST_F(TScriptInputTest, TypingReplacesWhatIsThereWithAnyCharacter) {
  for (const char* text : {"0700.hk", "騰訊 a,\"B\"", "é~{", ""}) {
    Edit->setText(QStringLiteral("old"));
    Input::Type(Edit, QString::fromUtf8(text));
    EXPECT_EQ(Edit->text(), QString::fromUtf8(text));
  }
  EXPECT_EQ(QGuiApplication::keyboardModifiers(), Qt::NoModifier);
}

TEST_F(TScriptInputTest, AContextMenuIsChosenFromAndGoes) {
  int chosen = 0;
  QAction other;
  QAction* first = Recorder->addAction(QString(), [&chosen] { chosen = 1; });
  QAction* second = Recorder->addAction(QStringLiteral("Second"), [&chosen] { chosen = 2; });
  Recorder->setContextMenuPolicy(Qt::CustomContextMenu);
  QMenu menu;
  menu.addActions({first, second});
  QObject::connect(Recorder, &QWidget::customContextMenuRequested,
                   [&](const QPoint& at) { menu.popup(Recorder->mapToGlobal(at)); });
  EXPECT_TRUE(Input::ChooseFromContextMenu(Recorder, second));
  EXPECT_EQ(chosen, 2);
  EXPECT_FALSE(Input::ChooseFromContextMenu(Recorder, &other));
  EXPECT_EQ(chosen, 2);
  EXPECT_FALSE(menu.isVisible());
  EXPECT_FALSE(Input::ChooseFromContextMenu(Edit->parentWidget(), second));
}

} // namespace
} // namespace Terminal
