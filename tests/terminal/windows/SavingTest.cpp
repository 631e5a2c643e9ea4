#include "host/ConstDef.h"
#include "terminal/windows/CaptionBar.h"
#include "terminal/windows/WindowFixture.h"

#include <QDockWidget>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>

namespace Terminal {
namespace {

class TSavingTest : public TWindowTest {
protected:
  /// The window of a new start, with what the former one left.
  std::unique_ptr<TMainWindow> NextWindow() {
    Services.Config.SetLayoutReady(false);
    auto window = NewWindow();
    window->RestoreViews("Symbol=1");
    return window;
  }

  std::string FirstSaved() const {
    const auto views = State.Layout().Views;
    return views.empty() ? std::string() : views.front().LayoutData;
  }

  static std::vector<QDockWidget*> ViewDocks(const TMainWindow& window) {
    std::vector<QDockWidget*> docks;
    for (int number = 1;
         auto* dock = window.findChild<QDockWidget*>(QStringLiteral("view%1").arg(number));
         ++number)
      docks.push_back(dock);
    return docks;
  }

  /// With the middle of its upper edge, where it is taken hold of.
  static bool IsOnTheScreen(const QWidget& widget) {
    const QRect place = widget.geometry();
    return QGuiApplication::primaryScreen()->availableGeometry().contains(
        QPoint(place.center().x(), place.top()));
  }
};

TEST_F(TSavingTest, ALayoutThatAViewAnnouncesIsSaved) {
  const auto window = NextWindow();
  window->Views().Open("Symbol=5");
  Descriptor.Last->Layout = "Symbol=6";
  Baseview::SendViewNotify(Descriptor.Last, Constdef::Notify_LayoutChanged);
  ASSERT_TRUE(QTest::qWaitFor([&] { return State.Layout().Views.size() == 2; }));
  EXPECT_EQ(State.Layout().Views[0].LayoutData, "Symbol=1");
  EXPECT_EQ(State.Layout().Views[1].LayoutData, "Symbol=6");
  EXPECT_FALSE(State.Layout().Geometry.isEmpty());
  EXPECT_FALSE(State.Layout().Docks.isEmpty());
}

TEST_F(TSavingTest, ViewsThatNeverRestAreSavedAllTheSame) {
  const auto window = NextWindow();
  Descriptor.Last->Layout = "Symbol=6";
  QTimer restless;
  QObject::connect(&restless, &QTimer::timeout, [&] {
    Baseview::SendViewNotify(Descriptor.Last, Constdef::Notify_LayoutChanged);
  });
  restless.start(5);
  EXPECT_TRUE(QTest::qWaitFor([&] { return FirstSaved() == "Symbol=6"; }));
}

TEST_F(TSavingTest, TheChoiceOfALinkingGroupIsSaved) {
  const auto window = NextWindow();
  ASSERT_TRUE(QTest::qWaitFor([&] { return FirstSaved() == "Symbol=1"; }));
  Descriptor.Last->Layout = "Symbol=6";
  emit window->findChild<TCaptionBar*>()->GroupChosen(QStringLiteral("A"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return FirstSaved() == "Symbol=6"; }));
}

TEST_F(TSavingTest, MovingTheWindowIsSaved) {
  const auto window = NextWindow();
  window->show();
  ASSERT_TRUE(QTest::qWaitFor([&] { return FirstSaved() == "Symbol=1"; }));
  Descriptor.Last->Layout = "Symbol=6";
  window->move(30, 40);
  EXPECT_TRUE(QTest::qWaitFor([&] { return FirstSaved() == "Symbol=6"; }));
}

TEST_F(TSavingTest, ALayoutThatNoViewAnnouncesIsSavedWithinASecond) {
  const auto window = NextWindow();
  ASSERT_TRUE(QTest::qWaitFor([&] { return FirstSaved() == "Symbol=1"; }));
  Descriptor.Last->Layout = "Symbol=1,ShowBrokerName=-1";
  EXPECT_TRUE(QTest::qWaitFor([&] { return FirstSaved() == Descriptor.Last->Layout; }, 1000));
}

TEST_F(TSavingTest, WhatHasNotChangedIsNotStoredAgain) {
  const auto window = NextWindow();
  window->show();
  ASSERT_TRUE(QTest::qWaitFor([&] { return FirstSaved() == "Symbol=1"; }));
  QTest::qWait(1100); // until the window has come to rest
  State.StoreLayout({});
  QTest::qWait(1100);
  EXPECT_TRUE(State.Layout().Views.empty());
}

TEST_F(TSavingTest, WhatIsSavedStaysUntilTheViewsAreBack) {
  State.StoreLayout({{{"Symbol=5", "A"}, {"Symbol=6", ""}}, "geometry", "docks"});
  const auto window = NewWindow();
  window->close();
  EXPECT_EQ(State.Layout().Views.size(), 2U);
  EXPECT_EQ(State.Layout().Geometry, "geometry");
}

TEST_F(TSavingTest, TheViewsAreToldOnceEverythingIsBack) {
  State.StoreLayout({{{"Symbol=5", "A"}, {"Symbol=6", ""}}, {}, {}});
  const auto window = NewWindow();
  std::vector<std::string> events;
  const auto note = [&](const std::string& what) {
    events.push_back(what + (Services.Config.IsLayoutReady() ? ", ready" : ", not ready"));
  };
  QObject::connect(&window->Views(), &TViewHost::Opened,
                   [&](TViewPane* pane) { note("view " + pane->LayoutData()); });
  System::TObject owner;
  for (const int number : {Constdef::Channel_LayoutLoaded, Constdef::Channel_MainFormShown})
    Services.Channels.Subscribe(
        number,
        [&, number](System::TObject*, System::TObject*) {
          note("message " + std::to_string(number));
        },
        &owner);
  window->RestoreViews("Symbol=1");
  EXPECT_EQ(events,
            (std::vector<std::string>{"view Symbol=5, not ready", "view Symbol=6, not ready",
                                      "message 109, ready", "message 104, ready"}));
  for (const int number : {Constdef::Channel_LayoutLoaded, Constdef::Channel_MainFormShown})
    Services.Channels.Unsubscribe(number, &owner);
}

TEST_F(TSavingTest, AWindowOfAScreenThatIsGoneComesBackOntoOneThatIsThere) {
  {
    const auto window = NextWindow();
    window->show();
    window->setGeometry(5000, 4000, 500, 400);
    auto* dock = ViewDocks(*window).at(0);
    dock->setFloating(true);
    dock->setGeometry(-3000, -2000, 330, 230);
    window->close();
  }
  const auto window = NextWindow();
  window->show();
  EXPECT_TRUE(IsOnTheScreen(*window)) << window->x() << ", " << window->y();
  const auto* dock = ViewDocks(*window).at(0);
  ASSERT_TRUE(dock->isFloating());
  EXPECT_TRUE(IsOnTheScreen(*dock)) << dock->x() << ", " << dock->y();
}

TEST_F(TSavingTest, TheArrangementFollowsTheViewsWhenAnEarlierOneWasClosed) {
  {
    const auto window = NextWindow();
    window->Views().Open("Symbol=2");
    window->Views().Open("Symbol=3");
    window->close();
  }
  {
    const auto window = NextWindow();
    ViewDocks(*window).at(2)->setFloating(true);
    window->Views().Close(1);
    window->close();
  }
  const auto window = NextWindow();
  const auto docks = ViewDocks(*window);
  ASSERT_EQ(docks.size(), 2U);
  EXPECT_FALSE(docks[0]->isFloating());
  EXPECT_TRUE(docks[1]->isFloating());
  EXPECT_EQ(window->Views().Panes()[1]->LayoutData(), "Symbol=3");
}

TEST_F(TSavingTest, SaysBelowTheViewsThatTheStoreIsInUseUntilItIsRead) {
  TSavedState second(State.File());
  TMainWindow window({Services, Descriptor, Player, Feed, second, Desk});
  window.show();
  const auto* sentence = window.findChild<QLabel*>(QStringLiteral("storeSentence"));
  ASSERT_NE(sentence, nullptr);
  EXPECT_TRUE(sentence->isVisible());
  EXPECT_EQ(sentence->text(),
            State.File() + QStringLiteral(" is in use by another terminal, so this one works with "
                                          "the settings stored there and keeps no changes."));
  window.statusBar()->findChild<QToolButton*>()->click();
  EXPECT_FALSE(sentence->isVisible());
}

TEST_F(TSavingTest, SaysNothingWhenEverythingIsKept) {
  const auto window = NextWindow();
  EXPECT_EQ(window->findChild<QLabel*>(QStringLiteral("storeSentence")), nullptr);
}

TEST_F(TSavingTest, PriceColoursAreChosenInTheMenuAndKept) {
  State.Follow(Services.Config);
  const auto window = NextWindow();
  Choose(*window, QStringLiteral("Red up, green down"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return Services.Skin.PriceColours().Name == "RedUp"; }));
  TConfigStore stored;
  TSavedState(State.File()).Follow(stored);
  EXPECT_EQ(stored.ReadString(Constdef::Section_TradePlatform, "PriceColours"), "RedUp");
}

} // namespace
} // namespace Terminal
