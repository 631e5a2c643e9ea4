#include "view/SymbolCombo.h"

#include "host/BaseMarketAdapter.h"

#include <QAbstractItemView>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace Quorpriceview {

namespace {

constexpr int DescriptionRole = Qt::UserRole;
constexpr int ListMargin = 12; // around the widest entry

class TDescribedSymbols : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const auto description = index.data(DescriptionRole).toString(); !description.isEmpty())
      option->text += "   " + description;
  }
};

QString Description(const QString& symbol) {
  const auto* instrument =
      Basemarketadapter::TCustomMarketAdapter::GetInstance()->GetInstrument(symbol.toStdString());
  return instrument ? QString::fromStdString(instrument->Description()) : QString();
}

} // namespace

TSymbolCombo::TSymbolCombo() {
  setFocusPolicy(Qt::StrongFocus);
  setItemDelegate(new TDescribedSymbols(this));
}

void TSymbolCombo::showPopup() {
  for (int item = 0; item < count(); ++item)
    setItemData(item, Description(itemText(item)), DescriptionRole);
  view()->setMinimumWidth(view()->sizeHintForColumn(0) + ListMargin +
                          style()->pixelMetric(QStyle::PM_ScrollBarExtent));
  QComboBox::showPopup();
}

void TSymbolCombo::wheelEvent(QWheelEvent* event) { event->ignore(); }

} // namespace Quorpriceview
