#include "view/RelatedInstruments.h"

#include "view/QuorPriceForm.h"
#include "view/SymbolFollowing.h"
#include "view/Texts.h"

#include <QSignalBlocker>

namespace Quorpriceview {

using namespace Platform;
using Quorpricedatacontrol::TCustomQuorMarketDataControl;

namespace {

/// `list`: separated by blanks.
void ShowSymbols(TcxComboBox* box, TdxLayoutItem* item, const std::string& list) {
  const QSignalBlocker quiet(box);
  box->clear();
  for (const auto& symbol :
       QString::fromStdString(list).split(QLatin1Char(' '), Qt::SkipEmptyParts))
    if (const auto trimmed = symbol.trimmed(); !trimmed.isEmpty())
      box->addItem(trimmed);
  box->setCurrentIndex(-1);
  item->SetVisibleFlag(box->count() > 0);
}

/// The warrant box of a warrant lists the instruments that are linked with it.
void SetWarrantHint(TcxComboBox* box, const TCustomQuorMarketDataControl& control) {
  const bool linked = control.ProductType() == Constdef::ProductType_Warrant;
  box->setPlaceholderText(Translated(linked ? "Res_Linked" : "Res_ProdType_Warrant"));
}

} // namespace

void UpdateRelatedInstruments(TQuorPriceForm& form, const TCustomQuorMarketDataControl& control) {
  ShowSymbols(form.cmbWarrant, form.liWarrant, control.WarrantList());
  if (!control.WarrantList().empty())
    SetWarrantHint(form.cmbWarrant, control);
  ShowSymbols(form.cmbRelated, form.liRelated, control.RelatedList());
  ShowSymbols(form.cmbLiqProvider, form.liLiqProvider, control.LiquidityProviderList());
}

void EnterChosen(TQuorPriceForm& form, const TcxComboBox& box) {
  if (box.currentIndex() >= 0)
    EnterSymbol(*form.edtSymbol, box.currentText().toStdString());
}

void SetRelatedTexts(TQuorPriceForm& form, const TCustomQuorMarketDataControl& control) {
  SetWarrantHint(form.cmbWarrant, control);
  form.cmbRelated->setPlaceholderText(Translated("Res_Related"));
  form.cmbLiqProvider->setPlaceholderText(Translated("Res_LiqProvider"));
}

} // namespace Quorpriceview
