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

constexpr int SkinBidBackground = 6;
constexpr int SkinBidText = 7;
constexpr int SkinAskBackground = 8;
constexpr int SkinAskText = 9;

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
  const auto named = [skin](const char* name) { return skin->GetColour(0, name); };
  const auto standard = [skin](int index) { return skin->GetColour(index, {}); };
  const auto invalid = TCustomConfigManager::GetInstance()->ReadString(skin->CurrentSkinSection(),
                                                                       "coLabelInvalidBground");

  colours_.LabelBackground = named("coLabelBground");
  colours_.LabelInvalidBackground =
      invalid.empty() ? System::clRed : named("coLabelInvalidBground");
  colours_.BidBackground = standard(SkinBidBackground);
  colours_.BidText = standard(SkinBidText);
  colours_.BidLabelColor = named("coBuyColorLabel");
  colours_.AskBackground = standard(SkinAskBackground);
  colours_.AskText = standard(SkinAskText);
  colours_.AskLabelColor = named("coSellColorLabel");

  lblVCM->SetColor(named("coVCMBgColor"));
  lblCAS->SetColor(named("coCASBgColor"));
  lblPOS->SetColor(named("coPOSBgColor"));
  for (auto* marker : {lblVCM, lblCAS, lblPOS})
    marker->SetTextColor(System::clBlack);
  // The cells keep the colours that they were described with.
  for (auto* view : {PriceGridView, PerclickPriceGridView, PerclickInfoGridView})
    view->Repaint();
  return true;
}

void TQuorPriceFrame::ConfigUpdate(TObject*, TObject*) {
  auto* config = TCustomConfigManager::GetInstance();
  const int scale = SnappedScale(config->ReadInteger(Constdef::Section_TradePlatform, "ScaleSize"));
  if (scale != scale_) {
    scale_ = scale;
    UpdateScale();
  }
  defaultGroupDataMode_ =
      Quorpricedatacontrol::ParseInteger(
          config->ReadString(Constdef::Section_TradePlatform, "DefaultGroupDataMode"))
          .value_or(-1);

  bool changed = false;
  const auto store = [&changed](auto& field, auto value) {
    changed = changed || field != value;
    field = std::move(value);
  };
  store(highlightEnabled_, config->ReadBoolean(config->CurrentSection(), "SpecBrokerChecked"));
  store(specialBrokers_, config->ReadString(config->CurrentSection(), "DetailSpecialBroker"));
  store(specialBrokerColours_,
        config->ReadString(config->CurrentSection(), "DetailSpecialBrokerColor"));
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
