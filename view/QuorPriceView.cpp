#include "view/QuorPriceView.h"

#include "host/BaseConfigManager.h"
#include "host/BaseGlobalChannelManager.h"
#include "host/BaseOrderAdapter.h"
#include "host/BaseTimerControl.h"
#include "host/BaseUserAppProfile.h"
#include "host/view/EditorManager.h"
#include "view/FeedType.h"
#include "view/Texts.h"

#include <QApplication>
#include <QEvent>

#include <utility>

namespace Quorpriceview {

using namespace Platform;
using Baseconfigmanager::TCustomConfigManager;
using Baseglobalchannelmanager::TCustomGlobalChannelManager;
using Basetimercontrol::TCustomTimerControl;
using Baseuserappprofile::TCustomUserAppProfile;
using Editormanager::TEditorManager;

// Binding.

TQuorPriceFrame::TQuorPriceFrame(System::Classes::TComponent* owner) : TIBaseView(owner) {
  CreateCaptionButtons();
  grids_.SetLastPriceFonts();
  Initialize();
  Bind();
  RegisterWithHost();
  if (!Symbol().empty())
    edtSymbolExit();
  SetLanguage(Constdef::Language_English);
  SetSkin({});
  ConfigUpdate();
  auto* channels = TCustomGlobalChannelManager::GetInstance();
  channels->Subscribe(Constdef::Channel_LayoutLoaded, On(&TFrame::LoadLayoutComp), this);
  channels->Subscribe(Constdef::Channel_MainFormShown, On(&TFrame::MainFormShow), this);
  channels->Subscribe(Constdef::Channel_ScaleChanged, On(&TFrame::ScaleLayoutComp), this);
}

TQuorPriceFrame::~TQuorPriceFrame() {
  UnregisterFromHost();
  detailWindows_.CloseAll();
  // Leaving the box on the way down must not reach a frame that is no longer whole.
  edtSymbol->disconnect(this);
}

void TQuorPriceFrame::CreateCaptionButtons() {
  state_.HasQueueButton = FeedType() == Constdef::FeedType_Streaming;
  state_.HasQtyButtons = SetQtyButtonCaption(*this);
  lgBtn->SetVisibleFlag(state_.HasQtyButtons);
  if (IsPerclickFeed())
    captionButtons_.Add(TCaptionKind::Refresh, On(&TFrame::btnRefreshClick));
  else
    captionButtons_.Add(TCaptionKind::DisplayMode, On(&TFrame::btnDisplayModeClick));
  captionButtons_.Add(TCaptionKind::ShowHide, On(&TFrame::btnShowHideClick));
  captionButtons_.Add(TCaptionKind::Lock, On(&TFrame::btnLockClick));
  if (TCustomUserAppProfile::GetInstance()->IsFunctionGranted(Constdef::Function_Chart))
    captionButtons_.Add(TCaptionKind::Chart, On(&TFrame::btnProChartClick));
  if (state_.HasQueueButton)
    captionButtons_.Add(TCaptionKind::BrokerQueue, On(&TFrame::btnHideBrokerQueueClick));
  if (state_.HasQtyButtons)
    captionButtons_.Add(TCaptionKind::QtyButtons, On(&TFrame::btnShowHideQtyClick));
  UpdateCaptionButtons();
}

void TQuorPriceFrame::Initialize() {
  grids_.CreateColumns(measures_);
  measures_.DetectRowHeight();
  const bool perclick = IsPerclickFeed();
  liDelay->SetVisibleFlag(IsDelayedFeed());
  liUpdateTime->SetVisibleFlag(perclick);
  liGrid->SetVisibleFlag(!perclick);
  lgPerclick->SetVisibleFlag(perclick);
  measures_.FitGridWidths();
}

void TQuorPriceFrame::Bind() {
  connect(edtSymbol, &TcxPopupEdit::Exited, this, &TFrame::edtSymbolExit);
  connect(edtSymbol, &TcxPopupEdit::KeyDown, this, &TFrame::edtSymbolKeyDown);
  connect(edtSymbol, &TcxPopupEdit::KeyPress, this, &TFrame::edtSymbolKeyPress);
  const auto chosen = &TcxComboBox::currentIndexChanged;
  connect(cmbWarrant, chosen, this, &TFrame::cmbWarrantPropertiesChange);
  connect(cmbRelated, chosen, this, &TFrame::cmbRelatedPropertiesChange);
  connect(mBrokerName, &TdxBarButton::triggered, this, &TFrame::mBrokerNameClick);
  connect(mDetail, &TdxBarButton::triggered, this, &TFrame::mDetailClick);
  for (const auto* button : btnQty)
    connect(button, &TcxButton::clicked, this, [this, button] { btnQtyClick(*button); });
  connect(PriceGrid, &TcxGrid::Resized, this, &TFrame::PriceGridResize);
  connect(PriceGridView, &TcxGridTableView::MouseMove, this, [this](const QPoint& position) {
    hint_.PriceGridViewMouseMove(grids_.Price(), position);
  });

  auto& price = grids_.Price();
  price.OnFreeTextChange = On(&TFrame::SymbolMessageUpdate);
  price.OnRelatedChange = On(&TFrame::SymbolRelatedUpdate);
  price.OnField22Known = On(&TFrame::SymbolProductTypeUpdate);
  price.OnCountChange = On(&TFrame::HandleRowChanged);
  if (!price.ShowBrokerQueue())
    mBrokerName->setVisible(false);
}

void TQuorPriceFrame::RegisterWithHost() {
  TEditorManager::GetInstance()->RegisterSymbolEditor(edtSymbol, following_.GroupID, true, true);
  auto* channels = TCustomGlobalChannelManager::GetInstance();
  channels->Subscribe(Constdef::Channel_CopyOrder, On(&TFrame::CopyPrice), this);
  TCustomTimerControl::GetInstance()->Register(this, [this](TObject*) { hint_.ShowHintTimer(); });
  channels->RegisterCopySymbol(On(&TFrame::UpdateCopySymbol), this);
  TCustomConfigManager::GetInstance()->RegisterListener(On(&TFrame::ConfigUpdate), this);
}

void TQuorPriceFrame::UnregisterFromHost() {
  TCustomTimerControl::GetInstance()->Unregister(this);
  TEditorManager::GetInstance()->RemoveSymbolEditor(edtSymbol);
  auto* channels = TCustomGlobalChannelManager::GetInstance();
  channels->Unsubscribe(Constdef::Channel_CopyOrder, this);
  channels->UnregisterCopySymbol(this);
  if (!following_.GroupID.empty())
    channels->LeaveGroup(following_.GroupID, this);
  TCustomConfigManager::GetInstance()->UnregisterListener(this);
  for (const int message : {Constdef::Channel_LayoutLoaded, Constdef::Channel_MainFormShown,
                            Constdef::Channel_ScaleChanged})
    channels->Unsubscribe(message, this);
}

// Symbol and linking group.

void TQuorPriceFrame::SetSymbol(const std::string& symbol) {
  if (symbol == grids_.Price().Symbol())
    return;
  hint_.ForgetRow();
  for (auto* control : grids_.Controls())
    control->SetSymbol(symbol);
  Notify(Constdef::Notify_SymbolChanged);
  SymbolMessageUpdate();
  SymbolRelatedUpdate();
  SymbolProductTypeUpdate();
}

void TQuorPriceFrame::edtSymbolExit(Qt::FocusReason reason) {
  const bool isAnother = Symbol() != grids_.Price().Symbol();
  SetSymbol(Symbol());
  auto* pressed = QApplication::focusWidget();
  const bool copies = qobject_cast<TcxGrid*>(pressed) || qobject_cast<TcxButton*>(pressed);
  if (isAnother && reason == Qt::MouseFocusReason && copies && isAncestorOf(pressed))
    DropPress(pressed);
}

bool TQuorPriceFrame::SetGroupID(const std::string& group) {
  if (group == following_.GroupID)
    return true;
  auto* channels = TCustomGlobalChannelManager::GetInstance();
  if (!following_.GroupID.empty())
    channels->LeaveGroup(following_.GroupID, this);
  following_.GroupID = group;
  TEditorManager::GetInstance()->RegisterSymbolEditor(edtSymbol, group, true, true);
  if (!group.empty())
    channels->JoinGroup(group, On(&TFrame::UpdateCopySymbol), this);
  for (auto* control : grids_.Controls())
    control->GroupID = group;
  return true;
}

bool TQuorPriceFrame::ExecuteShortcutAction(int action) {
  if (action == 0)
    Notify(Constdef::Notify_Shortcut);
  return true;
}

// Layout data and buttons.

std::string TQuorPriceFrame::GetLayoutData() {
  TLayoutData layout;
  layout.Add(Constdef::Layout_Symbol, Symbol());
  state_.Write(layout);
  return layout.CommaText();
}

bool TQuorPriceFrame::SetLayoutData(const std::string& text) {
  const TLayoutData layout(text);
  if (const auto symbol = layout.Value(Constdef::Layout_Symbol); !symbol.empty())
    EnterSymbol(*edtSymbol, symbol);
  state_.ReadDisplayMode(layout);
  grids_.Price().SetDisplayMode(state_.DisplayMode);
  if (const auto show = state_.ReadShowBrokerName(layout))
    SetShowBrokerName(*show);
  state_.ReadSwitches(layout);
  UpdateCaptionButtons();
  Notify(Constdef::Notify_LayoutChanged);
  return true;
}

void TQuorPriceFrame::SetShowBrokerName(bool show) {
  state_.ShowBrokerName = show;
  mBrokerName->setChecked(show);
  grids_.Price().SetShowBrokerName(show);
  measures_.SetQueueColumnWidth();
}

void TQuorPriceFrame::btnDisplayModeClick() {
  state_.SwitchLevels();
  grids_.Price().SetDisplayMode(state_.DisplayMode);
  UpdateCaptionButtons();
  Notify(Constdef::Notify_LayoutChanged);
  Notify(Constdef::Notify_SizeChanged);
}

void TQuorPriceFrame::btnHideBrokerQueueClick() {
  state_.QueueHidden.Toggle();
  UpdateCaptionButtons();
  measures_.ShowHideBrokerQueue();
  ResetSize();
  Notify(Constdef::Notify_LayoutChanged);
}

void TQuorPriceFrame::btnProChartClick() {
  if (Symbol().empty())
    return;
  const auto parameters = Baseorderadapter::TCustomOrderAdapter::GetInstance()->NewViewParameters();
  parameters->SetSymbol(Symbol());
  Baseview::OpenCustomView(this, Constdef::View_Chart, 0, parameters.get(), 0, true);
}

// Size, language, skin and configuration.

void TQuorPriceFrame::changeEvent(QEvent* event) {
  TQuorPriceForm::changeEvent(event);
  if (event->type() == QEvent::FontChange)
    grids_.SetLastPriceFonts();
}

int TQuorPriceFrame::GetWidth() {
  ResetSize();
  if (std::exchange(firstWidthRequest_, false)) {
    edtSymbol->setCursorPosition(0);
    edtSymbol->selectAll();
  }
  return measures_.FrameWidth();
}

void TQuorPriceFrame::LoadLayoutComp() {
  if (!TCustomConfigManager::GetInstance()->IsLayoutReady())
    return;
  Measure();
  Notify(Constdef::Notify_SizeChanged);
}

void TQuorPriceFrame::ConfigUpdate() {
  if (measures_.ReadScale()) {
    Measure();
    hint_.SetFontSize(HintFontSize(measures_.Scale()));
    grids_.SetLastPriceFonts();
  }
  following_.ReadConfiguration();
  if (highlight_.ReadConfiguration())
    PriceGridView->Repaint();
}

std::string TQuorPriceFrame::GetViewCaption() {
  const auto symbol = Symbol();
  return Translated("Res_QuorPrice").toStdString() + (symbol.empty() ? "" : " - " + symbol);
}

bool TQuorPriceFrame::SetLanguage(int language) {
  for (auto* control : grids_.Controls())
    control->UpdateLanguage();
  SymbolMessageUpdate();
  grids_.UpdateLastPrice();
  edtSymbol->setPlaceholderText(Translated("Res_Symbol"));
  mBrokerName->setText(Translated("Res_ShowBrokerName"));
  mDetail->setText(Translated("Res_DetailInfo"));
  lblDelay->setText(Translated("Res_MktDataDelayHint"));
  SetRelatedTexts(*this, grids_.Price());
  SetMechanismTexts(*this);
  PriceGridView->Repaint();
  UpdateCaptionButtons();
  Notify(Constdef::Notify_LayoutChanged);
  detailWindows_.SetLanguage(language);
  return true;
}

bool TQuorPriceFrame::SetSkin(const std::string&) {
  SetMarkerColours(*this);
  grids_.SetSkin();
  return true;
}

} // namespace Quorpriceview
