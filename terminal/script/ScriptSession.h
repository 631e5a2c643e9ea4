#pragma once

#include "terminal/script/ScriptCommand.h"
#include "terminal/services/Services.h"
#include "terminal/windows/PreferenceDialog.h"
#include "terminal/windows/ViewHost.h"

#include <QObject>

namespace Terminal {

/// The terminal that a script drives: an empty world, and a log of what the package sends.
class TScriptSession : public QObject {
  Q_OBJECT

public:
  /// Both outlive the session.
  TScriptSession(TServices& services, Baseview::TIBaseView& descriptor);
  ~TScriptSession() override;

  TServices& Services() { return services_; }
  TViewHost& Views() { return views_; }
  Baseview::TIBaseView& Descriptor() { return views_.Descriptor(); }

  /// Throws TScriptError when the view was never opened or is closed.
  TViewPane& Pane(const QJsonObject& members) const;
  /// Null until preferences were first opened.
  TPreferenceDialog* Preferences() { return preferences_.get(); }
  TPreferenceDialog& OpenPreferences();
  /// Throws TScriptError unless they are open.
  TPreferenceDialog& ShownPreferences();

  /// What was sent since the last call; each empties its log.
  QJsonArray TakeOrders() { return std::exchange(orders_, {}); }
  QJsonArray TakeNotifications() { return std::exchange(notifications_, {}); }
  QJsonArray TakeOpenedViews() { return std::exchange(opened_, {}); }

  /// Those of views and preference page; what the session itself holds is left out.
  TRegistrations Registrations() const;

private:
  void LogOrder(System::TObject* data);

  /// What owns the session's own registrations.
  struct TOwner : System::TObject {};

  TServices& services_;
  TOwner owner_;
  TViewHost views_;
  std::unique_ptr<TPreferenceDialog> preferences_;
  QJsonArray orders_;
  QJsonArray notifications_;
  QJsonArray opened_;
};

/// Throws TScriptError unless a person can use the widget.
void CheckUsable(const QWidget& widget);

/// The commands by the group that they belong to.
std::vector<TScriptCommand> MarketCommands();
std::vector<TScriptCommand> HostCommands();
std::vector<TScriptCommand> ViewCommands();
std::vector<TScriptCommand> InputCommands();
std::vector<TScriptCommand> LogCommands();

} // namespace Terminal
