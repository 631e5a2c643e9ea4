#include "terminal/windows/MainWindow.h"

#include "host/ConstDef.h"
#include "terminal/Markets.h"
#include "terminal/windows/CaptionBar.h"
#include "terminal/windows/WindowFixture.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QFileDialog>
#include <QKeySequenceEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QTabBar>
#include <QTest>
#include <QToolTip>

namespace Terminal {
namespace {

using namespace std::chrono_literals;

QStringList LabelTexts(const QWidget& widget) {
  QStringList texts;
  for (const auto* label : widget.findChildren<QLabel*>())
    texts.append(label->text());
  return texts;
}

class TMainWindowTest : public TWindowTest {
protected:
  /// Plays a recording of one line, paused at its beginning.
  void OpenRecording(const char* line) {
    QFile file(Folder.filePath(QStringLiteral("recording.jsonl")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(line);
    file.close();
    ASSERT_FALSE(Markets::Open(Player, file.fileName()));
    Player.Step(0);
  }
};

TEST_F(TMainWindowTest, OpensOneViewWhereNothingWasSaved) {
  const auto window = NewWindow();
  window->RestoreViews("Symbol=700");
  ASSERT_EQ(window->Views().Panes().size(), 1u);
  EXPECT_EQ(Descriptor.Last->Layout, "Symbol=700");
  EXPECT_TRUE(Services.Config.IsLayoutReady());
}

TEST_F(TMainWindowTest, PutsTheViewsOfTheLastRunBack) {
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

TEST_F(TMainWindowTest, HasTheViewInTheMenuThatTheDescriptorNames) {
  const auto window = NewWindow();
  QStringList menus;
  for (const auto* menu : window->menuBar()->actions())
    menus.append(menu->text());
  EXPECT_EQ(menus, (QStringList{"File", "Market", "Settings", "Window"}));
}

TEST_F(TMainWindowTest, KeysOpenAViewAndReachItsSymbolBox) {
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

TEST_F(TMainWindowTest, SpacePlaysAndPauses) {
  Markets::Simulate(Player, 1, 9h);
  Player.Step(0);
  const auto window = NewWindow();
  window->show();
  Input::Activate(window.get());
  window->setFocus(); // away from the box that a blank would be typed into
  Input::PressKey(window.get(), Qt::Key_Space);
  EXPECT_EQ(Player.State(), TMarketPlayer::TState::Playing);
  Input::PressKey(window.get(), Qt::Key_Space);
  EXPECT_EQ(Player.State(), TMarketPlayer::TState::Paused);
}

TEST_F(TMainWindowTest, MarksASimulatedMarketWhereTheTraderLooks) {
  const auto window = NewWindow();
  EXPECT_TRUE(LabelTexts(*window).contains(QStringLiteral("REPLAY")));
  Markets::Simulate(Player, 1, 9h);
  Player.Step(0);
  EXPECT_TRUE(LabelTexts(*window).contains(QStringLiteral("SIMULATED")));
}

TEST_F(TMainWindowTest, MarksEveryViewOfASimulatedMarket) {
  const auto window = NewWindow();
  window->RestoreViews("Symbol=700");
  const auto marked = [&window] { return LabelTexts(*window).count(QStringLiteral("SIMULATED")); };
  EXPECT_EQ(marked(), 0);
  Markets::Simulate(Player, 1, 9h);
  Player.Step(0);
  EXPECT_EQ(marked(), 3) << "player bar, symbol list and view";
  window->Views().Open("Symbol=5");
  EXPECT_EQ(marked(), 4);
}

/// Titles of the windows that can be seen by themselves, the main window's first.
QStringList Titles(const QWidget& window) {
  QStringList titles{window.windowTitle()};
  for (const char* name : {"view1", "symbolList", "orderTicket", "chartDock", "blotter"})
    titles.append(window.findChild<QDockWidget*>(QLatin1String(name))->windowTitle());
  return titles;
}

TEST_F(TMainWindowTest, EveryTitleSaysThatTheMarketIsSimulatedWhileItIs) {
  const auto window = NewWindow();
  window->RestoreViews({});
  const QStringList unmarked{"QuorPrice",    "Fixture", "Symbols",
                             "Order ticket", "Chart",   "Orders and trades"};
  EXPECT_EQ(Titles(*window), unmarked);
  Markets::Simulate(Player, 1, 9h);
  Player.Step(0);
  EXPECT_EQ(Titles(*window), (QStringList{"QuorPrice – SIMULATED", "Fixture – SIMULATED",
                                          "Symbols – SIMULATED", "Order ticket – SIMULATED",
                                          "Chart – SIMULATED", "Orders and trades – SIMULATED"}));
  EXPECT_NE(ActionOf(*window, QStringLiteral("Order ticket")), nullptr) << "in the menu";
  Choose(*window, QStringLiteral("繁體中文"));
  EXPECT_EQ(Titles(*window).at(3), QStringLiteral("落盤 – 模擬"));
  Choose(*window, QStringLiteral("English"));
  OpenRecording(R"({"t":"10:00:00","s":"5","f":{"3":"40"}})");
  EXPECT_EQ(Titles(*window), unmarked);
  OpenRecording(R"({"quorprice":1,"simulated":true})");
  EXPECT_EQ(Titles(*window).at(4), QStringLiteral("Chart – SIMULATED"));
}

TEST_F(TMainWindowTest, APopUpSaysThatTheMarketIsSimulatedToo) {
  const auto window = NewWindow();
  window->RestoreViews({});
  const auto open = [&](const char* title) {
    auto* popup = window->Views().GetDialogForm(Descriptor.Last, nullptr);
    popup->setWindowTitle(QLatin1String(title));
    return popup;
  };
  const auto* before = open("Detail - 700");
  EXPECT_EQ(before->windowTitle(), QStringLiteral("Detail - 700"));
  Markets::Simulate(Player, 1, 9h);
  Player.Step(0);
  EXPECT_EQ(before->windowTitle(), QStringLiteral("Detail - 700 – SIMULATED"));
  const auto* after = open("Detail - 5");
  EXPECT_EQ(after->windowTitle(), QStringLiteral("Detail - 5 – SIMULATED"));
  OpenRecording(R"({"t":"10:00:00","s":"5","f":{"3":"40"}})");
  EXPECT_EQ(before->windowTitle(), QStringLiteral("Detail - 700"));
}

TEST_F(TMainWindowTest, BringsTheInstrumentOfACoolingOffIntoTheActiveView) {
  const auto window = NewWindow();
  window->RestoreViews({});
  auto* active = window->Views().Open();
  std::vector<std::string> heard;
  System::TObject owner;
  Services.Channels.RegisterCopySymbol(
      [&](System::TObject*, System::TObject* data) {
        const auto* list = dynamic_cast<TListObject*>(data);
        ASSERT_NE(list, nullptr);
        EXPECT_FALSE(list->IsEmpty());
        heard.push_back("all: " + list->Symbol());
      },
      &owner);
  Services.Channels.JoinGroup(
      "2",
      [&](System::TObject*, System::TObject* data) {
        const auto* group = dynamic_cast<TGroupData*>(data);
        ASSERT_NE(group, nullptr);
        heard.push_back("group " + group->GroupID() + ": " + group->Symbol());
      },
      &owner);
  emit Player.CoolingOffReached(QStringLiteral("2468"));
  active->SetGroup("2");
  emit Player.CoolingOffReached(QStringLiteral("700"));
  EXPECT_EQ(heard, (std::vector<std::string>{"all: 2468", "group 2: 700"}));
  Services.Channels.LeaveGroup("2", &owner);
  Services.Channels.UnregisterCopySymbol(&owner);
}

TEST_F(TMainWindowTest, SaysWhichFileCannotBeRecordedAndWhy) {
  const auto window = NewWindow();
  window->show();
  Services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  QString said;
  QTimer user; // the dialogs run loops of their own
  QObject::connect(&user, &QTimer::timeout, [&said] {
    auto* dialog = QApplication::activeModalWidget();
    if (auto* files = qobject_cast<QFileDialog*>(dialog)) {
      files->findChild<QLineEdit*>()->setText(QStringLiteral("/nowhere/at/all.jsonl"));
      QMetaObject::invokeMethod(files, "accept");
    } else if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
      said = box->text();
      box->close();
    }
  });
  user.start(0);
  Choose(*window, QStringLiteral("Record"));
  EXPECT_EQ(said, QStringLiteral("/nowhere/at/all.jsonl：檔案無法寫入。"));
  EXPECT_EQ(window->windowTitle(), QStringLiteral("QuorPrice"));
}

TEST_F(TMainWindowTest, HasTheTerminalsIconAndSoItsDocksHave) {
  const auto window = NewWindow();
  window->RestoreViews({});
  const auto* dock = window->findChild<QDockWidget*>(QStringLiteral("view1"));
  const QImage icon = dock->windowIcon().pixmap(32).toImage();
  ASSERT_EQ(icon.size(), QSize(32, 32));
  EXPECT_EQ(icon.pixelColor(12, 8), QColor(0x4f, 0xa3, 0xd9)) << "bids at the left";
  EXPECT_EQ(icon.pixelColor(19, 8), QColor(0xd9, 0x9a, 0x4f)) << "asks at the right";
  EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0);
}

TEST_F(TMainWindowTest, OpensItsViewsAnewForAnotherDataFeed) {
  const auto window = NewWindow();
  window->RestoreViews("Symbol=700");
  window->Views().Open("Symbol=5")->SetGroup("2");
  const int last = window->Views().Panes().back()->Number();
  Choose(*window, QStringLiteral("Snapshot per click"));
  EXPECT_EQ(Services.Vendor.FeedType(), Constdef::FeedType_PerClick);
  const auto panes = window->Views().Panes();
  ASSERT_EQ(panes.size(), 2u);
  EXPECT_EQ(panes[0]->LayoutData(), "Symbol=700");
  EXPECT_EQ(panes[1]->LayoutData(), "Symbol=5");
  EXPECT_EQ(panes[1]->Group(), "2");
  EXPECT_GT(panes[0]->Number(), last);
  Services.Subscriptions.Refresh("700");
  EXPECT_TRUE(LabelTexts(*window).contains(QStringLiteral("Snapshots: 1")));
}

TEST_F(TMainWindowTest, GoesBackToTheSimulatedMarketFromTheMenu) {
  const auto start = 9h + 31min;
  SourceOptions = Markets::Simulation(4, start);
  const auto window = NewWindow();
  OpenRecording(R"({"t":"10:00:00","s":"5","f":{"3":"40"}})");
  Choose(*window, QStringLiteral("Simulated market"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return Player.State() == TMarketPlayer::TState::Playing; }));
  EXPECT_TRUE(Player.Traits().Orders);
  Player.Step(0);
  EXPECT_GE(Player.Position(), start);
  EXPECT_LT(Player.Position(), start + 1min);
  Player.Seek(start);
  Player.Step(0);
  const auto chosen = Feed.Present();
  const auto isAs = [&](std::uint64_t seed) {
    Markets::Simulate(Player, seed, start);
    Player.Step(0);
    return std::ranges::equal(Feed.Present(), chosen, {}, &Data::TRecordChange::Fields,
                              &Data::TRecordChange::Fields);
  };
  EXPECT_TRUE(isAs(4));
  EXPECT_FALSE(isAs(5));
}

TEST_F(TMainWindowTest, ListsTheSourcesInTheFileMenu) {
  const auto window = NewWindow();
  QStringList entries;
  for (const auto* entry : window->menuBar()->actions().front()->menu()->actions())
    entries.append(entry->text());
  EXPECT_EQ(entries.first(2), (QStringList{"Open recording", "Simulated market"}));
  EXPECT_EQ(entries.last(2), (QStringList{"Record", "Quit"}));
  EXPECT_EQ(ActionOf(*window, entries[0])->shortcut(), QKeySequence(QKeySequence::Open));
  EXPECT_TRUE(ActionOf(*window, entries[1])->shortcut().isEmpty());
}

TEST_F(TMainWindowTest, OpensARecordingFromTheMenuOrSaysWhyNot) {
  const auto window = NewWindow();
  OpenRecording(R"({"t":"10:00:00","s":"5","f":{"3":"40"}})");
  Player.Close();
  QString chosen = Folder.filePath(QStringLiteral("recording.jsonl"));
  QString said;
  QTimer user; // the dialogs run loops of their own
  QObject::connect(&user, &QTimer::timeout, [&] {
    auto* dialog = QApplication::activeModalWidget();
    if (auto* files = qobject_cast<QFileDialog*>(dialog)) {
      EXPECT_EQ(files->windowTitle(), QStringLiteral("Open recording"));
      EXPECT_EQ(files->nameFilters(), QStringList{"*.jsonl"});
      files->findChild<QLineEdit*>()->setText(chosen);
      QMetaObject::invokeMethod(files, chosen.isEmpty() ? "reject" : "accept");
    } else if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
      said = box->text();
      box->close();
    }
  });
  user.start(0);
  Choose(*window, QStringLiteral("Open recording"));
  EXPECT_EQ(said, QString());
  Player.Step(0);
  EXPECT_EQ(Player.Start(), 10h);
  chosen.clear();
  Choose(*window, QStringLiteral("Open recording"));
  EXPECT_EQ(Player.Start(), 10h) << "none was chosen";
  chosen = QStringLiteral("/dev/null");
  Choose(*window, QStringLiteral("Open recording"));
  EXPECT_EQ(said, QStringLiteral("/dev/null: This is not a file."));
  EXPECT_EQ(Player.Start(), 10h) << "nothing has changed";
}

TEST_F(TMainWindowTest, SwitchesTheLanguageOfWindowAndViews) {
  const auto window = NewWindow();
  window->RestoreViews({});
  Descriptor.Last->Told.clear();
  Choose(*window, QStringLiteral("繁體中文"));
  EXPECT_EQ(window->menuBar()->actions().front()->text(), QStringLiteral("檔案"));
  EXPECT_EQ(Descriptor.Last->Told, std::vector<std::string>{"language 1"});
}

TEST_F(TMainWindowTest, ClosesAViewFromItsCaptionBar) {
  const auto window = NewWindow();
  window->show();
  window->RestoreViews({});
  const auto* dock = window->findChild<QDockWidget*>(QStringLiteral("view1"));
  ASSERT_NE(dock, nullptr);
  auto* bar = qobject_cast<TCaptionBar*>(dock->titleBarWidget());
  ASSERT_NE(bar, nullptr);
  emit bar->CloseClicked();
  Input::Deliver();
  EXPECT_TRUE(window->Views().Panes().empty());
}

TEST_F(TMainWindowTest, HidesTheMenuOfAViewThatTheUserMayNotSee) {
  class THidden : public Fixture::TDescriptor {
    bool GetIsVisible() override { return false; }
  };
  THidden hidden;
  const TMainWindow window({Services, hidden, Player, Feed, State, Desk});
  EXPECT_EQ(window.menuBar()->actions().size(), 3);
}

TEST_F(TMainWindowTest, SpacePressesTheButtonThatHasTheKeyboard) {
  const auto window = NewWindow();
  window->show();
  Input::Activate(window.get());
  auto* buy = window->findChild<QPushButton*>(QStringLiteral("buy"));
  buy->setFocus();
  Input::PressKey(buy, Qt::Key_Space);
  EXPECT_TRUE(buy->isChecked());
  EXPECT_EQ(Player.State(), TMarketPlayer::TState::Closed);
}

TEST_F(TMainWindowTest, AViewIsCalledByCodeAndNameInTheLanguageOfTheUser) {
  Services.Market.DefineInstrument("700", "HKD", "TESTCO", "測試科技", "测试科技");
  const auto window = NewWindow();
  window->RestoreViews("Symbol=700,DisplayMode=0");
  const auto* dock = window->findChild<QDockWidget*>(QStringLiteral("view1"));
  EXPECT_EQ(dock->windowTitle(), QStringLiteral("700 TESTCO"));
  EXPECT_TRUE(LabelTexts(*dock->titleBarWidget()).contains(QStringLiteral("700 TESTCO")));
  Choose(*window, QStringLiteral("繁體中文"));
  EXPECT_EQ(dock->windowTitle(), QStringLiteral("700 測試科技"));
  Markets::Simulate(Player, 1, 9h);
  Player.Step(0);
  EXPECT_EQ(dock->windowTitle().left(4), QStringLiteral("700 "));
  EXPECT_EQ(dock->windowTitle().right(5), QStringLiteral(" – 模擬"));
  Descriptor.Last->Layout = "Symbol=9";
  Baseview::SendViewNotify(Descriptor.Last, Constdef::Notify_SymbolChanged);
  Input::Deliver();
  EXPECT_TRUE(dock->windowTitle().startsWith(QStringLiteral("9 ")));
}

class TMainWindowToolsTest : public TMainWindowTest {
protected:
  TMainWindowToolsTest() : Window(NewWindow()) {
    Services.Market.DefineInstrument("700", "HKD", "TESTCO");
    Services.Market.DefineInstrument("5", "HKD", "Bank");
    Window->show();
    Window->RestoreViews("Symbol=700");
    Window->resize(1366, 768);
    Input::Activate(Window.get());
  }

