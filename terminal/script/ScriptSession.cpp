#include "terminal/script/ScriptSession.h"

#include "host/ConstDef.h"
#include "host/DataDef.h"

#include <QApplication>

namespace Terminal {

namespace {

QJsonValue NumberOrNull(std::optional<double> number) {
  return number ? QJsonValue(*number) : QJsonValue(QJsonValue::Null);
}

QJsonObject OrderAnswer(const TOrder& order, const Datadef::TCopyOrderRecord& record) {
  QJsonObject values;
  for (const auto& [name, value] : order.Values())
    values[QString::fromStdString(name)] = QString::fromStdString(value);
  return {{"symbol", QString::fromStdString(order.Symbol())},
          {"price", NumberOrNull(order.Price())},
          {"quantity", NumberOrNull(order.Quantity())},
          {"values", values},
          {"kind", record.Kind},
          {"source", QString::fromStdString(record.Source)}};
}

} // namespace

TScriptSession::TScriptSession(TServices& services, Baseview::TIBaseView& descriptor)
    : services_(services), views_(services, descriptor, [this] {
        const QFont font = QApplication::font();
        return TViewSettings{services_.Languages.CurrentLanguage(), font.family(),
                             font.pointSize()};
      }) {
  services_.Config.SetLayoutReady(true);
  services_.Skin.OnChanged = [this] { views_.SetSkin(); };
  services_.Editors.IsByProgram = [this] {
    return services_.Channels.IsDelivering() || views_.IsSettingLayout();
  };
  services_.Channels.Subscribe(
      Constdef::Channel_CopyOrder,
      [this](System::TObject*, System::TObject* data) { LogOrder(data); }, &owner_);
  connect(&views_, &TViewHost::Opened, this, [](TViewPane* pane) { pane->show(); });
  connect(&views_, &TViewHost::Notified, this, [this](int view, int code) {
    notifications_.append(QJsonObject{{"view", view}, {"code", code}});
  });
  connect(&views_, &TViewHost::CustomViewAsked, this, [this](int type, const QString& symbol) {
    opened_.append(QJsonObject{{"type", type}, {"symbol", symbol}});
  });
}

TScriptSession::~TScriptSession() {
  services_.Channels.Unsubscribe(Constdef::Channel_CopyOrder, &owner_);
  services_.Skin.OnChanged = nullptr;
  services_.Editors.IsByProgram = nullptr;
}

TViewPane& TScriptSession::Pane(const QJsonObject& members) const {
  const int number = members["view"].toInt();
  if (auto* pane = views_.Pane(number))
    return *pane;
  throw TScriptError(QStringLiteral("View %1 is not open.").arg(number));
}

TPreferenceDialog& TScriptSession::OpenPreferences() {
  if (!Descriptor().GetPreferenceView())
    throw TScriptError(QStringLiteral("The package has no preference page."));
  if (!preferences_)
    preferences_ = std::make_unique<TPreferenceDialog>(
        services_.Config, std::vector{Descriptor().GetPreferenceView()});
  preferences_->ShowPage();
  return *preferences_;
}

TPreferenceDialog& TScriptSession::ShownPreferences() {
  if (!preferences_ || !preferences_->isVisible())
    throw TScriptError(QStringLiteral("The preferences are not open."));
  return *preferences_;
}

TRegistrations TScriptSession::Registrations() const {
  TRegistrations all = services_.Registrations();
  --all.Channels;
  return all;
}

void TScriptSession::LogOrder(System::TObject* data) {
  const auto* record = dynamic_cast<Datadef::TCopyOrderRecord*>(data);
  const auto* order = record ? dynamic_cast<TOrder*>(record->Order) : nullptr;
  if (order)
    orders_.append(OrderAnswer(*order, *record));
}

} // namespace Terminal
