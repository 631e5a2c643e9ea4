#include "view/ViewState.h"

#include <stdexcept>

namespace Quorpriceview {

using namespace Quorpricedatacontrol;

void TViewState::SwitchLevels() { DisplayMode = DisplayMode == qm5Full ? qm10Full : qm5Full; }

void TViewState::Write(TLayoutData& layout) const {
  layout.Add("DisplayMode", DisplayMode);
  layout.Add("ShowHideState", SymbolLineHidden.Number);
  layout.Add("ShowBrokerName", ShowBrokerName ? -1 : 0);
  layout.Add("LockState", Lock.Number);
  if (HasQueueButton)
    layout.Add("BrokerQueueState", QueueHidden.Number);
  if (HasQtyButtons)
    layout.Add("QtyButtonState", QtyButtonsHidden.Number);
}

void TViewState::ReadDisplayMode(const TLayoutData& layout) {
  const int ordinal = layout.Integer("DisplayMode");
  const bool known = ordinal >= qm5Full && ordinal <= qm10Full;
  DisplayMode = known ? static_cast<TQuorMode>(ordinal) : qm5Full;
}

std::optional<bool> TViewState::ReadShowBrokerName(const TLayoutData& layout) {
  const auto value = layout.Value("ShowBrokerName");
  const auto show = ParseBoolean(value);
  if (!value.empty() && !show)
    throw std::invalid_argument("\"" + value + "\" is not a value of ShowBrokerName");
  return show;
}

void TViewState::ReadSwitches(const TLayoutData& layout) {
  SymbolLineHidden.Number = layout.Integer("ShowHideState");
  Lock.Number = layout.Integer("LockState");
  if (HasQueueButton)
    QueueHidden.Number = layout.Integer("BrokerQueueState");
  if (HasQtyButtons)
    QtyButtonsHidden.Number = layout.Integer("QtyButtonState");
}

} // namespace Quorpriceview