  QDockWidget* Dock(const char* name) {
    return Window->findChild<QDockWidget*>(QLatin1String(name));
  }

  static QDockWidget* DockOf(QWidget* widget) {
    while (!qobject_cast<QDockWidget*>(widget))
      widget = widget->parentWidget();
    return static_cast<QDockWidget*>(widget);
  }

  /// Types a key for the first shortcut into the preferences and saves them.
  void SetShortcut(Qt::Key key, Qt::KeyboardModifiers held) {
    Choose(*Window, QStringLiteral("Preferences"));
    auto* dialog = Window->findChild<TPreferenceDialog*>();
    Input::Activate(dialog);
    dialog->findChild<QListWidget*>()->setCurrentRow(0);
    auto* edit = dialog->findChild<QKeySequenceEdit*>();
    ASSERT_NE(edit, nullptr);
    edit->setFocus();
    Input::PressKey(edit, key, held);
    dialog->Button(QDialogButtonBox::Ok)->click();
    Input::Activate(Window.get());
  }

  void Press(Qt::Key key) { Input::PressKey(Window.get(), key, Qt::ControlModifier); }

  std::unique_ptr<TMainWindow> Window;
};

TEST_F(TMainWindowToolsTest, StandBesideTheViewAndOrdersBelowIt) {
  Input::Deliver();
  const auto place = [](const QWidget* dock) { return dock->geometry(); };
  const QRect view = place(Dock("view1"));
  EXPECT_LT(view.right(), place(Dock("symbolList")).left());
  EXPECT_LT(view.bottom(), place(Dock("blotter")).top());
  EXPECT_LT(place(Dock("symbolList")).bottom(), place(Dock("orderTicket")).top());
  EXPECT_LT(place(Dock("chartDock")).right(), place(Dock("orderTicket")).left());
  for (const char* name : {"view1", "symbolList", "orderTicket", "chartDock", "blotter"})
    EXPECT_TRUE(Window->rect().contains(place(Dock(name)))) << name;
}

TEST_F(TMainWindowToolsTest, KeysShowAndHideEveryDock) {
  const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_1, "symbolList"},
                                                  {Qt::Key_2, "orderTicket"},
                                                  {Qt::Key_3, "chartDock"},
                                                  {Qt::Key_4, "blotter"}};
  for (const auto& [key, name] : keys) {
    Press(key);
    EXPECT_TRUE(Dock(name)->isHidden()) << name;
    Press(key);
    EXPECT_FALSE(Dock(name)->isHidden()) << name;
  }
}

