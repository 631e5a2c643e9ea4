#pragma once

#include "host/System.h"
#include "platform/PopupEdit.h"

#include <string>
#include <string_view>

namespace Quorpriceview {

/// The symbol that a symbol box was last resolved to, never what is being typed.
std::string AppliedSymbol(const Platform::TcxPopupEdit& box);

/// Lets the box resolve and apply a symbol as if it had been typed.
void EnterSymbol(Platform::TcxPopupEdit& box, const std::string& symbol);

/// Drops the press of a mouse button that is about to reach `pressed`. A press that takes the focus
/// out of the box may enter another symbol first; it was not meant for what shows that one now.
void DropPress(QWidget* pressed);

/// Which symbols of others a view follows: its linking group, and the host's default group data
/// mode (-1 when unset). With the mode unset it follows everybody; otherwise a linked view follows
/// its own group only, and an unlinked view follows broadcasts and orders only when bit 0 of the
/// mode is set.
struct TSymbolFollowing {
  std::string GroupID; ///< empty: not linked
  int GroupDataMode = -1;

  /// Reads the mode.
  void ReadConfiguration();

  bool FollowsBroadcast() const;
  bool FollowsGroup(std::string_view group) const;
  bool FollowsOrder(std::string_view group) const;

  // A message brings no symbol when it is of another kind or the view does not follow it.

  /// Enters the symbol of a list's broadcast or of a linking group's message, unless the box holds
  /// it already or is disabled.
  void Apply(Platform::TcxPopupEdit& box, System::TObject* message) const;
  /// Enters the symbol of the order that order entry works on, without resolution, unless it is
  /// the one that is shown.
  void ApplyOrder(Platform::TcxPopupEdit& box, System::TObject* message,
                  const std::string& shown) const;

private:
  bool FollowsEverybody() const { return GroupDataMode < 0; }
  bool UnlinkedFollows() const { return (GroupDataMode & 1) != 0; }
};

} // namespace Quorpriceview
