#include "platform/HintController.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

using namespace Platform;

namespace {

class THintTest : public ::testing::Test {
protected:
  QWidget Owner;
  TcxHintStyleController Hints{&Owner};

  QLabel& Window() { return *Owner.findChild<QLabel*>(); }
  QRect Screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }
};

} // namespace

TEST_F(THintTest, NoCaptionWhileNoneIsShown) {
  EXPECT_TRUE(Hints.VisibleCaption().isNull());
  Hints.ShowHint(10, 10, "Some Broker", "", 0);
  EXPECT_EQ(Hints.VisibleCaption(), "Some Broker");
  Hints.HideHint();
  EXPECT_TRUE(Hints.VisibleCaption().isNull());
  Hints.HideHint();
  EXPECT_TRUE(Hints.VisibleCaption().isNull());
}

TEST_F(THintTest, AHintWithoutCaptionHasAnEmptyOne) {
  Hints.ShowHint(10, 10, QString(), "text", 0);
  EXPECT_FALSE(Hints.VisibleCaption().isNull());
  EXPECT_EQ(Hints.VisibleCaption(), "");
  EXPECT_EQ(Window().text(), "text");
}

TEST_F(THintTest, ALaterHintTakesThePlace) {
  Hints.ShowHint(10, 10, "First", "", 0);
  Hints.ShowHint(200, 100, "Second", "", 0);
  EXPECT_EQ(Hints.VisibleCaption(), "Second");
  EXPECT_GT(Window().x(), 200);
  EXPECT_GT(Window().y(), 100);
}

TEST_F(THintTest, StaysOnTheScreen) {
  const QPoint corner = Screen().bottomRight();
  Hints.ShowHint(corner.x(), corner.y(), "A broker with a long name", "", 0);
  EXPECT_EQ(Screen() & Window().geometry(), Window().geometry());
  EXPECT_LT(Window().geometry().bottom(), corner.y()); // above the pointer, not under it
  Hints.ShowHint(-500, -500, "A broker", "", 0);
  EXPECT_TRUE(Screen().contains(Window().geometry()));
}

TEST_F(THintTest, TheCaptionStandsInBoldAboveTheText) {
  Hints.ShowHint(10, 10, "Caption", "", 0);
  const int oneLine = Window().height();
  EXPECT_EQ(Window().text(), "Caption");
  Hints.ShowHint(10, 10, "Cap<tion", "text", 0);
  EXPECT_GT(Window().height(), oneLine + oneLine / 3);
  const QString shown = Window().text();
  EXPECT_TRUE(shown.contains("<b>Cap&lt;tion</b>")) << shown.toStdString();
  EXPECT_LT(shown.indexOf("Cap"), shown.lastIndexOf("text"));
}

TEST_F(THintTest, TakesTheFontsOfTheMoment) {
  Hints.CaptionFont.setPointSize(9);
  Hints.ShowHint(10, 10, "Caption", "", 0);
  const int small = Window().height();
  Hints.CaptionFont.setPointSize(22);
  Hints.ShowHint(10, 10, "Caption", "", 0);
  EXPECT_GT(Window().height(), small + 10);
}

TEST_F(THintTest, WrapsAtTheMaximumWidth) {
  const QString text = "several words that do not fit into one short line of a hint";
  Hints.ShowHint(10, 10, "", text, 0);
  const QSize free = Window().size();
  ASSERT_GT(free.width(), 120);
  Hints.ShowHint(10, 10, "", text, 120);
  EXPECT_EQ(Window().width(), 120);
  EXPECT_GT(Window().height(), free.height());
  Hints.ShowHint(10, 10, "", "short", 120);
  EXPECT_LT(Window().width(), 120);
  EXPECT_EQ(Window().height(), free.height());
  Hints.ShowHint(10, 10, "", text, 120);
  Hints.ShowHint(10, 10, "", text, 0);
  EXPECT_EQ(Window().size(), free);
}

TEST_F(THintTest, TakesNeitherFocusNorMouse) {
  QLineEdit edit(&Owner);
  Owner.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Owner));
  edit.setFocus();
  Hints.ShowHint(10, 10, "Caption", "", 0);
  QApplication::processEvents();
  EXPECT_TRUE(edit.hasFocus());
  EXPECT_EQ(QApplication::activeWindow(), &Owner);
  EXPECT_TRUE(Window().testAttribute(Qt::WA_TransparentForMouseEvents));
  EXPECT_TRUE(Window().windowHandle()->flags() & Qt::WindowTransparentForInput);
}

TEST(HintController, TakesItsWindowAlong) {
  QWidget owner;
  {
    TcxHintStyleController hints(&owner);
    hints.ShowHint(10, 10, "Caption", "", 0);
    ASSERT_TRUE(owner.findChild<QLabel*>());
  }
  EXPECT_FALSE(owner.findChild<QLabel*>());
}