TEST_F(TMainWindowToolsTest, KeysBringTheKeyboardIntoEveryDock) {
  const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_K, "symbolList"},
                                                  {Qt::Key_E, "orderTicket"},
                                                  {Qt::Key_H, "chartDock"},
                                                  {Qt::Key_B, "blotter"}};
  for (const auto& [key, name] : keys) {
    Dock(name)->hide();
    Press(key);
    Input::Deliver();
    EXPECT_FALSE(Dock(name)->isHidden()) << name;
    EXPECT_TRUE(Dock(name)->isAncestorOf(QApplication::focusWidget())) << name;
  }
}

TEST_F(TMainWindowToolsTest, TheChartBeginsWithTheFirstViewAndTurnsToTheOneAskedFor) {
  EXPECT_EQ(Dock("chartDock")->windowTitle(), QStringLiteral("Chart 700 TESTCO"));
  Dock("chartDock")->hide();
  const auto parameters = Services.Orders.NewViewParameters();
  parameters->SetSymbol("5");
  Baseview::OpenCustomView(Descriptor.Last, Constdef::View_Chart, 0, parameters.get(), 0, true);
  EXPECT_FALSE(Dock("chartDock")->isHidden());
  EXPECT_EQ(Dock("chartDock")->windowTitle(), QStringLiteral("Chart 5 Bank"));
  Baseview::OpenCustomView(Descriptor.Last, 999, 0, nullptr, 0, true);
  EXPECT_EQ(Dock("chartDock")->windowTitle(), QStringLiteral("Chart 5 Bank"));
}

