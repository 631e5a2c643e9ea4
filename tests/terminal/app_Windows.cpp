#include "host/BaseDCDataControl.h"
#include "host/ConstDef.h"
#include "host/DataDef.h"
#include "terminal/SavedState.h"
#include "terminal/TextTable.h"
#include "terminal/app_Fixture.h"
#include "terminal/script/Input.h"
#include "terminal/services/Services.h"
#include "terminal/windows/CaptionBar.h"
#include "terminal/windows/MainWindow.h"

#include <QMenuBar>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

QStringList LabelTexts(const QWidget& widget) {
  QStringList texts;
  for (const auto* label : widget.findChildren<QLabel*>())
    texts.append(label->text());
  return texts;
}

class OrderTicket : public testing::Test {
protected:
  void Copy(TOrder& order) {
    Datadef::TCopyOrderRecord record;
    record.Order = &order;
    Services.Channels.Send(Constdef::Channel_CopyOrder, nullptr, &record);
  }

  TServices Services;
  TOrderTicket Ticket{Services.Channels, [](System::TObject*) { return QStringLiteral("View 7"); }};
};

TEST_F(OrderTicket, ShowsPlainlyWhatArrived) {
  TOrder order;
  order.SetSymbol("700");
  order.SetPrice(318.2);
  order.SetQuantity(12400);
  order.SetValue("OrderFlags", "1");
  Copy(order);
  const QStringList texts = LabelTexts(Ticket);
  for (const char* text : {"From the bid", "700", "318.2", "12,400", "View 7"})
    EXPECT_TRUE(texts.contains(QLatin1String(text))) << text;
}

TEST_F(OrderTicket, DoesNotShowAFigureThatWasNotGiven) {
  TOrder order;
  order.SetSymbol("700");
  Copy(order);
  const QStringList texts = LabelTexts(Ticket);
  EXPECT_TRUE(texts.contains(QStringLiteral("Not from the bid")));
  EXPECT_EQ(texts.count(QStringLiteral("–")), 2);
}

TEST_F(OrderTicket, RemembersTheLatestOrdersFirst) {
  const auto* recent = Ticket.findChild<QTableWidget*>();
  for (int i = 0; i < TOrderTicket::RecentOrders + 5; ++i) {
    TOrder order;
    order.SetSymbol(std::to_string(i));
    Copy(order);
  }
  EXPECT_EQ(recent->rowCount(), TOrderTicket::RecentOrders);
  EXPECT_EQ(recent->item(0, 2)->text(), QString::number(TOrderTicket::RecentOrders + 4));
}

TEST_F(OrderTicket, IgnoresTheOrderOfOrderEntryItself) {
  TClientOrder order("5");
  Datadef::TCopyOrderRecord record;
  record.Order = &order;
  Services.Channels.Send(Constdef::Channel_CopyOrder, nullptr, &record);
  EXPECT_EQ(Ticket.findChild<QTableWidget*>()->rowCount(), 0);
}

TEST(SavedState, KeepsConfigurationViewsAndWindowBeyondTheRun) {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("deep/state.sqlite"));
  {
    TSavedState state(file);
    ASSERT_EQ(state.Error(), QString());
    TConfigStore config;
    state.Follow(config);
    config.WriteString("S", "kept", "1", true);
    config.WriteString("S", "kept", "騰", true);
    config.WriteString("S", "passing", "2", false);
    state.StoreViews({{"Symbol=1", ""}, {"Symbol=2", "A"}});
    state.StoreViews({{"Symbol=3", "B"}});
    state.StoreWindow({"geometry", "docks"});
  }
  TSavedState state(file);
  TConfigStore config;
  state.Follow(config);
  EXPECT_EQ(config.ReadString("S", "kept"), "騰");
  EXPECT_EQ(config.ReadString("S", "passing"), "");
  const auto views = state.Views();
  ASSERT_EQ(views.size(), 1u);
  EXPECT_EQ(views[0].LayoutData, "Symbol=3");
  EXPECT_EQ(views[0].Group, "B");
  EXPECT_EQ(state.Window().Geometry, "geometry");
  EXPECT_EQ(state.Window().Docks, "docks");
}

TEST(SavedState, SaysWhyNothingIsKept) {
  TSavedState state(QStringLiteral("/proc/none/state.sqlite"));
  EXPECT_TRUE(state.Error().startsWith(QStringLiteral("Layouts and settings are not kept: ")));
  EXPECT_TRUE(state.Views().empty());
}

TEST(TextTable, AlignsColumnsByTheWidthOfTheirTexts) {
  EXPECT_EQ(ConsoleWidth("a騰b"), 4);
  Fixture::TView view;
  view.show();
  EXPECT_EQ(TextTable(*view.Grid->View(), TColouring::None), "0:1 0:2 \n1:1 1:2 \n2:1 2:2 \n");
  const std::string coloured = TextTable(*view.Grid->View(), TColouring::Ansi);
  EXPECT_NE(coloured.find("\x1b[48;2;"), std::string::npos);
}

