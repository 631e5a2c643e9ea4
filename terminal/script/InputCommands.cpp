#include "terminal/script/ScriptSession.h"
#include "terminal/script/input/Input.h"

#include "host/ConstDef.h"
#include "platform/Controls.h"
#include "platform/Grid.h"
#include "platform/HintController.h"
#include "platform/PopupEdit.h"

#include <QToolButton>

#include <algorithm>
#include <iterator>

namespace Terminal {

namespace {

using TKind = TMemberKind;

[[noreturn]] void Refuse(const QString& component, const char* why) {
  throw TScriptError(QStringLiteral("The component \"%1\" %2.").arg(component, QLatin1String(why)));
}

QObject& NeededComponent(const TViewPane& pane, const QString& name) {
  auto* component = name.isEmpty() ? nullptr : pane.View()->findChild<QObject*>(name);
  if (!component)
    throw TScriptError(QStringLiteral("The view has no component \"%1\".").arg(name));
  return *component;
}

/// The component as the kind of widget that a command needs, ready to be used.
template <typename TWidget>
TWidget& NeededWidget(const TViewPane& pane, const QString& name, const char* kind) {
  auto* widget = qobject_cast<TWidget*>(&NeededComponent(pane, name));
  if (!widget)
    throw TScriptError(
        QStringLiteral("The component \"%1\" is not %2.").arg(name, QLatin1String(kind)));
  CheckUsable(*widget);
  return *widget;
}

/// Where a cell is on the screen, and in which grid.
struct TCellPlace {
  Platform::TcxGrid& Grid;
  QPoint Middle;
};

TCellPlace FindCell(const TViewPane& pane, const QJsonObject& members) {
  const QString name = members["grid"].toString();
  auto& grid = NeededWidget<Platform::TcxGrid>(pane, name, "a grid");
  const int row = members["row"].toInt();
  const int tag = members["col"].toInt();
  const auto& columns = grid.View()->Columns();
  const auto column = std::find_if(columns.begin(), columns.end(),
                                   [tag](const auto& c) { return c->Tag == tag && c->Visible; });
  if (column == columns.end())
    throw TScriptError(QStringLiteral("The grid \"%1\" shows no column %2.").arg(name).arg(tag));
  const QRect bounds = grid.View()->CellBounds(row, column->get());
  if (bounds.isEmpty())
    throw TScriptError(QStringLiteral("The grid \"%1\" shows no row %2.").arg(name).arg(row));
  return {grid, bounds.center()};
}

QJsonObject TypeSymbol(TScriptSession& session, const QJsonObject& members) {
  auto& box = NeededWidget<Platform::TcxPopupEdit>(
      session.Pane(members), QLatin1String(Constdef::Component_SymbolBox), "a symbol box");
  Input::Type(&box, members["text"].toString());
  Input::PressKey(&box, Qt::Key_Return);
  return {};
}

QJsonObject ClickCell(TScriptSession& session, const QJsonObject& members) {
  const TCellPlace place = FindCell(session.Pane(members), members);
  Input::Click(&place.Grid, place.Middle);
  return {};
}

QJsonObject HoverCell(TScriptSession& session, const QJsonObject& members) {
  const auto& pane = session.Pane(members);
  const TCellPlace place = FindCell(pane, members);
  Input::MoveMouse(&place.Grid, place.Middle);
  Input::Deliver();
  const auto* hints = pane.View()->findChild<Platform::TcxHintStyleController*>();
  const QString hint = hints ? hints->VisibleCaption() : QString();
  return {{"hint", hint.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(hint)}};
}

void ChooseMenuItem(const TViewPane& pane, QAction* item) {
  if (!item->isVisible() || !item->isEnabled())
    Refuse(item->objectName(), item->isVisible() ? "is not enabled" : "is not visible");
  for (auto* grid : pane.View()->findChildren<Platform::TcxGrid*>())
    if (grid->isVisible() && Input::ChooseFromContextMenu(grid, item))
      return;
  // No menu that a person can reach offers it in this form of the view.
  item->trigger();
}

QJsonObject PressComponent(TScriptSession& session, const QJsonObject& members) {
  const auto& pane = session.Pane(members);
  const QString name = members["component"].toString();
  if (auto* item = qobject_cast<QAction*>(&NeededComponent(pane, name)))
    ChooseMenuItem(pane, item);
  else
    Input::Click(&NeededWidget<QPushButton>(pane, name, "a button or a menu item"));
  return {};
}

QJsonObject PressCaptionButton(TScriptSession& session, const QJsonObject& members) {
  const auto& pane = session.Pane(members);
  const QString name = members["button"].toString();
  const std::string wantedName = name.toStdString();
  const auto& known = Constdef::CaptionButtons;
  if (std::find(std::begin(known), std::end(known), wantedName) == std::end(known))
    throw TScriptError(QStringLiteral("There is no caption button \"%1\".").arg(name));
  const auto buttons = pane.CaptionButtons();
  const auto wanted =
      std::find_if(buttons.begin(), buttons.end(),
                   [&wantedName](const auto* button) { return button->Name == wantedName; });
  auto* tool = wanted == buttons.end()
                   ? nullptr
                   : pane.CaptionTool(static_cast<int>(wanted - buttons.begin()));
  if (!tool)
    throw TScriptError(QStringLiteral("The view has no caption button \"%1\".").arg(name));
  Input::Click(tool);
  return {};
}

QJsonObject ChooseEntry(TScriptSession& session, const QJsonObject& members) {
  const QString name = members["component"].toString();
  auto& box = NeededWidget<QComboBox>(session.Pane(members), name, "a combo box");
  const int index = members["index"].toInt();
  if (index < 0 || index >= box.count())
    throw TScriptError(
        QStringLiteral("The combo box \"%1\" has no entry %2.").arg(name).arg(index));
  Input::Choose(&box, index);
  return {};
}

QJsonObject ClosePopup(TScriptSession& session, const QJsonObject& members) {
  const int index = members["index"].toInt();
  for (const auto& popup : session.Pane(members).Popups())
    if (popup.Index == index) {
      popup.Window->close();
      return {};
    }
  throw TScriptError(QStringLiteral("The view has no open pop-up %1.").arg(index));
}

} // namespace

void CheckUsable(const QWidget& widget) {
  if (!widget.isVisible() || !widget.isEnabled())
    Refuse(widget.objectName(), widget.isVisible() ? "is not enabled" : "is not visible");
}

std::vector<TScriptCommand> InputCommands() {
  const TMember view{"view", TKind::Integer};
  const std::vector<TMember> cell{
      view, {"grid", TKind::Text}, {"row", TKind::Integer}, {"col", TKind::Integer}};
  return {
      {"type", {view, {"text", TKind::Text}}, TypeSymbol},
      {"click", cell, ClickCell},
      {"hover", cell, HoverCell},
      {"press", {view, {"component", TKind::Text}}, PressComponent},
      {"caption-button", {view, {"button", TKind::Text}}, PressCaptionButton},
      {"choose", {view, {"component", TKind::Text}, {"index", TKind::Integer}}, ChooseEntry},
      {"popup-close", {view, {"index", TKind::Integer}}, ClosePopup},
  };
}

} // namespace Terminal
