#include "terminal/windows/OrderDelegate.h"

#include "terminal/windows/BlotterModels.h"
#include "terminal/windows/StepEdit.h"

namespace Terminal {

TOrderDelegate::TOrderDelegate(TServices& services, QObject* parent)
    : QStyledItemDelegate(parent), figures_(services) {}

QWidget* TOrderDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                      const QModelIndex& index) const {
  auto* edit = new TStepEdit(parent);
  edit->setFrame(false);
  edit->setText(index.data(Qt::EditRole).toString());
  const auto symbol =
      index.siblingAtColumn(TOrdersModel::SymbolColumn).data().toString().toStdString();
  const bool isPrice = index.column() == TOrdersModel::PriceColumn;
  connect(edit, &TStepEdit::Stepped, this, [this, edit, symbol, isPrice](int steps) {
    if (const auto price = TOrderFigures::ParsePrice(edit->text()); isPrice && price)
      edit->setText(figures_.PriceText(symbol, figures_.StepPrice(symbol, *price, steps)));
    const auto quantity = TOrderFigures::ParseQuantity(edit->text());
    if (!isPrice)
      edit->setText(
          figures_.QuantityText(figures_.StepQuantity(symbol, quantity.value_or(0), steps)));
  });
  return edit;
}

void TOrderDelegate::setEditorData(QWidget*, const QModelIndex&) const {}

} // namespace Terminal
