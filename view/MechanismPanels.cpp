#include "view/MechanismPanels.h"

#include "host/BaseLookAndFeelService.h"
#include "view/FeedType.h"
#include "view/QuorPriceForm.h"
#include "view/Texts.h"

namespace Quorpriceview {

using namespace Platform;
using Quorpricedatacontrol::TMarketMechanisms;

namespace {

System::TColor SkinColour(std::string_view name) {
  return Baselookandfeelservice::TCustomLookAndFeelService::GetInstance()->GetColour(0, name);
}

void ColourPanels(TQuorPriceForm& form, const TMarketMechanisms& state) {
  if (state.PosInForce) {
    form.lblPOSColor->SetColor(SkinColour(Constdef::Colour_PosBackground));
    form.liPOSCaption->SetCaption(Label("Res_POS"));
  }
  if (state.VcmInForce || state.CasInForce) {
    const bool cas = state.CasInForce; // which wins when both are in force
    form.lblVCMCASColor->SetColor(
        SkinColour(cas ? Constdef::Colour_CasBackground : Constdef::Colour_VcmBackground));
    form.liVCMCAS->SetCaption(Label(cas ? "Res_CAS" : "Res_VCM"));
  }
}

} // namespace

bool UpdateMechanismPanels(TQuorPriceForm& form,
                           const Quorpricedatacontrol::TCustomQuorMarketDataControl& control) {
  const auto& state = control.Mechanisms();
  const bool vcmCas = state.VcmInForce || state.CasInForce;
  // A panel that does not apply keeps no text that could come back with it.
  const auto show = [](TcxLabel* label, bool applies, const std::string& text) {
    label->setText(applies ? QString::fromStdString(text) : QString());
  };
  show(form.lblLeftText, true, control.FreeText1());
  show(form.lblRightText, true, control.FreeText2());
  show(form.lblPOSCaption, state.PosInForce, state.PosStateText);
  show(form.lblPOSRefPrice, state.PosInForce, state.PosRefPrice);
  show(form.lblPOSUpperPrice, state.PosInForce, state.PosUpperPrice);
  show(form.lblPOSLowerPrice, state.PosInForce, state.PosLowerPrice);
  show(form.lblPOSUpperLimit, state.PosInForce, state.PosBuyUpperLimit);
  show(form.lblPOSLowerLimit, state.PosInForce, state.PosSellLowerLimit);
  show(form.lblVCMCAS, vcmCas, state.VcmCasStateText);
  show(form.lblRefPrice, vcmCas, state.VcmCasRefPrice);
  show(form.lblUpperPrice, vcmCas, state.VcmCasUpperPrice);
  show(form.lblLowerPrice, vcmCas, state.VcmCasLowerPrice);
  ColourPanels(form, state);

  bool changed = false;
  const auto showPanel = [&changed](TdxLayoutGroup* panel, bool shown) {
    changed = changed || panel->IsVisibleFlag() != shown;
    panel->SetVisibleFlag(shown);
  };
  const bool anyText = !form.lblLeftText->text().isEmpty() || !form.lblRightText->text().isEmpty();
  showPanel(form.lgInfo, anyText && !IsDelayedFeed());
  showPanel(form.lgVCMCAS, vcmCas);
  showPanel(form.lgPOS, state.PosInForce);
  form.liVCM->SetVisibleFlag(state.VcmMarker);
  form.liCAS->SetVisibleFlag(state.CasMarker);
  form.liPOS->SetVisibleFlag(state.PosMarker);
  return changed;
}

void SetMechanismTexts(TQuorPriceForm& form) {
  for (auto* item : {form.liRefPrice, form.liPOSRefPrice})
    item->SetCaption(Label("Res_RefPrice"));
  for (auto* item : {form.liUpperPrice, form.liPOSUpperPrice})
    item->SetCaption(Label("Res_UpperPrice"));
  for (auto* item : {form.liLowerPrice, form.liPOSLowerPrice})
    item->SetCaption(Label("Res_LowerPrice"));
  form.liPOSUpperLimit->SetCaption(Label("Res_POSBuyHi"));
  form.liPOSLowerLimit->SetCaption(Label("Res_POSSellLow"));
  form.lblVCM->setToolTip(Translated("Res_VCMHint"));
  form.lblCAS->setToolTip(Translated("Res_CASHint"));
  form.lblPOS->setToolTip(Translated("Res_POSHint"));
}

void SetMarkerColours(TQuorPriceForm& form) {
  form.lblVCM->SetColor(SkinColour(Constdef::Colour_VcmBackground));
  form.lblCAS->SetColor(SkinColour(Constdef::Colour_CasBackground));
  form.lblPOS->SetColor(SkinColour(Constdef::Colour_PosBackground));
  for (auto* marker : {form.lblVCM, form.lblCAS, form.lblPOS})
    marker->SetTextColor(System::clBlack);
}

} // namespace Quorpriceview
