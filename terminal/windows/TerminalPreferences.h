#pragma once

#include "host/view/BasePreferenceView.h"
#include "terminal/services/ConfigStore.h"

#include <QKeySequence>
#include <QLabel>

#include <functional>

class QFormLayout;

namespace Terminal {

using TShortcuts = std::vector<Viewinterface::TCustomViewShortcut>;

/// What the window begins with where nothing was stored: captions of the quantity buttons, and keys
/// of the shortcuts that views offer.
std::vector<TConfigValue> WindowDefaults(const TShortcuts& shortcuts);

/// The key that the user has chosen for a view's shortcut, by the shortcut's name; empty for none.
QKeySequence ShortcutKey(TConfigStore& config, const std::string& name);

/// The preference page of the terminal itself: what it sets up the price views by, and the keys of
/// their shortcuts.
class TTerminalPage : public Baseview::TBasePreferenceFrame {
public:
  /// What the window uses a key for already; empty when for nothing.
  using TKeyUse = std::function<QString(const QKeySequence& key)>;

  /// Shows the stored values. The configuration outlives the page.
  TTerminalPage(TConfigStore& config, const TShortcuts& shortcuts, TKeyUse keyUse);

  QWidget* Widget() override { return &content_; }
  int GetWidth() override { return content_.minimumSizeHint().width(); }
  int GetHeight() override { return content_.minimumSizeHint().height(); }
  bool SetLanguage(int language) override;
  /// Stores what was changed. A key that is in use is not taken.
  bool Execute() override;
  bool Reset() override;
  bool ResetFactory() override;
  bool SendMessage(int, std::int64_t) override { return true; }

private:
  /// A value of the configuration and the box that shows it, as text.
  struct TValue {
    std::string Section, Key;
    std::function<QString()> Text;
    std::function<void(const QString&)> SetText;
    QString Stored; ///< as the box shows it
  };

  void AddHeading(const char* key);
  void AddCaptions();
  void AddInterval();
  void AddConcealedExchanges();
  void AddShortcut(const Viewinterface::TCustomViewShortcut& shortcut);
  void AddDenominatorMode();
  void AddLabelled(const std::string& key, QWidget* box);
  void AddHint(QWidget* box, const char* key);
  QLabel* Label(const std::string& key);

  TConfigStore& config_;
  const std::vector<TConfigValue> defaults_;
  TKeyUse keyUse_;
  QWidget content_;
  QFormLayout* form_;
  std::vector<TValue> values_;
  std::vector<std::function<void()>> texts_; ///< take those of the present language
};

/// The terminal's among the preferences of its packages.
class TTerminalPreferences : public Baseview::TIBasePreferenceView {
public:
  explicit TTerminalPreferences(std::unique_ptr<TTerminalPage> page);

  std::string GetName() override;
};

} // namespace Terminal
