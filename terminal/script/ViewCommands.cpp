#include "host/ConstDef.h"
#include "terminal/script/ScriptSession.h"
#include "terminal/script/ViewDump.h"
#include "terminal/script/input/Input.h"

#include <QPixmap>

namespace Terminal {

namespace {

using TKind = TMemberKind;

QJsonArray MenuOf(Baseview::TIBaseView& descriptor) {
  QJsonArray menu;
  for (int entry = 0; entry <= 2; ++entry)
    menu.append(QJsonObject{{"index", descriptor.GetMenuIndex(entry)},
                            {"id", descriptor.GetMenuID(entry)},
                            {"caption", QString::fromStdString(descriptor.GetMenuCaption(entry))},
                            {"group", descriptor.GetMenuGroupIndex(entry)}});
  return menu;
}

QJsonArray ShortcutsOf(Baseview::TIBaseView& descriptor) {
  std::vector<Viewinterface::TCustomViewShortcut> shortcuts;
  descriptor.GetShortCutList(shortcuts);
  QJsonArray list;
  for (const auto& shortcut : shortcuts)
    list.append(
        QJsonObject{{"name", QString::fromStdString(shortcut.Name)}, {"key", shortcut.Key}});
  return list;
}

QJsonValue PreferenceOf(Baseview::TIBaseView& descriptor) {
  auto* preference = descriptor.GetPreferenceView();
  if (!preference)
    return QJsonValue::Null;
  return QJsonObject{{"name", QString::fromStdString(preference->GetName())},
                     {"viewId", preference->GetViewID()},
                     {"width", preference->GetWidth()},
                     {"height", preference->GetHeight()}};
}

QJsonObject Describe(TScriptSession& session, const QJsonObject&) {
  auto& descriptor = session.Descriptor();
  int width = 0;
  int height = 0;
  descriptor.GetDefaultSize(width, height);
  std::string caption;
  descriptor.GetDefaultCaption(caption);
  return {{"className", QString::fromUtf8(Constdef::Class_QuorPrice.data())},
          {"name", QString::fromStdString(descriptor.GetName())},
          {"viewId", descriptor.GetViewID()},
          {"menuLevel", descriptor.GetMenuLevel()},
          {"menu", MenuOf(descriptor)},
          {"visible", descriptor.GetIsVisible()},
          {"defaultSize", QJsonArray{width, height}},
          {"defaultCaption", QString::fromStdString(caption)},
          {"shortcuts", ShortcutsOf(descriptor)},
          {"preference", PreferenceOf(descriptor)}};
}

QJsonObject OpenView(TScriptSession& session, const QJsonObject&) {
  const auto* pane = session.Views().Open();
  if (!pane)
    throw TScriptError(QStringLiteral("The package opens no view."));
  return {{"view", pane->Number()}};
}

QJsonObject CloseView(TScriptSession& session, const QJsonObject& members) {
  session.Views().Close(session.Pane(members).Number());
  return {};
}

QJsonObject SetLayout(TScriptSession& session, const QJsonObject& members) {
  auto& pane = session.Pane(members);
  if (members.contains("data")) {
    try {
      session.Views().SetLayoutData(pane, TextOf(members, "data"));
    } catch (const std::invalid_argument& error) {
      throw TScriptError(QStringLiteral("The view does not take the layout data (%1).")
                             .arg(QString::fromUtf8(error.what())));
    }
    Input::Deliver();
  }
  return {{"data", QString::fromStdString(pane.LayoutData())}};
}

QJsonObject SetGroup(TScriptSession& session, const QJsonObject& members) {
  session.Pane(members).SetGroup(TextOf(members, "id"));
  return {};
}

QJsonObject ExecuteShortcut(TScriptSession& session, const QJsonObject& members) {
  auto& descriptor = session.Descriptor();
  descriptor.ActiveView(session.Pane(members).Handle());
  return {{"handled", descriptor.ExecuteShortcutAction(members["action"].toInt())}};
}

QJsonObject Dump(TScriptSession& session, const QJsonObject& members) {
  return DumpView(session.Pane(members));
}

QJsonObject WriteSnapshot(TScriptSession& session, const QJsonObject& members) {
  const QString file = members["file"].toString();
  if (!session.Pane(members).View()->grab().save(file, "PNG"))
    throw TScriptError(QStringLiteral("The picture cannot be written to %1.").arg(file));
  return {};
}

} // namespace

std::vector<TScriptCommand> ViewCommands() {
  const TMember view{"view", TKind::Integer};
  return {
      {"descriptor", {}, Describe},
      {"open", {}, OpenView},
      {"close", {view}, CloseView},
      {"layout", {view, {"data", TKind::Text, TPresence::Optional}}, SetLayout},
      {"group", {view, {"id", TKind::Text}}, SetGroup},
      {"shortcut", {view, {"action", TKind::Integer}}, ExecuteShortcut},
      {"dump", {view}, Dump},
      {"snapshot", {view, {"file", TKind::Text}}, WriteSnapshot},
  };
}

} // namespace Terminal
