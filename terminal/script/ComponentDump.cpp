#include "terminal/script/ComponentDump.h"

#include "platform/Controls.h"
#include "platform/Grid.h"
#include "platform/Label.h"
#include "platform/Layout.h"
#include "platform/PopupEdit.h"
#include "terminal/script/ViewDump.h"

#include <QJsonArray>

namespace Terminal {

namespace {

QString PaletteColour(const QWidget& widget, QPalette::ColorRole role) {
  return ColourText(widget.palette().color(QPalette::Active, role).rgb());
}

QJsonObject DumpWidget(const QWidget& widget) {
  return {{"visible", !widget.isHidden()}, {"enabled", widget.isEnabled()}};
}

QJsonObject DumpControl(const QWidget& widget, const QString& text, QPalette::ColorRole background,
                        QPalette::ColorRole foreground) {
  QJsonObject answer = DumpWidget(widget);
  answer["text"] = text;
  answer["hint"] = widget.toolTip();
  answer["color"] = PaletteColour(widget, background);
  answer["textColor"] = PaletteColour(widget, foreground);
  return answer;
}

QJsonObject DumpLabel(const Platform::TcxLabel& label) {
  QJsonObject answer = DumpControl(label, label.text(), QPalette::Window, QPalette::WindowText);
  if (const auto colour = label.Color())
    answer["color"] = ColourText(Platform::ToQColor(*colour).rgb());
  if (const auto colour = label.TextColor())
    answer["textColor"] = ColourText(Platform::ToQColor(*colour).rgb());
  return answer;
}

QJsonObject DumpCombo(const QComboBox& combo) {
  QJsonArray items;
  for (int i = 0; i < combo.count(); ++i)
    items.append(combo.itemText(i));
  QJsonObject answer =
      DumpControl(combo, combo.currentText(), QPalette::Button, QPalette::ButtonText);
  answer["items"] = items;
  answer["index"] = combo.currentIndex();
  answer["textHint"] = combo.placeholderText();
  return answer;
}

/// The hint of a symbol box is the symbol that it was resolved to.
QJsonObject DumpEdit(const Platform::TcxPopupEdit& edit) {
  QJsonObject answer = DumpControl(edit, edit.text(), QPalette::Base, QPalette::Text);
  answer["hint"] = edit.Hint();
  answer["textHint"] = edit.placeholderText();
  return answer;
}

QJsonObject DumpButton(const QAbstractButton& button) {
  // "&&" is how the toolkit writes an ampersand that marks no shortcut.
  const QString text = QString(button.text()).replace(QLatin1String("&&"), QLatin1String("&"));
  QJsonObject answer = DumpControl(button, text, QPalette::Button, QPalette::ButtonText);
  if (button.isCheckable())
    answer["checked"] = button.isChecked();
  return answer;
}

QJsonObject DumpAction(const QAction& action) {
  QJsonObject answer{{"caption", action.text()}, {"visible", action.isVisible()}};
  if (action.isCheckable())
    answer["checked"] = action.isChecked();
  return answer;
}

QJsonObject DumpComponent(const QObject& component) {
  if (const auto* element = qobject_cast<const Platform::TdxLayoutElement*>(&component))
    return {{"caption", element->Caption()}, {"visible", element->IsVisibleFlag()}};
  if (const auto* label = qobject_cast<const Platform::TcxLabel*>(&component))
    return DumpLabel(*label);
  if (const auto* edit = qobject_cast<const Platform::TcxPopupEdit*>(&component))
    return DumpEdit(*edit);
  if (const auto* combo = qobject_cast<const QComboBox*>(&component))
    return DumpCombo(*combo);
  if (const auto* button = qobject_cast<const QAbstractButton*>(&component))
    return DumpButton(*button);
  if (const auto* action = qobject_cast<const QAction*>(&component))
    return DumpAction(*action);
  if (qobject_cast<const QMenu*>(&component))
    return {};
  if (const auto* widget = qobject_cast<const QWidget*>(&component))
    return DumpWidget(*widget);
  return {};
}

/// The toolkit names inner parts of its own.
bool IsComponentName(const QString& name) {
  return !name.isEmpty() && !name.startsWith(QLatin1String("qt_")) &&
         !name.startsWith(QLatin1String("_q_"));
}

} // namespace

QJsonObject DumpComponents(const QObject& form) {
  QJsonObject components;
  for (const auto* component : form.findChildren<QObject*>())
    if (IsComponentName(component->objectName()))
      components[component->objectName()] = DumpComponent(*component);
  return components;
}

} // namespace Terminal
