#include "terminal/windows/MainWindow.h"

#include "host/BaseDCDataControl.h"
#include "host/ConstDef.h"
#include "platform/PopupEdit.h"
#include "terminal/services/Services.h"
#include "terminal/windows/TerminalIcon.h"
#include "terminal/windows/ViewCorner.h"
#include "terminal/windows/WindowTexts.h"

#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QShortcut>

#include <algorithm>

namespace Terminal {

TMainWindow::TMainWindow(const TParts& parts)
    : parts_(parts), views_(parts.Services, parts.Descriptor, [this] { return Settings(); }),
      player_(new TPlayerBar(parts.Player, parts.Feed, this)), recorder_(parts.Player, parts.Feed) {
  setWindowIcon(TerminalIcon());
  setDockNestingEnabled(true);
  addToolBar(player_);
  tools_ = std::make_unique<TToolDocks>(
      parts.Services, parts.Desk,
      [this](System::TObject* sender) { return CaptionOfSender(sender); }, *this);
  ApplyFont(Settings());
  parts_.Descriptor.GetShortCutList(shortcuts_);
  for (const auto& value : WindowDefaults(shortcuts_))
    parts_.Services.Config.LoadDefault(value);
  BuildMenu();
  BuildShortcuts();
  connect(&recorder_, &TMarketRecorder::Ended, this, [this](const auto& problem) {
    ShowRecording();
    WarnOf(QString::fromStdString(recorder_.File()), problem);
  });
  connect(&views_, &TViewHost::Opened, this, &TMainWindow::ShowView);
  connect(&views_, &TViewHost::Closing, this, [this](TViewPane* pane) {
    docks_[pane->Number()]->deleteLater();
    docks_.erase(pane->Number());
  });
  connect(&views_, &TViewHost::Notified, this, &TMainWindow::ApplyNotification);
  connect(&views_, &TViewHost::CustomViewAsked, this, [this](int type, const QString& symbol) {
    if (type == Constdef::View_Chart)
      tools_->ShowChart(symbol);
  });
  parts_.Services.Skin.OnChanged = [this] {
    views_.SetSkin();
    tools_->SetSkin();
  };
  parts_.Services.Editors.IsByProgram = [this] {
    return parts_.Services.Channels.IsDelivering() || views_.IsSettingLayout();
  };
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (auto* pane = views_.PaneOf(now))
      active_ = pane;
  });
  connect(this, &QMainWindow::tabifiedDockWidgetActivated, this, &TMainWindow::ApplyTab);
  KeepSaving();
  FollowMarket();
}

TMainWindow::~TMainWindow() {
  // What views and docks tell while they close must not reach a window that is no longer whole.
  views_.disconnect(this);
  disconnect(this);
  disconnect(qApp, nullptr, this, nullptr);
  parts_.State.OnLost = nullptr;
  parts_.Services.Skin.OnChanged = nullptr;
  parts_.Services.Editors.IsByProgram = nullptr;
}

void TMainWindow::BuildShortcuts() {
  for (std::size_t action = 0; action < shortcuts_.size(); ++action) {
    keys_.push_back(new QShortcut(this));
    connect(keys_.back(), &QShortcut::activated, this,
            [this, action] { ExecuteShortcut(static_cast<int>(action)); });
  }
  SetShortcutKeys();
}

void TMainWindow::SetShortcutKeys() {
  for (std::size_t action = 0; action < shortcuts_.size(); ++action)
    keys_[action]->setKey(ShortcutKey(parts_.Services.Config, shortcuts_[action].Name));
}

void TMainWindow::ExecuteShortcut(int action) {
  if (const auto* pane = ActivePane())
    parts_.Descriptor.ActiveView(pane->Handle());
  parts_.Descriptor.ExecuteShortcutAction(action);
}

QString TMainWindow::KeyUse(const QKeySequence& key) const {
  for (const auto* action : findChildren<QAction*>())
    if (!key.isEmpty() && action->shortcut() == key)
      return action->text();
  return {};
}

TViewSettings TMainWindow::Settings() const {
  return SettingsAt(parts_.Services.Settings.Scale.Value());
}

TViewSettings TMainWindow::SettingsAt(int scale) const {
  return Terminal::SettingsAt(parts_.Services.Languages.CurrentLanguage(), scale);
}

// Of the window itself, and so of its tools and captions. Menus, tool tips, dialogs and the lists
// that complete what is typed are windows of their own and inherit nothing.
void TMainWindow::ApplyFont(const TViewSettings& settings) {
  const QFont font(settings.FontName, settings.FontSize);
  setFont(font);
  for (const char* own : {"QMenu", "QTipLabel", "QDialog", "QListView"})
    QApplication::setFont(font, own);
}

void TMainWindow::NewView() {
  const auto* active = ActivePane();
  views_.Open(active ? active->LayoutData() : std::string());
}

void TMainWindow::ShowView(TViewPane* pane) {
  auto* dock = new QDockWidget(this);
  dock->setAttribute(Qt::WA_WindowPropagation);
  dock->setTitleBarWidget(pane->ReleaseCaptionBar());
  dock->setWidget(new TViewCorner(pane));
  dock->setWindowTitle(pane->windowTitle());
  connect(pane, &QWidget::windowTitleChanged, dock, &QWidget::setWindowTitle);
  std::vector<QDockWidget*> before;
  for (const auto& [number, other] : docks_)
    before.push_back(other);
  tools_->AddView(dock, before, pane->PreferredSize().width());
  docks_[pane->Number()] = dock;
  ShowMarks();
  active_ = pane;
}

