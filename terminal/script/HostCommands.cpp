#include "terminal/script/ScriptSession.h"
#include "terminal/script/input/Input.h"

#include "host/ConstDef.h"
#include "host/DataDef.h"
#include "platform/Colour.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <iterator>

namespace Terminal {

namespace {

using TKind = TMemberKind;
constexpr TPresence Optional = TPresence::Optional;

std::string SectionOf(TScriptSession& session, const QJsonObject& members) {
  const std::string section = TextOf(members, "section");
  return section == "current" ? session.Services().Config.CurrentSection() : section;
}

QJsonObject WriteConfig(TScriptSession& session, const QJsonObject& members) {
  session.Services().Config.WriteString(SectionOf(session, members), TextOf(members, "key"),
                                        TextOf(members, "value"), true);
  return {};
}

QJsonObject ReadConfig(TScriptSession& session, const QJsonObject& members) {
  const std::string value =
      session.Services().Config.ReadString(SectionOf(session, members), TextOf(members, "key"));
  return {{"value", QString::fromStdString(value)}};
}

QJsonObject SetLayoutReady(TScriptSession& session, const QJsonObject& members) {
  session.Services().Config.SetLayoutReady(members["value"].toBool());
  return {};
}

QJsonObject Grant(TScriptSession& session, const QJsonObject& members) {
  const QJsonArray list = members["functions"].toArray();
  CheckElements(list, TKind::Text, QStringLiteral("functions"));
  TUserProfile::TFunctions functions;
  for (const auto& name : list)
    functions.insert(name.toString().toStdString());
  session.Services().Profile.Grant(functions);
  return {};
}

QJsonObject SetFeedType(TScriptSession& session, const QJsonObject& members) {
  std::optional<int> type;
  if (!members["value"].isNull())
    type = members["value"].toInt();
  session.Services().Vendor.SetFeedType(type);
  return {};
}

QJsonObject SetTexts(TScriptSession& session, const QJsonObject& members) {
  const QString mode = members["mode"].toString();
  if (mode != "keys" && mode != "language")
    throw TScriptError(QStringLiteral("The mode must be \"keys\" or \"language\"."));
  session.Services().Languages.SetKeysMode(mode == "keys");
  return {};
}

QJsonObject SetLanguage(TScriptSession& session, const QJsonObject& members) {
  const int language = members["value"].toInt();
  if (language < Constdef::Language_TraditionalChinese || language > Constdef::Language_English)
    throw TScriptError(QStringLiteral("There is no language %1.").arg(language));
  session.Services().Languages.SetLanguage(language);
  session.Views().SetLanguage(language);
  if (auto* preferences = session.Preferences())
    preferences->SetLanguage(language);
  return {};
}

QJsonObject ReplaceSkin(TScriptSession& session, const QJsonObject& members) {
  const QJsonObject colours = members["colours"].toObject();
  const QJsonObject section = members["section"].toObject();
  CheckElements(colours, TKind::Colour, QStringLiteral("colours"));
  CheckElements(section, TKind::Text, QStringLiteral("section"));
  std::map<std::string, System::TColor> byName;
  for (auto colour = colours.begin(); colour != colours.end(); ++colour)
    byName[colour.key().toStdString()] = Platform::FromQColor(QColor(colour.value().toString()));
  TConfigStore::TSection values;
  for (auto value = section.begin(); value != section.end(); ++value)
    values[value.key().toStdString()] = value.value().toString().toStdString();
  session.Services().Skin.Replace(byName, values);
  return {};
}

std::unique_ptr<System::TObject> ListOf(const QJsonObject& list) {
  CheckMembers(list, {{"symbol", TKind::Text, Optional}, {"empty", TKind::Boolean, Optional}},
               QStringLiteral("list"));
  return std::make_unique<TListObject>(TextOf(list, "symbol"), list["empty"].toBool());
}

std::unique_ptr<System::TObject> GroupOf(const QJsonObject& group) {
  CheckMembers(group,
               {{"id", TKind::Text, Optional},
                {"symbol", TKind::Text, Optional},
                {"refused", TKind::Boolean, Optional}},
               QStringLiteral("member \"group\""));
  return std::make_unique<TGroupData>(TextOf(group, "id"), TextOf(group, "symbol"),
                                      group["refused"].toBool());
}

/// A message of order entry with the client order that it carries.
struct TClientOrderMessage : Datadef::TCopyOrderRecord {
  explicit TClientOrderMessage(const QJsonObject& order) : Carried(TextOf(order, "symbol")) {
    Order = &Carried;
    Source = TextOf(order, "group");
  }

