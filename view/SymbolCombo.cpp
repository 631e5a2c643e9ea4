#include "view/SymbolCombo.h"

#include "host/BaseSubscribeAdapter.h"
#include "host/ConstDef.h"
#include "model/DetailRows.h"
#include "model/QuorTypes.h"
#include "model/RecordText.h"

#include <QAbstractItemView>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace Quorpriceview {

using namespace Quorpricedatacontrol;
using Basesubscribeadapter::TCustomSubscribeAdapter;

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

} // namespace

QString InstrumentDescription(const std::string& symbol) {
  auto* adapter = TCustomSubscribeAdapter::GetInstance();
  TInstrument instrument;
  instrument.Record = adapter->Subscribe(symbol, Constdef::DataSet_Prices, true);
  if (!instrument.Record)
    return {};
  QStringList parts;
  if (IsReady(instrument.Record)) {
    instrument.Update();
    parts << QString::fromUtf8(instrument.Record->GetText(Field::Name)).simplified();
    if (instrument.Kind == ikWarrant || instrument.Kind == ikCBBC)
      for (const int field : {Field::CallPut, Field::StrikePrice, Field::ExpiryDate})
        parts << QString::fromStdString(DetailText(instrument, field));
  }
  adapter->Unsubscribe(instrument.Record);
  parts.removeAll(QString());
  return parts.join("  ");
}

TSymbolCombo::TSymbolCombo() {
  setFocusPolicy(Qt::StrongFocus);
  setItemDelegate(new TDescribedSymbols(this));
}

void TSymbolCombo::showPopup() {
  for (int item = 0; item < count(); ++item)
    setItemData(item, InstrumentDescription(itemText(item).toStdString()), DescriptionRole);
  view()->setMinimumWidth(view()->sizeHintForColumn(0) + ListMargin +
                          style()->pixelMetric(QStyle::PM_ScrollBarExtent));
  QComboBox::showPopup();
}

void TSymbolCombo::wheelEvent(QWheelEvent* event) { event->ignore(); }

} // namespace Quorpriceview