TEST_F(TMainWindowToolsTest, TheLinkingGroupIsChosenByKeyboard) {
  Window->Views().Panes().front()->View()->setFocus();
  const auto choose = [this](Qt::Key number) {
    Input::Activate(Window.get());
    // The menu runs a loop of its own until something is chosen.
    QTimer::singleShot(0, [number] {
      auto* menu = QApplication::activePopupWidget();
      ASSERT_NE(menu, nullptr);
      Input::PressKey(menu, number);
    });
    Press(Qt::Key_G);
  };
  choose(Qt::Key_3);
  EXPECT_EQ(Window->Views().Panes().front()->Group(), "3");
  Dock("symbolList")->findChild<QLineEdit*>()->setFocus();
  choose(Qt::Key_4);
  EXPECT_EQ(Window->Views().Panes().front()->Group(), "3");
  EXPECT_EQ(Services.Config.ReadString(Constdef::Section_TradePlatform, "SymbolListGroup"), "4");
}

TEST_F(TMainWindowToolsTest, TakeTheScaleOfTheWindow) {
  const int before = Dock("orderTicket")->widget()->font().pointSize();
  Choose(*Window, QStringLiteral("150 %"));
  EXPECT_EQ(Dock("orderTicket")->widget()->font().pointSize(), before * 150 / 100);
  EXPECT_EQ(Descriptor.Last->font().pointSize(), before * 150 / 100);
}

