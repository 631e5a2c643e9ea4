#pragma once

#include "model/QuorTypes.h"
#include "view/LayoutData.h"

#include <optional>

namespace Quorpriceview {

/// A switch that layout data keeps as a number: 0 is off, any other number is on. A number that
/// came from layout data goes back as it came.
struct TSwitch {
  int Number = 0;

  bool IsOn() const { return Number != 0; }
  void Toggle() { Number = IsOn() ? 0 : 1; }
};

/// What layout data keeps of a price view beside its symbol.
struct TViewState {
  Quorpricedatacontrol::TQuorMode DisplayMode = Quorpricedatacontrol::qm5Full;
  bool ShowBrokerName = false;
  TSwitch SymbolLineHidden, Lock, QueueHidden, QtyButtonsHidden;
  // Fixed when the view is made. A switch without a button is neither written nor read.
  bool HasQueueButton = false;
  bool HasQtyButtons = false;

  /// The number 1 alone locks, whatever the button shows for others.
  bool IsLocked() const { return Lock.Number == 1; }
  /// From 5 levels to 10, and from any other mode to 5 levels.
  void SwitchLevels();

  /// Appends the items in their order.
  void Write(TLayoutData& layout) const;

  // Reading goes in these three steps: what hangs on one happens before the next.

  /// 5 levels when there is no item or it names no mode.
  void ReadDisplayMode(const TLayoutData& layout);
  /// Nothing when there is no item: all stays as it is. Throws std::invalid_argument when its value
  /// is not a boolean.
  static std::optional<bool> ReadShowBrokerName(const TLayoutData& layout);
  /// Off without an item.
  void ReadSwitches(const TLayoutData& layout);
};

} // namespace Quorpriceview
