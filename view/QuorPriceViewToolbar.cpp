#include "host/BaseConfigManager.h"
#include "host/BaseLanguageManager.h"
#include "host/BaseOrderAdapter.h"
#include "host/BaseUserAppProfile.h"
#include "view/CaptionImages.h"
#include "view/FeedType.h"
#include "view/LayoutData.h"
#include "view/QtyCaption.h"
#include "view/QuorPriceView.h"

#include <stdexcept>

// Layout data, caption buttons, the broker-name menu item and the quantity buttons.

namespace Quorpriceview {

using namespace Platform;
using namespace Quorpricedatacontrol;
using Baseconfigmanager::TCustomConfigManager;
using Baselanguagemanager::TCustomLanguageManager;

namespace {

void Toggle(int& state) { state = state == 0 ? 1 : 0; }

/// A mode that is stored as a number; 5 levels for a number that names none.
TQuorMode ModeOf(int ordinal) {
  const bool known = ordinal >= static_cast<int>(qm5Full) && ordinal <= static_cast<int>(qm10Full);
  return known ? static_cast<TQuorMode>(ordinal) : qm5Full;
}

/// A caption that shows as it stands: a single '&' would give the button a key that copies.
QString PlainCaption(const std::string& text) {
  return QString::fromStdString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

void Show(Viewinterface::TCaptionButton* button, int image, const char* key) {
  button->ImageIndex = image;
  button->Hint = TCustomLanguageManager::GetInstance()->GetResource(key);
}

} // namespace

std::string TQuorPriceFrame::GetLayoutData() {
  TLayoutData layout;
  layout.Add(Constdef::Layout_Symbol, AppliedSymbol());
  layout.Add(Constdef::Layout_DisplayMode, static_cast<int>(displayMode_));
  layout.Add(Constdef::Layout_ShowHideState, btnShowHide_->State);
  layout.Add(Constdef::Layout_ShowBrokerName, showBrokerName_ ? -1 : 0);
  layout.Add(Constdef::Layout_LockState, btnLock_->State);
  if (btnHideBrokerQueue_)
    layout.Add(Constdef::Layout_BrokerQueueState, btnHideBrokerQueue_->State);
  if (btnShowHideQty_)
    layout.Add(Constdef::Layout_QtyButtonState, btnShowHideQty_->State);
  return layout.CommaText();
}

bool TQuorPriceFrame::SetLayoutData(const std::string& text) {
  const TLayoutData layout(text);
  if (const auto symbol = layout.Value(Constdef::Layout_Symbol); !symbol.empty())
    EnterSymbol(symbol);
  if (const auto mode = ModeOf(IntegerOf(layout, Constdef::Layout_DisplayMode));
      mode != displayMode_)
    SetDisplayMode(mode);
  if (const auto value = layout.Value(Constdef::Layout_ShowBrokerName); !value.empty()) {
    const auto show = ParseBoolean(value);
    if (!show)
      throw std::invalid_argument("\"" + value + "\" is not a value of ShowBrokerName");
    SetShowBrokerName(*show);
  }
  btnShowHide_->State = IntegerOf(layout, Constdef::Layout_ShowHideState);
  btnLock_->State = IntegerOf(layout, Constdef::Layout_LockState);
  if (btnHideBrokerQueue_)
    btnHideBrokerQueue_->State = IntegerOf(layout, Constdef::Layout_BrokerQueueState);
  if (btnShowHideQty_)
    btnShowHideQty_->State = IntegerOf(layout, Constdef::Layout_QtyButtonState);
  UpdateCaptionButtons();
  Baseview::SendViewNotify(this, Constdef::Notify_LayoutChanged);
  return true;
}

void TQuorPriceFrame::SetDisplayMode(TQuorMode mode) {
  displayMode_ = mode;
  priceControl_->SetDisplayMode(mode);
}

void TQuorPriceFrame::SetShowBrokerName(bool show) {
  showBrokerName_ = show;
  mBrokerName->setChecked(show);
  priceControl_->SetShowBrokerName(show);
  SetQueueColumnWidth();
}

std::vector<Viewinterface::TCaptionButton*> TQuorPriceFrame::GetViewCaptionButtons() {
  std::vector<TCaptionButton*> buttons;
  for (const auto& button : captionButtons_)
    buttons.push_back(button.get());
  return buttons;
}

Viewinterface::TCaptionButton*
TQuorPriceFrame::AddCaptionButton(std::string_view name, void (TQuorPriceFrame::*handler)()) {
  captionButtons_.push_back(std::make_unique<TCaptionButton>());
  captionButtons_.back()->Name = name;
  captionButtons_.back()->OnClick = [this, handler](TObject*) { (this->*handler)(); };
  return captionButtons_.back().get();
}

void TQuorPriceFrame::CreateCaptionButtons() {
  if (IsPerclickFeed())
    btnRefresh_ = AddCaptionButton(Constdef::Button_Refresh, &TQuorPriceFrame::btnRefreshClick);
  else
    btnDisplayMode_ =
        AddCaptionButton(Constdef::Button_DisplayMode, &TQuorPriceFrame::btnDisplayModeClick);
  btnShowHide_ = AddCaptionButton(Constdef::Button_ShowHide, &TQuorPriceFrame::btnShowHideClick);
  btnLock_ = AddCaptionButton(Constdef::Button_Lock, &TQuorPriceFrame::btnLockClick);
  if (Baseuserappprofile::TCustomUserAppProfile::GetInstance()->IsFunctionGranted(
          Constdef::Function_Chart))
    btnProChart_ = AddCaptionButton(Constdef::Button_Chart, &TQuorPriceFrame::btnProChartClick);
  if (!HasVendorModel() || IsFeedType(Constdef::FeedType_Streaming))
    btnHideBrokerQueue_ =
        AddCaptionButton(Constdef::Button_BrokerQueue, &TQuorPriceFrame::btnHideBrokerQueueClick);
}

void TQuorPriceFrame::SetQtyButtonCaption() {
  auto* config = TCustomConfigManager::GetInstance();
  bool found = false;
  for (int i = 1; i <= QtyButtonCount; ++i) {
    const auto caption =
        config->ReadString(Constdef::Section_QtyButtonCaption,
                           std::string(Constdef::KeyPrefix_QtyButton) + std::to_string(i));
    if (caption.empty())
      continue;
    btnQty[static_cast<std::size_t>(i - 1)]->setText(PlainCaption(caption));
    found = true;
  }
  if (found)
    btnShowHideQty_ =
        AddCaptionButton(Constdef::Button_Quantity, &TQuorPriceFrame::btnShowHideQtyClick);
  else
    lgBtn->SetVisibleFlag(false);
}

void TQuorPriceFrame::UpdateCaptionButtons() {
  const bool less = btnShowHide_->State == 0;
  Show(btnShowHide_, less ? imLess : imMore, less ? "Res_Less" : "Res_More");
  lgSymbol->SetVisibleFlag(less);

  if (btnDisplayMode_ && displayMode_ == qm5Full)
    Show(btnDisplayMode_, im10Levels, "Res_PriceDepth10");
  if (btnDisplayMode_ && displayMode_ == qm10Full)
    Show(btnDisplayMode_, im5Levels, "Res_PriceDepth5");

  const bool unlocked = btnLock_->State == 0;
  Show(btnLock_, unlocked ? imLock : imUnlock, unlocked ? "Res_Lock" : "Res_Unlock");
  if (btnProChart_)
    Show(btnProChart_, imChart, "Res_ProChart");
  if (btnRefresh_)
    Show(btnRefresh_, imRefresh, "Res_QuoteRefresh");
  if (btnHideBrokerQueue_) {
    const bool shown = btnHideBrokerQueue_->State == 0;
    Show(btnHideBrokerQueue_, shown ? imHideBrokerQueue : imShowBrokerQueue,
         shown ? "Res_HideBrokerQueue" : "Res_ShowBrokerQueue");
    mBrokerName->setVisible(shown);
  }
  if (btnShowHideQty_) {
    const bool shown = btnShowHideQty_->State == 0;
    Show(btnShowHideQty_, shown ? imHideQty : imShowQty,
         shown ? "Res_HideQtyBtn" : "Res_ShowQtyBtn");
    lgBtn->SetVisibleFlag(shown);
  }
  SetDisplayModeHeight();
}

void TQuorPriceFrame::btnDisplayModeClick() {
  SetDisplayMode(displayMode_ == qm5Full ? qm10Full : qm5Full);
  UpdateCaptionButtons();
  Baseview::SendViewNotify(this, Constdef::Notify_LayoutChanged);
  Baseview::SendViewNotify(this, Constdef::Notify_SizeChanged);
}

void TQuorPriceFrame::btnShowHideClick() {
  Toggle(btnShowHide_->State);
  UpdateCaptionButtons();
  Baseview::SendViewNotify(this, Constdef::Notify_LayoutChanged);
  Baseview::SendViewNotify(this, Constdef::Notify_SizeChanged);
}

void TQuorPriceFrame::btnLockClick() {
  Toggle(btnLock_->State);
  UpdateCaptionButtons();
  Baseview::SendViewNotify(this, Constdef::Notify_LayoutChanged);
}

void TQuorPriceFrame::btnHideBrokerQueueClick() {
  Toggle(btnHideBrokerQueue_->State);
  UpdateCaptionButtons();
  ShowHideBrokerQueue();
  Baseview::SendViewNotify(this, Constdef::Notify_LayoutChanged);
}

void TQuorPriceFrame::btnShowHideQtyClick() {
  Toggle(btnShowHideQty_->State);
  UpdateCaptionButtons();
  Baseview::SendViewNotify(this, Constdef::Notify_LayoutChanged);
  Baseview::SendViewNotify(this, Constdef::Notify_SizeChanged);
}

void TQuorPriceFrame::ShowHideBrokerQueue() {
  if (!btnHideBrokerQueue_)
    return;
  const bool shown = btnHideBrokerQueue_->State == 0;
  PriceGridView->BeginUpdate();
  for (const auto& column : PriceGridView->Columns())
    if (QueueColumnOf(column->Tag))
      PriceGridView->SetColumnVisible(column.get(), shown);
  PriceGridView->EndUpdate();
  ResetSize();
}

void TQuorPriceFrame::btnProChartClick() {
  const auto symbol = AppliedSymbol();
  if (symbol.empty())
    return;
  const auto parameters = Baseorderadapter::TCustomOrderAdapter::GetInstance()->NewViewParameters();
  parameters->SetSymbol(symbol);
  Baseview::OpenCustomView(this, Constdef::View_Chart, 0, parameters.get(), 0, true);
}

void TQuorPriceFrame::btnRefreshClick() {
  if (!AppliedSymbol().empty() && perclickPriceControl_)
    perclickPriceControl_->RefreshPrice();
}

void TQuorPriceFrame::mBrokerNameClick() { SetShowBrokerName(!showBrokerName_); }

void TQuorPriceFrame::btnQtyClick(const TcxButton* sender) {
  const int quantity = QuantityOfCaption(sender->text().toStdString());
  if (quantity > 0)
    priceControl_->CopyQty(quantity);
}

} // namespace Quorpriceview