TEST_F(TMainWindowToolsTest, EverythingThatIsAWindowOfItsOwnTakesTheScaleToo) {
  Dock("view1")->setFloating(true);
  auto* popup = Baseview::GetDialogForm(Descriptor.Last, nullptr);
  popup->resize(210, 200);
  popup->show();
  Choose(*Window, QStringLiteral("150 %"));
  const int normal = QApplication::font().pointSize();
  const int points = normal * 150 / 100;
  EXPECT_EQ(popup->font().pointSize(), points);
  EXPECT_EQ(popup->size(), QSize(210, 200) * (double(points) / normal));
  auto* later = Baseview::GetDialogForm(Descriptor.Last, nullptr);
  later->resize(210, 100);
  later->show();
  EXPECT_EQ(later->size(), QSize(210, 100) * (double(points) / normal));
  EXPECT_EQ(later->font().pointSize(), points);
  QMenu menu(Descriptor.Last);
  menu.ensurePolished();
  EXPECT_EQ(menu.font().pointSize(), points);
  EXPECT_EQ(QToolTip::font().pointSize(), points);
  QCompleter completer;
  completer.popup()->ensurePolished();
  EXPECT_EQ(completer.popup()->font().pointSize(), points);
  QMessageBox box(Window.get());
  box.ensurePolished();
  EXPECT_EQ(box.font().pointSize(), points);
  const auto* bar = qobject_cast<TCaptionBar*>(Dock("view1")->titleBarWidget());
  EXPECT_EQ(bar->Button(0)->iconSize().height(), 16 * points / normal);
  Choose(*Window, QStringLiteral("100 %"));
  EXPECT_EQ(popup->size(), QSize(210, 200));
  EXPECT_EQ(bar->Button(0)->iconSize(), QSize(16, 16));
  QMenu after(Descriptor.Last);
  after.ensurePolished();
  EXPECT_EQ(after.font().pointSize(), normal);
}

