#include "host/BaseConfigManager.h"
#include "host/BaseLanguageManager.h"
#include "host/BaseLookAndFeelService.h"
#include "model/RecordText.h"
#include "view/QuorPriceView.h"
#include "view/ScaleSteps.h"

// Language, skin and configuration.

namespace Quorpriceview {

using namespace Platform;
using Baseconfigmanager::TCustomConfigManager;
using Baselanguagemanager::TCustomLanguageManager;
using Baselookandfeelservice::TCustomLookAndFeelService;

namespace {

QString Text(const char* key) {
  return QString::fromStdString(TCustomLanguageManager::GetInstance()->GetResource(key));
}

QString Label(const char* key) { return Text(key) + QLatin1Char(':'); }

} // namespace

std::string TQuorPriceFrame::GetViewCaption() {
  auto caption = TCustomLanguageManager::GetInstance()->GetResource("Res_QuorPrice");
  if (const auto symbol = AppliedSymbol(); !symbol.empty())
    caption += " - " + symbol;
  return caption;
}

bool TQuorPriceFrame::SetLanguage(int language) {
  if (priceControl_) {
    priceControl_->UpdateLanguage();
    SymbolMessageUpdate(this);
  }
  if (perclickPriceControl_)
    perclickPriceControl_->UpdateLanguage();
  if (perclickInfoControl_)
    perclickInfoControl_->UpdateLanguage();
  UpdateLastPrice(this);
  SetTexts();
  PriceGridView->Repaint();
  UpdateCaptionButtons();
  Baseview::SendViewNotify(this, Constdef::Notify_LayoutChanged);
  SetDetailLanguage(language);
  return true;
}

void TQuorPriceFrame::SetTexts() {
  edtSymbol->setPlaceholderText(Text("Res_Symbol"));
  cmbWarrant->setPlaceholderText(Text(WarrantHintKey()));
  cmbRelated->setPlaceholderText(Text("Res_Related"));
  cmbLiqProvider->setPlaceholderText(Text("Res_LiqProvider"));
  mBrokerName->setText(Text("Res_ShowBrokerName"));
  mDetail->setText(Text("Res_DetailInfo"));
  liRefPrice->SetCaption(Label("Res_RefPrice"));
  liUpperPrice->SetCaption(Label("Res_UpperPrice"));
  liLowerPrice->SetCaption(Label("Res_LowerPrice"));
  lblDelay->setText(Text("Res_MktDataDelayHint"));
  lblVCM->setToolTip(Text("Res_VCMHint"));
  lblCAS->setToolTip(Text("Res_CASHint"));
  liPOSRefPrice->SetCaption(Label("Res_RefPrice"));
  liPOSUpperPrice->SetCaption(Label("Res_UpperPrice"));
  liPOSLowerPrice->SetCaption(Label("Res_LowerPrice"));
  liPOSUpperLimit->SetCaption(Label("Res_POSBuyHi"));
  liPOSLowerLimit->SetCaption(Label("Res_POSSellLow"));
  lblPOS->setToolTip(Text("Res_POSHint"));
}

bool TQuorPriceFrame::SetSkin(const std::string&) {
  auto* skin = TCustomLookAndFeelService::GetInstance();
  const auto named = [skin](std::string_view name) { return skin->GetColour(0, name); };
  const auto standard = [skin](int index) { return skin->GetColour(index, {}); };
  const auto invalid = TCustomConfigManager::GetInstance()->ReadString(
      skin->CurrentSkinSection(), Constdef::Colour_LabelInvalidBackground);

  colours_.LabelBackground = named(Constdef::Colour_LabelBackground);
  colours_.LabelInvalidBackground =
      invalid.empty() ? System::clRed : named(Constdef::Colour_LabelInvalidBackground);
  colours_.BidBackground = standard(Constdef::Colour_BidBackground);
  colours_.BidText = standard(Constdef::Colour_BidText);
  colours_.BidLabelColor = named(Constdef::Colour_BidLabel);
  colours_.AskBackground = standard(Constdef::Colour_AskBackground);
  colours_.AskText = standard(Constdef::Colour_AskText);
  colours_.AskLabelColor = named(Constdef::Colour_AskLabel);

  lblVCM->SetColor(named(Constdef::Colour_VcmBackground));
  lblCAS->SetColor(named(Constdef::Colour_CasBackground));
  lblPOS->SetColor(named(Constdef::Colour_PosBackground));
  for (auto* marker : {lblVCM, lblCAS, lblPOS})
    marker->SetTextColor(System::clBlack);
  // The cells keep the colours that they were described with.
  for (auto* view : {PriceGridView, PerclickPriceGridView, PerclickInfoGridView})
    view->Repaint();
  return true;
}

void TQuorPriceFrame::ConfigUpdate(TObject*, TObject*) {
  auto* config = TCustomConfigManager::GetInstance();
  const int scale =
      SnappedScale(config->ReadInteger(Constdef::Section_TradePlatform, Constdef::Key_ScaleSize));
  if (scale != scale_) {
    scale_ = scale;
    UpdateScale();
  }
  defaultGroupDataMode_ =
      Quorpricedatacontrol::ParseInteger(
          config->ReadString(Constdef::Section_TradePlatform, Constdef::Key_DefaultGroupDataMode))
          .value_or(-1);

  bool changed = false;
  const auto store = [&changed](auto& field, auto value) {
    changed = changed || field != value;
    field = std::move(value);
  };
  store(highlightEnabled_,
        config->ReadBoolean(config->CurrentSection(), Constdef::Key_SpecBrokerChecked));
  store(specialBrokers_,
        config->ReadString(config->CurrentSection(), Constdef::Key_DetailSpecialBroker));
  store(specialBrokerColours_,
        config->ReadString(config->CurrentSection(), Constdef::Key_DetailSpecialBrokerColor));
  InitBrokerColor();
  if (changed)
    PriceGridView->Repaint();
}

void TQuorPriceFrame::UpdateScale() {
  DetectRowHeight();
  ResetSize();
  HintCtrl->Font.setPointSize(HintFontSize(scale_));
  HintCtrl->CaptionFont.setPointSize(HintFontSize(scale_));
  SetLastPriceFonts();
}

void TQuorPriceFrame::SetLastPriceFonts() {
  constexpr int lastGrowth = 6;
  constexpr int changeGrowth = 2;
  lblLast->SetFontSize(font().pointSize() + lastGrowth);
  lblChange->SetFontSize(font().pointSize() + changeGrowth);
}

void TQuorPriceFrame::InitBrokerColor() {
  brokerColours_ = ParseBrokerColours(specialBrokers_, specialBrokerColours_);
}

} // namespace Quorpriceview