  TClientOrder Carried;
};

std::unique_ptr<System::TObject> OrderOf(const QJsonObject& order) {
  CheckMembers(order, {{"group", TKind::Text, Optional}, {"symbol", TKind::Text, Optional}},
               QStringLiteral("member \"order\""));
  return std::make_unique<TClientOrderMessage>(order);
}

bool IsChannel(int number) {
  constexpr int channels[] = {Constdef::Channel_CopySymbol,   Constdef::Channel_MainFormShown,
                              Constdef::Channel_LayoutLoaded, Constdef::Channel_ScaleChanged,
                              Constdef::Channel_CopyOrder,    Constdef::Channel_BeginningOfDay};
  return std::find(std::begin(channels), std::end(channels), number) != std::end(channels);
}

QJsonObject SendChannel(TScriptSession& session, const QJsonObject& members) {
  if (const int number = members["number"].toInt(); !IsChannel(number))
    throw TScriptError(QStringLiteral("There is no channel %1.").arg(number));
  if (members.contains("list") + members.contains("group") + members.contains("order") > 1)
    throw TScriptError(QStringLiteral("A channel message carries one thing at most."));
  std::unique_ptr<System::TObject> data;
  if (members.contains("list"))
    data = ListOf(members["list"].toObject());
  else if (members.contains("group"))
    data = GroupOf(members["group"].toObject());
  else if (members.contains("order"))
    data = OrderOf(members["order"].toObject());
  session.Services().Channels.Send(members["number"].toInt(), nullptr, data.get());
  return {};
}

QJsonObject SendGroupMessage(TScriptSession& session, const QJsonObject& members) {
  const std::string group = TextOf(members, "group");
  TGroupData data(group, TextOf(members, "symbol"), members["refused"].toBool());
  session.Services().Channels.SendToGroup(group, nullptr, &data);
  return {};
}

QJsonObject ChangeScale(TScriptSession& session, const QJsonObject& members) {
  session.Services().Settings.Scale.Set(members["value"].toInt());
  session.Services().Channels.Send(Constdef::Channel_ScaleChanged, nullptr, nullptr);
  return {};
}

QJsonObject UsePreferences(TScriptSession& session, const QJsonObject& members) {
  const QString action = members["action"].toString();
  if (action == "open") {
    session.OpenPreferences();
    return {};
  }
  static const std::map<QString, QDialogButtonBox::StandardButton> buttons = {
      {"execute", QDialogButtonBox::Apply},
      {"reset", QDialogButtonBox::Reset},
      {"reset-factory", QDialogButtonBox::RestoreDefaults},
      {"close", QDialogButtonBox::Cancel}};
  const auto button = buttons.find(action);
  if (button == buttons.end())
    throw TScriptError(QStringLiteral("There is no preference action \"%1\".").arg(action));
  Input::Click(session.ShownPreferences().Button(button->second));
  return {};
}

QJsonObject Tick(TScriptSession&, const QJsonObject& members) {
  const int milliseconds = members["ms"].toInt();
  if (milliseconds < 0)
    throw TScriptError(QStringLiteral("A time must not be negative."));
  QEventLoop loop;
  QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
  return {};
}

} // namespace

std::vector<TScriptCommand> HostCommands() {
  return {
      {"config",
       {{"section", TKind::Text}, {"key", TKind::Text}, {"value", TKind::Text}},
       WriteConfig},
      {"config-get", {{"section", TKind::Text}, {"key", TKind::Text}}, ReadConfig},
      {"layout-ready", {{"value", TKind::Boolean}}, SetLayoutReady},
      {"grant", {{"functions", TKind::List}}, Grant},
      {"feed-type", {{"value", TKind::IntegerOrNull}}, SetFeedType},
      {"texts", {{"mode", TKind::Text}}, SetTexts},
      {"language", {{"value", TKind::Integer}}, SetLanguage},
      {"skin",
       {{"colours", TKind::Object, Optional}, {"section", TKind::Object, Optional}},
       ReplaceSkin},
      {"channel",
       {{"number", TKind::Integer},
        {"list", TKind::Object, Optional},
        {"group", TKind::Object, Optional},
        {"order", TKind::Object, Optional}},
       SendChannel},
      {"group-message",
       {{"group", TKind::Text}, {"symbol", TKind::Text}, {"refused", TKind::Boolean, Optional}},
       SendGroupMessage},
      {"scale", {{"value", TKind::Integer}}, ChangeScale},
      {"preferences", {{"action", TKind::Text}}, UsePreferences},
      {"tick", {{"ms", TKind::Integer}}, Tick},
  };
}

} // namespace Terminal
