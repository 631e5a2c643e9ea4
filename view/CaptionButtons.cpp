#include "view/CaptionButtons.h"

#include "host/ConstDef.h"
#include "view/CaptionImages.h"
#include "view/QuorPriceForm.h"
#include "view/Texts.h"

#include <utility>

namespace Quorpriceview {

using namespace Quorpricedatacontrol;
using Viewinterface::TCaptionButton;

namespace {

struct TFace {
  TCaptionImage Image;
  const char* Key; ///< of the text
};

/// The face of a button while its switch is off, and while it is on.
struct TLook {
  std::string_view Name;
  TSwitch TViewState::*Switch; ///< null: none
  TFace Off, On;
};

/// In the order of TCaptionKind.
constexpr TLook Looks[] = {
    {Constdef::Button_DisplayMode,
     nullptr,
     {im10Levels, "Res_PriceDepth10"},
     {im5Levels, "Res_PriceDepth5"}},
    {Constdef::Button_Refresh, nullptr, {imRefresh, "Res_QuoteRefresh"}, {}},
    {Constdef::Button_ShowHide,
     &TViewState::SymbolLineHidden,
     {imLess, "Res_Less"},
     {imMore, "Res_More"}},
    {Constdef::Button_Lock, &TViewState::Lock, {imLock, "Res_Lock"}, {imUnlock, "Res_Unlock"}},
    {Constdef::Button_Chart, nullptr, {imChart, "Res_ProChart"}, {}},
    {Constdef::Button_BrokerQueue,
     &TViewState::QueueHidden,
     {imHideBrokerQueue, "Res_HideBrokerQueue"},
     {imShowBrokerQueue, "Res_ShowBrokerQueue"}},
    {Constdef::Button_Quantity,
     &TViewState::QtyButtonsHidden,
     {imHideQty, "Res_HideQtyBtn"},
     {imShowQty, "Res_ShowQtyBtn"}},
};

const TLook& LookOf(TCaptionKind kind) { return Looks[static_cast<std::size_t>(kind)]; }

} // namespace

void TCaptionButtons::Add(TCaptionKind kind, System::TNotifyEvent onClick) {
  auto& button = buttons_[kind] = std::make_unique<TCaptionButton>();
  button->Name = LookOf(kind).Name;
  button->OnClick = std::move(onClick);
}

std::vector<TCaptionButton*> TCaptionButtons::List() const {
  std::vector<TCaptionButton*> list;
  for (const auto& [kind, button] : buttons_)
    list.push_back(button.get());
  return list;
}

void TCaptionButtons::Update(const TViewState& state) {
  for (const auto& [kind, button] : buttons_) {
    const TLook& look = LookOf(kind);
    button->State = look.Switch ? (state.*look.Switch).Number : 0;
    const bool levels = kind == TCaptionKind::DisplayMode;
    if (levels && state.DisplayMode == qm10Simple)
      continue; // as it was
    const bool on = levels ? state.DisplayMode == qm10Full : button->State != 0;
    const auto& face = on ? look.On : look.Off;
    button->ImageIndex = face.Image;
    button->Hint = Translated(face.Key).toStdString();
  }
  form_.lgSymbol->SetVisibleFlag(!state.SymbolLineHidden.IsOn());
  if (state.HasQueueButton)
    form_.mBrokerName->setVisible(!state.QueueHidden.IsOn());
  if (state.HasQtyButtons)
    form_.lgBtn->SetVisibleFlag(!state.QtyButtonsHidden.IsOn());
}

} // namespace Quorpriceview
