#include "preferences/BrokerIDEditor.h"

#include "preferences/BrokerList.h"
#include "preferences/BrokerNames.h"
#include "preferences/Resource.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QStringListModel>
#include <QToolTip>

#include <algorithm>

namespace Quorpricepreference {

namespace {

constexpr const char* HintKey = "Res_BrokerIDHint";
constexpr int NumberLength = 4;
constexpr int ListMargin = 24; ///< the frame and the scroll bar beside the offered names, in pixels

/// None for a number, which needs no looking up.
QStringList BrokersCalled(const QString& text) {
  return IsBrokerID(text.toStdString()) ? QStringList() : FindBrokers(text.trimmed());
}

void Offer(QCompleter& completer, const QString& typed) {
  QStringList lines;
  for (const auto& id : BrokersCalled(typed))
    lines << BrokerText(id);
  qobject_cast<QStringListModel*>(completer.model())->setStringList(lines);
  auto* list = completer.popup();
  if (lines.isEmpty()) {
    list->hide();
    return;
  }
  QRect below = completer.widget()->rect();
  below.setWidth(std::max(below.width(), list->sizeHintForColumn(0) + ListMargin));
  completer.complete(below);
}

/// After the editor has closed, for a change of focus hides hints.
void SayWhatIsWanted(const QWidget& editor) {
  auto* view = editor.parentWidget();
  const QPoint below = editor.mapToGlobal(editor.rect().bottomLeft());
  QMetaObject::invokeMethod(
      view, [view, below] { QToolTip::showText(below, GetResource(HintKey), view); },
      Qt::QueuedConnection);
}

} // namespace

QWidget* TBrokerIDEditor::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const {
  auto* edit = qobject_cast<QLineEdit*>(TCellEditor::createEditor(parent, option, index));
  edit->setPlaceholderText(GetResource(HintKey));
  auto* completer = new QCompleter(edit);
  completer->setModel(new QStringListModel(completer));
  completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  completer->setWidget(edit);
  connect(edit, &QLineEdit::textEdited, completer,
          [completer](const QString& typed) { Offer(*completer, typed); });
  connect(completer, qOverload<const QString&>(&QCompleter::activated), edit,
          [edit](const QString& line) { edit->setText(line.left(NumberLength)); });
  return edit;
}

void TBrokerIDEditor::setModelData(QWidget* editor, QAbstractItemModel* model,
                                   const QModelIndex& index) const {
  const QString typed = qobject_cast<QLineEdit*>(editor)->text();
  if (typed.isEmpty() && !index.data(Qt::EditRole).isValid())
    return;
  const auto found = BrokersCalled(typed);
  if (!model->setData(index, found.size() == 1 ? found.front() : typed, Qt::EditRole))
    SayWhatIsWanted(*editor);
}

} // namespace Quorpricepreference
