#include "terminal/windows/MainWindow.h"

#include "feed/sources/Sources.h"
#include "host/ConstDef.h"
#include "terminal/services/Services.h"
#include "terminal/windows/WindowTexts.h"

#include <QActionGroup>
#include <QDockWidget>
#include <QMenuBar>

// The menu bar. It is built anew for a change of language.

namespace Terminal {

void TMainWindow::BuildMenu() {
  menuBar()->clear();
  qDeleteAll(menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
  BuildFileMenu();
  BuildViewMenu();
  BuildSettingsMenu();
  BuildWindowMenu();
}

void TMainWindow::BuildFileMenu() {
  auto* menu = menuBar()->addMenu(WindowText("Term_File"));
  for (const auto& kind : Feed::SourceKinds())
    menu->addAction(WindowText(kind.MenuText), QKeySequence(QLatin1String(kind.MenuKeys)), this,
                    [this, &kind] { OpenSource(kind); });
  record_ = menu->addAction(WindowText("Term_Record"), this, &TMainWindow::RecordOrStop);
  record_->setCheckable(true);
  ShowRecording();
  menu->addAction(WindowText("Term_Quit"), QKeySequence::Quit, this, &QWidget::close);
}

// Where the view stands in the menu is the descriptor's choice: parents first, the item last.
void TMainWindow::BuildViewMenu() {
  auto& descriptor = parts_.Descriptor;
  if (!descriptor.GetIsVisible())
    return;
  const int item = descriptor.GetMenuLevel() - 1;
  QMenu* menu = nullptr;
  for (int entry = 0; entry < item; ++entry) {
    const QString caption = WindowText(descriptor.GetMenuCaption(entry).c_str());
    menu = menu ? menu->addMenu(caption) : menuBar()->addMenu(caption);
  }
  if (!menu)
    menu = menuBar()->addMenu(WindowText("Term_View"));
  menu->addAction(WindowText(descriptor.GetMenuCaption(item).c_str()), Qt::CTRL | Qt::Key_N, this,
                  &TMainWindow::NewView);
}

void TMainWindow::AddSettings(QMenu* menu, const QString& caption, const QString& present,
                              const std::vector<TChoice>& choices,
                              const std::function<void(const QString&)>& choose) {
  auto* submenu = menu->addMenu(caption);
  auto* group = new QActionGroup(submenu);
  for (const auto& [value, text] : choices) {
    auto* action = submenu->addAction(text);
    action->setCheckable(true);
    action->setChecked(value == present);
    group->addAction(action);
    // Later, since the choice may build the menu anew.
    connect(
        action, &QAction::triggered, this, [choose, value = value] { choose(value); },
        Qt::QueuedConnection);
  }
}

void TMainWindow::BuildSettingsMenu() {
  auto& services = parts_.Services;
  auto* menu = menuBar()->addMenu(WindowText("Term_Settings"));
  AddSettings(menu, WindowText("Term_Language"),
              QString::number(services.Languages.CurrentLanguage()),
              {{"1", WindowText("Term_LanguageTraditionalChinese")},
               {"2", WindowText("Term_LanguageSimplifiedChinese")},
               {"3", WindowText("Term_LanguageEnglish")}},
              [this](const QString& language) { SetLanguage(language.toInt()); });
  const auto choices = [language = services.Languages.CurrentLanguage()](const auto& all) {
    std::vector<TChoice> named;
    named.reserve(all.size());
    for (const auto& each : all)
      named.emplace_back(QUtf8StringView(each.Name).toString(), each.Texts.In(language));
    return named;
  };
  AddSettings(menu, WindowText("Term_Skin"),
              QUtf8StringView(services.Skin.Current().Name).toString(), choices(BuiltInSkins()),
              [this](const QString& name) { SetSkin(name); });
  AddSettings(menu, WindowText("Term_PriceColours"),
              QUtf8StringView(services.Skin.PriceColours().Name).toString(),
              choices(BuiltInPriceColours()),
              [this](const QString& name) { SetPriceColours(name); });
  std::vector<TChoice> scales;
  for (const char* scale : {"100", "115", "125", "135", "150"})
    scales.emplace_back(scale, QStringLiteral("%1 %").arg(QLatin1String(scale)));
  const int scale = services.Settings.Scale.Value();
  AddSettings(menu, WindowText("Term_Scale"),
              QString::number(std::max(scale, Constdef::ScalePPI_100)), scales,
              [this](const QString& perCent) { SetScale(perCent.toInt()); });
  AddSettings(menu, WindowText("Term_DataFeed"), QString::number(parts_.Feed.FeedType()),
              {{QString::number(Constdef::FeedType_Streaming), WindowText("Term_FeedStreaming")},
               {QString::number(Constdef::FeedType_PerClick), WindowText("Term_FeedPerClick")},
               {QString::number(Constdef::FeedType_Delayed), WindowText("Term_FeedDelayed")}},
              [this](const QString& type) { SetFeedType(type.toInt()); });
  menu->addSeparator();
  menu->addAction(WindowText("Term_Preferences"), Qt::CTRL | Qt::Key_Comma, this,
                  &TMainWindow::OpenPreferences);
}

void TMainWindow::BuildWindowMenu() {
  auto* menu = menuBar()->addMenu(WindowText("Term_Window"));
  for (const auto& tool : tools_->All()) {
    auto* toggle = tool.Dock->toggleViewAction();
    toggle->setShortcut(tool.Toggle);
    menu->addAction(toggle);
  }
  menu->addSeparator();
  for (const auto& tool : tools_->All())
    menu->addAction(WindowText("Term_GoTo").arg(WindowText(tool.CaptionKey)), tool.GoTo, this,
                    [this, &tool] { tools_->GoTo(tool); });
  menu->addSeparator();
  menu->addAction(WindowText("Term_Group"), Qt::CTRL | Qt::Key_G, this, &TMainWindow::ChooseGroup);
}

} // namespace Terminal
