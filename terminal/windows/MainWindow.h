#pragma once

#include "terminal/services/MarketRecorder.h"
#include "terminal/store/SavedState.h"
#include "terminal/windows/PlayerBar.h"
#include "terminal/windows/PreferenceDialog.h"
#include "terminal/windows/TerminalPreferences.h"
#include "terminal/windows/ToolDocks.h"
#include "terminal/windows/ViewHost.h"

#include <QMainWindow>

#include <functional>
#include <map>
#include <memory>

class QDockWidget;
class QShortcut;

namespace Terminal {

class TServices;

/// What the first view shows when the views of the last run come back.
enum class TFirstView { AsSaved, AsTold };

/// The terminal's window: price views and tools in docks, player bar and menu. Everything is
/// kept as it changes and put back at the next start.
class TMainWindow : public QMainWindow {
  Q_OBJECT

public:
  /// What the window works with. All that it refers to outlives the window.
  struct TParts {
    TServices& Services;
    Baseview::TIBaseView& Descriptor;
    TMarketPlayer& Player;
    TMarketFeed& Feed;
    TSavedState& State;
    TOrderDesk& Desk;
    Feed::TSourceOptions SourceOptions = {}; ///< for what is opened from the menu
  };

  explicit TMainWindow(const TParts& parts);
  ~TMainWindow() override;

  /// Puts back the views of the last run. The first takes `layoutData` when it was told so, and
  /// when nothing was saved.
  void RestoreViews(const std::string& layoutData, TFirstView firstView = TFirstView::AsSaved);

  TViewHost& Views() { return views_; }

protected:
  void closeEvent(QCloseEvent* event) override;
  /// Keys that the focused widget has no use for.
  void keyPressEvent(QKeyEvent* event) override;

private:
  /// A setting's value and its text.
  using TChoice = std::pair<QString, QString>;

  void BuildMenu();
  void BuildFileMenu();
  void BuildViewMenu();
  void BuildSettingsMenu();
  void AddSettings(QMenu* menu, const QString& caption, const QString& present,
                   const std::vector<TChoice>& choices,
                   const std::function<void(const QString&)>& choose);
  void BuildShortcuts();
  void SetShortcutKeys();
  void ExecuteShortcut(int action);
  /// What the menu has a key for; empty when nothing.
  QString KeyUse(const QKeySequence& key) const;
  void BuildWindowMenu();

  TViewSettings Settings() const;
  /// At a display scale, in per cent.
  TViewSettings SettingsAt(int scale) const;
  void NewView();
  void ShowView(TViewPane* pane);
  void ApplyNotification(int number, int code);
  /// Brings the view to the front and the keyboard into its symbol box.
  void GoTo(const TViewPane& pane);
  void ApplyTab(const QDockWidget* chosen);
  void ChooseGroup();
  void ApplyFont(const TViewSettings& settings);
  TViewPane* ActivePane() const;
  QString CaptionOfSender(System::TObject* sender) const;

  void FollowMarket();
  void ShowMarks();
  void OpenSource(const Feed::TSourceKind& kind);
  void SetFeedType(int type);
  void RecordOrStop();
  void ShowRecording();
  void ShowTitle();
  /// Says what is wrong with a file, if anything is.
  void WarnOf(const QString& file, const std::optional<Data::TProblem>& problem);
  void OpenPreferences();
  void SetLanguage(int language);
  void SetSkin(const QString& name);
  void SetPriceColours(const QString& name);
  void SetScale(int perCent);

  void KeepSaving();
  /// Only what has changed.
  void Save();
  void RestoreArrangement(const TSavedLayout& saved);
  void ArrangeDocks();
  void NameDocks();
  void ShowStoreProblem();

  TParts parts_;
  TViewHost views_;
  std::map<int, QDockWidget*> docks_; ///< by view
  QPointer<TViewPane> active_;
  std::unique_ptr<TToolDocks> tools_;
  TPlayerBar* player_;
  TMarketRecorder recorder_;
  QAction* record_ = nullptr;    ///< in the menu
  TShortcuts shortcuts_;         ///< that the descriptor offers
  std::vector<QShortcut*> keys_; ///< of these, in their order
  std::unique_ptr<TTerminalPreferences> own_;
  std::unique_ptr<TPreferenceDialog> preferences_;
  QTimer saveTimer_;
  TSavedLayout saved_; ///< as it was stored last
};

} // namespace Terminal