TEST_F(TMainWindowToolsTest, TheShortcutBringsAViewToTheFrontAndTheKeyboardIntoItsSymbolBox) {
  const auto* view = Descriptor.Last;
  const auto isInFront = [view] { return !view->visibleRegion().isEmpty(); };
  const auto lookElsewhere = [&] {
    Dock("chartDock")->raise();
    Dock("symbolList")->findChild<QLineEdit*>()->setFocus();
    Input::Deliver();
  };
  Window->tabifyDockWidget(Dock("view1"), Dock("chartDock"));
  SetShortcut(Qt::Key_P, Qt::ControlModifier);
  lookElsewhere();
  ASSERT_FALSE(isInFront());
  Press(Qt::Key_P);
  EXPECT_TRUE(isInFront());
  EXPECT_EQ(QApplication::focusWidget(), view->Symbol);
  EXPECT_EQ(view->Symbol->selectedText(), view->Symbol->text());
  SetShortcut(Qt::Key_F9, Qt::NoModifier);
  lookElsewhere();
  Press(Qt::Key_P);
  EXPECT_FALSE(isInFront()) << "it has another key now";
  Input::PressKey(Window.get(), Qt::Key_F9);
  EXPECT_TRUE(isInFront());
}

TEST_F(TMainWindowToolsTest, TheKeyboardFollowsTheTabOfAViewAndSoDoesTheShortcut) {
  auto* first = Descriptor.Last;
  Window->Views().Open("Symbol=5");
  auto* second = Descriptor.Last;
  Window->tabifyDockWidget(DockOf(first), DockOf(second));
  Input::Deliver();
  Press(Qt::Key_L);
  ASSERT_EQ(QApplication::focusWidget(), second->Symbol);
  const auto bars = Window->findChildren<QTabBar*>(Qt::FindDirectChildrenOnly);
  const auto bar = std::find_if(bars.begin(), bars.end(),
                                [](const auto* each) { return each->tabText(0) == "700 TESTCO"; });
  ASSERT_NE(bar, bars.end());
  Input::Click(*bar, (*bar)->tabRect(0).center());
  EXPECT_EQ(QApplication::focusWidget(), first->Symbol);
  Dock("symbolList")->findChild<QLineEdit*>()->setFocus();
  Input::Click(*bar, (*bar)->tabRect(1).center());
  EXPECT_TRUE(Dock("symbolList")->isAncestorOf(QApplication::focusWidget()));
  Press(Qt::Key_L);
  EXPECT_EQ(QApplication::focusWidget(), second->Symbol);
  Input::Click(*bar, (*bar)->tabRect(0).center());
  Press(Qt::Key_L);
  EXPECT_EQ(QApplication::focusWidget(), first->Symbol);
}

