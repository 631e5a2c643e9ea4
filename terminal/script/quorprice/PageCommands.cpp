#include "terminal/script/quorprice/PageCommands.h"

#include "terminal/script/ComponentDump.h"
#include "terminal/script/ScriptSession.h"
#include "terminal/script/input/Input.h"
#include "terminal/script/quorprice/BrokerList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

namespace Terminal {

namespace {

using TKind = TMemberKind;
constexpr TPresence Optional = TPresence::Optional;

constexpr const char* StyleBox = "cmbCopyPriceStyle";
constexpr const char* HighlightBox = "cbBrokerID";
constexpr const char* AddButton = "btnAdd";
constexpr const char* ClearButton = "btnClear";

QWidget& PageOf(const TPreferenceDialog& dialog) { return *dialog.Page()->Widget(); }

template <typename TWidget> TWidget& Find(QWidget& page, const char* name) {
  if (auto* widget = page.findChild<TWidget*>(QLatin1String(name)))
    return *widget;
  throw TScriptError(
      QStringLiteral("The preference page has no component \"%1\".").arg(QLatin1String(name)));
}

/// The edits that one command asks for, checked.
struct TEdits {
  struct TRow {
    std::optional<QString> Id;
    std::optional<QColor> Colour;
  };

  std::optional<int> CopyPriceStyle;
  std::optional<bool> Highlight;
  std::optional<std::vector<TRow>> Rows;
};

TEdits::TRow RowOf(const QJsonValue& value) {
  const QJsonArray cells = value.toArray();
  if (cells.size() != 2)
    throw TScriptError(QStringLiteral("A row must be a list of broker and colour."));
  CheckElements(QJsonArray{cells[0]}, TKind::TextOrNull, QStringLiteral("a row's brokers"));
  TEdits::TRow row;
  if (cells[0].isString())
    row.Id = cells[0].toString();
  if (!cells[1].isNull()) {
    CheckElements(QJsonArray{cells[1]}, TKind::Colour, QStringLiteral("a row's colours"));
    row.Colour = QColor(cells[1].toString());
  }
  return row;
}

TEdits EditsOf(const QJsonObject& members) {
  TEdits edits;
  if (members.contains("copyPriceStyle"))
    edits.CopyPriceStyle = members["copyPriceStyle"].toInt();
  if (members.contains("highlight"))
    edits.Highlight = members["highlight"].toBool();
  if (members.contains("rows")) {
    edits.Rows.emplace();
    for (const auto& row : members["rows"].toArray())
      edits.Rows->push_back(RowOf(row));
  }
  return edits;
}

void EnterRows(QWidget& page, const std::vector<TEdits::TRow>& rows) {
  Input::Click(&Find<QPushButton>(page, ClearButton));
  TBrokerList list(page);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Input::Click(&Find<QPushButton>(page, AddButton));
    list.Enter(static_cast<int>(i), rows[i].Id, rows[i].Colour);
  }
}

/// The list can be edited only while highlighting is on, so it is switched on for the edit where
/// the command says how it is to be left.
void EditBrokers(QWidget& page, const TEdits& edits) {
  auto& highlight = Find<QCheckBox>(page, HighlightBox);
  const auto set = [&highlight](bool on) {
    if (highlight.isChecked() != on)
      Input::Click(&highlight, {highlight.height() / 2, highlight.height() / 2});
  };
  if (edits.Rows) {
    if (edits.Highlight)
      set(true);
    CheckUsable(Find<QPushButton>(page, ClearButton));
    EnterRows(page, *edits.Rows);
  }
  if (edits.Highlight)
    set(*edits.Highlight);
}

QJsonObject Edit(TScriptSession& session, const QJsonObject& members) {
  const TEdits edits = EditsOf(members);
  auto& page = PageOf(session.ShownPreferences());
  auto& style = Find<QComboBox>(page, StyleBox);
  if (edits.CopyPriceStyle && (*edits.CopyPriceStyle < 0 || *edits.CopyPriceStyle >= style.count()))
    throw TScriptError(
        QStringLiteral("There is no copy-price style %1.").arg(*edits.CopyPriceStyle));
  EditBrokers(page, edits);
  if (edits.CopyPriceStyle)
    Input::Choose(&style, *edits.CopyPriceStyle);
  return {};
}

QJsonObject Press(TScriptSession& session, const QJsonObject& members) {
  auto& page = PageOf(session.ShownPreferences());
  const QString component = members["component"].toString();
  const bool isDelete = component == "delete";
  if (isDelete != members.contains("row"))
    throw TScriptError(QStringLiteral("A row is told for \"delete\" and nothing else."));
  if (!isDelete && component != QLatin1String(AddButton) && component != QLatin1String(ClearButton))
    throw TScriptError(QStringLiteral("The component \"%1\" cannot be pressed.").arg(component));
  if (!isDelete) {
    auto& button = Find<QPushButton>(page, component.toLatin1().constData());
    CheckUsable(button);
    Input::Click(&button);
    return {};
  }
  TBrokerList list(page);
  const int row = members["row"].toInt();
  CheckUsable(list.View());
  if (row < 0 || row >= list.RowCount())
    throw TScriptError(QStringLiteral("The list of brokers has no row %1.").arg(row));
  list.Delete(row);
  return {};
}

/// Texts that the page shows, by component.
QJsonObject CaptionsOf(const QWidget& page) {
  const QJsonObject components = DumpComponents(page);
  QJsonObject captions;
  for (auto component = components.begin(); component != components.end(); ++component) {
    const QJsonObject members = component.value().toObject();
    if (members.contains("caption"))
      captions[component.key()] = members["caption"];
    else if (members.contains("text"))
      captions[component.key()] = members["text"];
  }
  return captions;
}

QJsonObject Dump(TScriptSession& session, const QJsonObject&) {
  const auto* dialog = session.Preferences();
  if (!dialog)
    throw TScriptError(QStringLiteral("The preferences were never opened."));
  auto& page = PageOf(*dialog);
  const auto& style = Find<QComboBox>(page, StyleBox);
  QJsonArray entries;
  for (int i = 0; i < style.count(); ++i)
    entries.append(style.itemText(i));
  const TBrokerList list(page);
  return {{"copyPriceStyle", style.currentIndex()},
          {"entries", entries},
          {"highlight", Find<QCheckBox>(page, HighlightBox).isChecked()},
          {"gridEnabled", list.View().isEnabled()},
          {"rows", list.Rows()},
          {"columns", list.Columns()},
          {"captions", CaptionsOf(page)},
          {"width", dialog->Page()->GetWidth()},
          {"height", dialog->Page()->GetHeight()}};
}

} // namespace

std::vector<TScriptCommand> PageCommands() {
  return {
      {"preferences-set",
       {{"copyPriceStyle", TKind::Integer, Optional},
        {"highlight", TKind::Boolean, Optional},
        {"rows", TKind::List, Optional}},
       Edit},
      {"preferences-press", {{"component", TKind::Text}, {"row", TKind::Integer, Optional}}, Press},
      {"preferences-dump", {}, Dump},
  };
}

} // namespace Terminal