void TMainWindow::ApplyNotification(int number, int code) {
  auto* pane = views_.Pane(number);
  if (code == Constdef::Notify_Shortcut && pane)
    GoTo(*pane);
}

TViewPane* TMainWindow::ActivePane() const {
  if (active_)
    return active_;
  const auto panes = views_.Panes();
  return panes.empty() ? nullptr : panes.front();
}

// The keyboard must not stay in a view that is no longer seen.
void TMainWindow::ApplyTab(const QDockWidget* chosen) {
  const auto found = std::find_if(docks_.begin(), docks_.end(),
                                  [chosen](const auto& dock) { return dock.second == chosen; });
  if (found == docks_.end())
    return;
  active_ = views_.Pane(found->first);
  if (views_.PaneOf(QApplication::focusWidget()))
    GoTo(*active_);
}

void TMainWindow::GoTo(const TViewPane& pane) {
  const auto dock = docks_.find(pane.Number());
  if (dock == docks_.end())
    return; // it is still being opened
  dock->second->raise();
  dock->second->activateWindow();
  auto* box = pane.View()->findChild<Platform::TcxPopupEdit*>();
  if (!box || !box->isVisibleTo(pane.View())) // the user may have put it away
    return pane.View()->setFocus(Qt::ShortcutFocusReason);
  box->setFocus(Qt::ShortcutFocusReason);
  box->selectAll();
}

void TMainWindow::ChooseGroup() {
  if (tools_->IsInSymbolList())
    tools_->ChooseListGroup();
  else if (auto* pane = ActivePane())
    pane->ChooseGroup();
}

// A key that plays or pauses must not do so while it presses a button or is typed.
void TMainWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && !event->isAutoRepeat())
    player_->PlayOrPause();
  else
    QMainWindow::keyPressEvent(event);
}

QString TMainWindow::CaptionOfSender(System::TObject* sender) const {
  const auto* control = dynamic_cast<Basedcdatacontrol::TCustomDataControl*>(sender);
  for (const auto* pane : views_.Panes())
    if (control && control->Owner() == pane->Instance())
      return pane->Title();
  return {};
}

void TMainWindow::RecordOrStop() {
  QString file = QString::fromStdString(recorder_.File());
  std::optional<Data::TProblem> problem;
  if (recorder_.IsRecording()) {
    problem = recorder_.Stop();
  } else {
    file = QFileDialog::getSaveFileName(this, WindowText("Term_Record"),
                                        QStringLiteral("market.jsonl"), QStringLiteral("*.jsonl"));
    if (!file.isEmpty())
      problem = recorder_.Start(file.toStdString());
  }
  ShowRecording();
  WarnOf(file, problem);
}

void TMainWindow::ShowRecording() {
  ShowTitle();
  record_->setChecked(recorder_.IsRecording());
}

void TMainWindow::ShowTitle() {
  const QString name = QStringLiteral("QuorPrice");
  setWindowTitle(MarkedTitle(recorder_.IsRecording()
                                 ? QStringLiteral("● %1 – %2").arg(WindowText("Term_Record"), name)
                                 : name,
                             SimulatedMark(parts_.Feed)));
}

void TMainWindow::WarnOf(const QString& file, const std::optional<Data::TProblem>& problem) {
  if (problem)
    QMessageBox::warning(this, QStringLiteral("QuorPrice"), FileSentence(file, problem));
}

void TMainWindow::OpenPreferences() {
  if (!preferences_) {
    auto& config = parts_.Services.Config;
    own_ = std::make_unique<TTerminalPreferences>(std::make_unique<TTerminalPage>(
        config, shortcuts_, [this](const QKeySequence& key) { return KeyUse(key); }));
    preferences_ = std::make_unique<TPreferenceDialog>(
        config,
        std::vector{parts_.Descriptor.GetPreferenceView(),
                    static_cast<Baseview::TIBasePreferenceView*>(own_.get())},
        this);
    connect(preferences_.get(), &TPreferenceDialog::Saved, this, &TMainWindow::SetShortcutKeys);
  }
  preferences_->ShowPage();
}

void TMainWindow::SetLanguage(int language) {
  parts_.Services.Languages.SetLanguage(language);
  parts_.Services.Settings.Language.Set(language);
  views_.SetLanguage(language);
  if (preferences_)
    preferences_->SetLanguage(language);
  tools_->SetTexts();
  player_->SetTexts();
  ShowMarks();
  BuildMenu();
}

void TMainWindow::SetSkin(const QString& name) {
  parts_.Services.Skin.Select(name.toStdString());
  parts_.Services.Settings.Skin.Set(name.toStdString());
}

void TMainWindow::SetPriceColours(const QString& name) {
  parts_.Services.Skin.SelectPriceColours(name.toStdString());
  parts_.Services.Settings.PriceColours.Set(name.toStdString());
}

void TMainWindow::SetScale(int perCent) {
  // Fonts first: what a view derives from its font it derives when it hears of the scale.
  const TViewSettings settings = SettingsAt(perCent);
  ApplyFont(settings);
  for (const auto* pane : views_.Panes())
    parts_.Descriptor.SetFont(pane->Handle(), settings.FontName.toStdString(), settings.FontSize,
                              0);
  parts_.Services.Settings.Scale.Set(perCent);
  parts_.Services.Channels.Send(Constdef::Channel_ScaleChanged, nullptr, nullptr);
}

} // namespace Terminal