TEST_F(TMainWindowToolsTest, SpeakTheLanguage) {
  Choose(*Window, QStringLiteral("繁體中文"));
  EXPECT_EQ(Dock("orderTicket")->windowTitle(), QStringLiteral("落盤"));
  EXPECT_EQ(Dock("chartDock")->windowTitle(), QStringLiteral("圖表 700 TESTCO"));
  EXPECT_TRUE(LabelTexts(*Dock("symbolList")).contains(QStringLiteral("股份列表")));
}

TEST_F(TMainWindowToolsTest, AViewStandsBesideTheOneBeforeOrBehindItWhereThereIsNoRoom) {
  Window->Views().Open("Symbol=5");
  Input::Deliver();
  const auto docks = Window->findChildren<QDockWidget*>();
  QList<QDockWidget*> views;
  for (auto* dock : docks)
    if (qobject_cast<TCaptionBar*>(dock->titleBarWidget()) && dock != Dock("symbolList"))
      views.append(dock);
  ASSERT_EQ(views.size(), 2);
  EXPECT_TRUE(Window->tabifiedDockWidgets(views[0]).isEmpty());
  EXPECT_LT(views[0]->geometry().right(), views[1]->geometry().left());
  Window->Views().Open("Symbol=1");
  EXPECT_EQ(Window->tabifiedDockWidgets(views[1]).size(), 1);
}

} // namespace
} // namespace Terminal
