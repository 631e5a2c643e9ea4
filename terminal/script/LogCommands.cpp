#include "terminal/script/ScriptSession.h"

namespace Terminal {

namespace {

QJsonArray ListOf(const std::vector<std::string>& texts) {
  QJsonArray list;
  for (const auto& text : texts)
    list.append(QString::fromStdString(text));
  return list;
}

QJsonValue Count(std::size_t count) { return static_cast<qint64>(count); }

QJsonObject TakeOrders(TScriptSession& session, const QJsonObject&) {
  return {{"list", session.TakeOrders()}};
}

QJsonObject TakeNotifications(TScriptSession& session, const QJsonObject&) {
  return {{"list", session.TakeNotifications()}};
}

QJsonObject TakeRequests(TScriptSession& session, const QJsonObject&) {
  const TRequests requests = session.Services().Subscriptions.TakeRequests();
  return {{"subscribed", ListOf(requests.Subscribed)},
          {"released", ListOf(requests.Released)},
          {"refreshed", ListOf(requests.Refreshed)},
          {"opened", session.TakeOpenedViews()}};
}

QJsonObject CountRegistrations(TScriptSession& session, const QJsonObject&) {
  const TRegistrations counts = session.Registrations();
  return {{"configuration", Count(counts.Configuration)},
          {"channels", Count(counts.Channels)},
          {"groups", Count(counts.Groups)},
          {"timers", Count(counts.Timers)},
          {"editors", Count(counts.Editors)},
          {"records", Count(counts.Records)},
          {"tradeSides", Count(counts.TradeSides)}};
}

} // namespace

std::vector<TScriptCommand> LogCommands() {
  return {
      {"orders", {}, TakeOrders},
      {"notifications", {}, TakeNotifications},
      {"requests", {}, TakeRequests},
      {"registrations", {}, CountRegistrations},
  };
}

} // namespace Terminal
