#include "host/BaseGlobalChannelManager.h"
#include "host/BaseLanguageManager.h"
#include "host/BaseOrderData.h"
#include "host/DataDef.h"
#include "view/QuorPriceView.h"

#include <QSignalBlocker>

// Related instruments, the symbols of others that the view follows, and the per-click lines.

namespace Quorpriceview {

using namespace Platform;
using Baseglobalchannelmanager::TCustomGroupData;
using Baseglobalchannelmanager::TCustomListObject;
using Baselanguagemanager::TCustomLanguageManager;

namespace {

/// Fills a box with the symbols of a blank-separated list, in order, and shows its item when there
/// is one.
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

} // namespace

const char* TQuorPriceFrame::WarrantHintKey() const {
  const bool linked =
      priceControl_ && priceControl_->ProductType() == Constdef::ProductType_Warrant;
  return linked ? "Res_Linked" : "Res_ProdType_Warrant";
}

void TQuorPriceFrame::SymbolRelatedUpdate(TObject*) {
  const std::string none;
  const auto& warrants = priceControl_ ? priceControl_->WarrantList() : none;
  ShowSymbols(cmbWarrant, liWarrant, warrants);
  if (!warrants.empty())
    cmbWarrant->setPlaceholderText(QString::fromStdString(
        TCustomLanguageManager::GetInstance()->GetResource(WarrantHintKey())));
  ShowSymbols(cmbRelated, liRelated, priceControl_ ? priceControl_->RelatedList() : none);
  ShowSymbols(cmbLiqProvider, liLiqProvider,
              priceControl_ ? priceControl_->LiquidityProviderList() : none);
}

void TQuorPriceFrame::cmbWarrantPropertiesChange() { EnterChosen(cmbWarrant); }

void TQuorPriceFrame::cmbRelatedPropertiesChange() { EnterChosen(cmbRelated); }

void TQuorPriceFrame::EnterChosen(const TcxComboBox* box) {
  if (box->currentIndex() >= 0)
    EnterSymbol(box->currentText().toStdString());
}

bool TQuorPriceFrame::IsLocked() const { return btnLock_->State == 1; }

void TQuorPriceFrame::UpdateCopySymbol(TObject*, TObject* message) {
  if (!edtSymbol->isEnabled() || IsLocked())
    return;
  std::string symbol;
  if (const auto* broadcast = dynamic_cast<TCustomListObject*>(message)) {
    if (Following().FollowsBroadcast() && !broadcast->IsEmpty())
      symbol = broadcast->Symbol();
  } else if (const auto* linked = dynamic_cast<TCustomGroupData*>(message)) {
    if (Following().FollowsGroup(linked->GroupID()) && !linked->IsRefused())
      symbol = linked->Symbol();
  }
  if (!symbol.empty() && symbol != AppliedSymbol())
    EnterSymbol(symbol);
}

void TQuorPriceFrame::CopyPrice(TObject*, TObject* message) {
  const auto* record = dynamic_cast<Datadef::TCopyOrderRecord*>(message);
  const auto* order =
      record ? dynamic_cast<Baseorderdata::TCustomClientOrder*>(record->Order) : nullptr;
  if (!order || IsLocked() || !Following().FollowsOrder(record->Source))
    return;
  const auto symbol = order->Symbol();
  if (!priceControl_ || symbol.empty() || symbol == priceControl_->Symbol())
    return;
  // With the hint set the box applies the order's symbol without resolving it again.
  edtSymbol->SetHint(QString::fromStdString(symbol));
  EnterSymbol(symbol);
}

void TQuorPriceFrame::UpdateLastPrice(TObject*) {
  if (!perclickPriceControl_)
    return;
  using namespace Quorpricedatacontrol;
  const auto figure = [this](int field) {
    return QString::fromStdString(perclickPriceControl_->GetCellHeaderDisplayData(field));
  };
  lblLast->setText(figure(Field::Nominal));
  lblChange->setText(figure(Field::Change) + QStringLiteral("   ") + figure(Field::ChangePercent));
  lblUpdateTime->setText(
      QString::fromStdString(TCustomLanguageManager::GetInstance()->GetResource("Res_UpdateTime") +
                             ": " + perclickPriceControl_->GetLastUpdateTime()));
}

} // namespace Quorpriceview
