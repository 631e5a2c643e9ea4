#include "view/ViewState.h"

#include "host/ConstDef.h"

#include <stdexcept>

namespace Quorpriceview {

using namespace Quorpricedatacontrol;

void TViewState::SwitchLevels() { DisplayMode = DisplayMode == qm5Full ? qm10Full : qm5Full; }

void TViewState::Write(TLayoutData& layout) const {
  layout.Add(Constdef::Layout_DisplayMode, DisplayMode);
  layout.Add(Constdef::Layout_ShowHideState, SymbolLineHidden.Number);
  layout.Add(Constdef::Layout_ShowBrokerName, ShowBrokerName ? -1 : 0);
  layout.Add(Constdef::Layout_LockState, Lock.Number);
  if (HasQueueButton)
    layout.Add(Constdef::Layout_BrokerQueueState, QueueHidden.Number);
  if (HasQtyButtons)
    layout.Add(Constdef::Layout_QtyButtonState, QtyButtonsHidden.Number);
}

void TViewState::ReadDisplayMode(const TLayoutData& layout) {
  const int ordinal = IntegerOf(layout, Constdef::Layout_DisplayMode);
  const bool known = ordinal >= qm5Full && ordinal <= qm10Full;
  DisplayMode = known ? static_cast<TQuorMode>(ordinal) : qm5Full;
}

std::optional<bool> TViewState::ReadShowBrokerName(const TLayoutData& layout) {
  const auto value = layout.Value(Constdef::Layout_ShowBrokerName);
  const auto show = ParseBoolean(value);
  if (!value.empty() && !show)
    throw std::invalid_argument("\"" + value + "\" is not a value of ShowBrokerName");
  return show;
}

void TViewState::ReadSwitches(const TLayoutData& layout) {
  SymbolLineHidden.Number = IntegerOf(layout, Constdef::Layout_ShowHideState);
  Lock.Number = IntegerOf(layout, Constdef::Layout_LockState);
  if (HasQueueButton)
    QueueHidden.Number = IntegerOf(layout, Constdef::Layout_BrokerQueueState);
  if (HasQtyButtons)
    QtyButtonsHidden.Number = IntegerOf(layout, Constdef::Layout_QtyButtonState);
}

} // namespace Quorpriceview
