#include "terminal/script/quorprice/BrokerList.h"

#include "platform/Colour.h"
#include "terminal/script/Members.h"
#include "terminal/script/input/Input.h"

#include <QLineEdit>

namespace Terminal {

namespace {

QAbstractItemView& NeededList(QWidget& page) {
  auto* list = page.findChild<QAbstractItemView*>(QStringLiteral("BrokerIDGrid"));
  if (!list || !list->model())
    throw TScriptError(QStringLiteral("The preference page has no list of brokers."));
  return *list;
}

QJsonValue TextOrNull(const QVariant& value) {
  return value.isValid() ? QJsonValue(value.toString()) : QJsonValue(QJsonValue::Null);
}

QJsonValue ColourOrNull(const QVariant& value) {
  if (!value.isValid())
    return QJsonValue::Null;
  if (value.typeId() == QMetaType::QColor)
    return value.value<QColor>().name();
  return Platform::ToQColor(value.toUInt()).name();
}

} // namespace

TBrokerList::TBrokerList(QWidget& page) : view_(NeededList(page)) {}

int TBrokerList::RowCount() const { return view_.model()->rowCount(); }

QJsonArray TBrokerList::Rows() const {
  QJsonArray rows;
  for (int row = 0; row < RowCount(); ++row)
    rows.append(QJsonArray{TextOrNull(Cell(row, IdTag).data(Qt::EditRole)),
                           ColourOrNull(Cell(row, ColourTag).data(Qt::EditRole))});
  return rows;
}

QJsonArray TBrokerList::Columns() const {
  const auto* model = view_.model();
  QJsonArray columns;
  for (int column = 0; column < model->columnCount(); ++column) {
    const auto told = [model, column](int role) {
      return model->headerData(column, Qt::Horizontal, role);
    };
    columns.append(QJsonObject{{"tag", told(TagRole).toInt()},
                               {"caption", told(Qt::DisplayRole).toString()},
                               {"width", told(WidthRole).toInt()}});
  }
  return columns;
}

void TBrokerList::Enter(int row, const std::optional<QString>& id,
                        const std::optional<QColor>& colour) {
  if (id) {
    const QModelIndex cell = Cell(row, IdTag);
    view_.scrollTo(cell);
    view_.setCurrentIndex(cell);
    if (!view_.indexWidget(cell))
      view_.edit(cell);
    auto* editor = qobject_cast<QLineEdit*>(view_.indexWidget(cell));
    if (!editor)
      throw TScriptError(QStringLiteral("The broker of row %1 cannot be edited.").arg(row));
    Input::Type(editor, *id);
    Input::PressKey(editor, Qt::Key_Return);
    Input::Deliver();
  }
  if (colour)
    view_.model()->setData(Cell(row, ColourTag), *colour, Qt::EditRole);
}

void TBrokerList::Delete(int row) {
  const QModelIndex cell = Cell(row, DeleteTag);
  view_.scrollTo(cell);
  if (auto* button = view_.indexWidget(cell))
    Input::Click(button);
  else
    Input::Click(view_.viewport(), view_.visualRect(cell).center());
}

QModelIndex TBrokerList::Cell(int row, int tag) const {
  auto* model = view_.model();
  for (int column = 0; column < model->columnCount(); ++column)
    if (model->headerData(column, Qt::Horizontal, TagRole).toInt() == tag)
      return model->index(row, column);
  throw TScriptError(QStringLiteral("The list of brokers has no column %1.").arg(tag));
}

} // namespace Terminal