class MainWindow : public testing::Test {
protected:
  MainWindow() { Services.Profile.Grant({"QuorPrice"}); }

  std::unique_ptr<TMainWindow> NewWindow() {
    return std::make_unique<TMainWindow>(
        TMainWindow::TParts{Services, Descriptor, Player, Feed, State});
  }

  QTemporaryDir Folder;
  TServices Services;
  Fixture::TDescriptor Descriptor;
  ReplayPlayer Player;
  TMarketFeed Feed{Services, Player};
  TSavedState State{Folder.filePath(QStringLiteral("state.sqlite"))};
};

TEST_F(MainWindow, OpensOneViewWhereNothingWasSaved) {
  const auto window = NewWindow();
  window->RestoreViews("Symbol=700");
  ASSERT_EQ(window->Views().Panes().size(), 1u);
  EXPECT_EQ(Descriptor.Last->Layout, "Symbol=700");
  EXPECT_TRUE(Services.Config.IsLayoutReady());
}

TEST_F(MainWindow, PutsTheViewsOfTheLastRunBack) {
  {
    const auto window = NewWindow();
    window->RestoreViews("Symbol=700");
    window->Views().Open("Symbol=5");
    window->close();
  }
  const auto window = NewWindow();
  window->RestoreViews("Symbol=1");
  const auto panes = window->Views().Panes();
  ASSERT_EQ(panes.size(), 2u);
  EXPECT_EQ(panes[0]->LayoutData(), "Symbol=700");
  EXPECT_EQ(panes[1]->LayoutData(), "Symbol=5");
}

TEST_F(MainWindow, HasTheViewInTheMenuThatTheDescriptorNames) {
  const auto window = NewWindow();
  QStringList menus;
  for (const auto* menu : window->menuBar()->actions())
    menus.append(menu->text());
  EXPECT_EQ(menus, (QStringList{"File", "Market", "Settings"}));
}

TEST_F(MainWindow, KeysOpenAViewAndReachItsSymbolBox) {
  const auto window = NewWindow();
  window->show();
  window->RestoreViews("Symbol=700");
  Input::Activate(window.get());
  Input::PressKey(window.get(), Qt::Key_N, Qt::ControlModifier);
  ASSERT_EQ(window->Views().Panes().size(), 2u);
  Input::Deliver();
  Input::PressKey(window.get(), Qt::Key_L, Qt::ControlModifier);
  EXPECT_TRUE(Descriptor.Last->Symbol->hasFocus());
}

TEST_F(MainWindow, SpacePlaysAndPauses) {
  ASSERT_EQ(
      Player.Open(QStringLiteral(QUOR_SOURCE_DIR "/terminal/replay/recordings/simulated.jsonl")),
      QString());
  Player.Step(0);
  const auto window = NewWindow();
  window->show();
  Input::Activate(window.get());
  Input::PressKey(window.get(), Qt::Key_Space);
  EXPECT_EQ(Player.State(), ReplayPlayer::TState::Playing);
  Input::PressKey(window.get(), Qt::Key_Space);
  EXPECT_EQ(Player.State(), ReplayPlayer::TState::Paused);
}

TEST_F(MainWindow, MarksASimulatedMarketWhereTheTraderLooks) {
  const auto window = NewWindow();
  EXPECT_TRUE(LabelTexts(*window).contains(QStringLiteral("REPLAY")));
  ASSERT_EQ(
      Player.Open(QStringLiteral(QUOR_SOURCE_DIR "/terminal/replay/recordings/simulated.jsonl")),
      QString());
  Player.Step(0);
  EXPECT_TRUE(LabelTexts(*window).contains(QStringLiteral("SIMULATED")));
}

TEST_F(MainWindow, SwitchesTheLanguageOfWindowAndViews) {
  const auto window = NewWindow();
  window->RestoreViews({});
  Descriptor.Last->Told.clear();
  for (auto* action : window->findChildren<QAction*>())
    if (action->text() == QStringLiteral("繁體中文"))
      action->trigger();
  Input::Deliver();
  EXPECT_EQ(window->menuBar()->actions().front()->text(), QStringLiteral("檔案"));
  EXPECT_EQ(Descriptor.Last->Told, std::vector<std::string>{"language 1"});
}

TEST_F(MainWindow, ClosesAViewFromItsCaptionBar) {
  const auto window = NewWindow();
  window->show();
  window->RestoreViews({});
  auto* bar = window->findChild<TCaptionBar*>();
  ASSERT_NE(bar, nullptr);
  emit bar->CloseClicked();
  Input::Deliver();
  EXPECT_TRUE(window->Views().Panes().empty());
}

TEST_F(MainWindow, HidesTheMenuOfAViewThatTheUserMayNotSee) {
  class THidden : public Fixture::TDescriptor {
    bool GetIsVisible() override { return false; }
  };
  THidden hidden;
  const TMainWindow window({Services, hidden, Player, Feed, State});
  EXPECT_EQ(window.menuBar()->actions().size(), 2);
}

} // namespace
} // namespace Terminal
