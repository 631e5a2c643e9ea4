#include "host/BaseLanguageManager.h"
#include "host/BaseLookAndFeelService.h"
#include "view/FeedType.h"
#include "view/QuorPriceView.h"

#include <array>

// The message line, the volatility-control or closing-auction panel, the pre-opening panel and the
// markers in the symbol line.

namespace Quorpriceview {

using namespace Platform;
using Baselanguagemanager::TCustomLanguageManager;
using Baselookandfeelservice::TCustomLookAndFeelService;

namespace {

QString Label(const char* key) {
  return QString::fromStdString(TCustomLanguageManager::GetInstance()->GetResource(key)) +
         QLatin1Char(':');
}

System::TColor SkinColour(std::string_view name) {
  return TCustomLookAndFeelService::GetInstance()->GetColour(0, name);
}

void SetText(TcxLabel* label, const std::string& text) {
  label->setText(QString::fromStdString(text));
}

} // namespace

void TQuorPriceFrame::SymbolMessageUpdate(TObject*) {
  const auto visibility = [this] {
    return std::array{lgInfo->IsVisibleFlag(), lgVCMCAS->IsVisibleFlag(), lgPOS->IsVisibleFlag()};
  };
  const auto before = visibility();

  ClearMessageTexts();
  if (priceControl_)
    ShowMessageTexts();

  const bool anyText = !lblLeftText->text().isEmpty() || !lblRightText->text().isEmpty();
  lgInfo->SetVisibleFlag(anyText && !IsDelayedFeed());

  const auto state =
      priceControl_ ? priceControl_->Mechanisms() : Quorpricedatacontrol::TMarketMechanisms();
  lgVCMCAS->SetVisibleFlag(state.VcmInForce || state.CasInForce);
  lgPOS->SetVisibleFlag(state.PosInForce);
  liVCM->SetVisibleFlag(state.VcmMarker);
  liCAS->SetVisibleFlag(state.CasMarker);
  liPOS->SetVisibleFlag(state.PosMarker);

  if (visibility() != before)
    Baseview::SendViewNotify(this, Constdef::Notify_SizeChanged);
}

void TQuorPriceFrame::ClearMessageTexts() {
  for (auto* label : {lblLeftText, lblRightText, lblVCMCAS, lblRefPrice, lblUpperPrice,
                      lblLowerPrice, lblPOSCaption, lblPOSRefPrice, lblPOSUpperPrice,
                      lblPOSLowerPrice, lblPOSUpperLimit, lblPOSLowerLimit})
    label->clear();
}

void TQuorPriceFrame::ShowMessageTexts() {
  SetText(lblLeftText, priceControl_->FreeText1());
  SetText(lblRightText, priceControl_->FreeText2());

  const auto& state = priceControl_->Mechanisms();
  if (state.PosInForce) {
    lblPOSColor->SetColor(SkinColour(Constdef::Colour_PosBackground));
    liPOSCaption->SetCaption(Label("Res_POS"));
    SetText(lblPOSCaption, state.PosStateText);
    SetText(lblPOSRefPrice, state.PosRefPrice);
    SetText(lblPOSUpperPrice, state.PosUpperPrice);
    SetText(lblPOSLowerPrice, state.PosLowerPrice);
    SetText(lblPOSUpperLimit, state.PosBuyUpperLimit);
    SetText(lblPOSLowerLimit, state.PosSellLowerLimit);
  }
  // The closing auction wins when both are in force.
  if (state.CasInForce) {
    lblVCMCASColor->SetColor(SkinColour(Constdef::Colour_CasBackground));
    liVCMCAS->SetCaption(Label("Res_CAS"));
  } else if (state.VcmInForce) {
    lblVCMCASColor->SetColor(SkinColour(Constdef::Colour_VcmBackground));
    liVCMCAS->SetCaption(Label("Res_VCM"));
  }
  if (state.VcmInForce || state.CasInForce) {
    SetText(lblVCMCAS, state.VcmCasStateText);
    SetText(lblRefPrice, state.VcmCasRefPrice);
    SetText(lblUpperPrice, state.VcmCasUpperPrice);
    SetText(lblLowerPrice, state.VcmCasLowerPrice);
  }
}

} // namespace Quorpriceview
