#pragma once

#include <string_view>

namespace Quorpriceview {

/// Which symbols of others a view follows: its linking group, and the host's default group data
/// mode (-1 when unset). With the mode unset it follows everybody; otherwise a linked view follows
/// its own group only, and an unlinked view follows broadcasts and orders only when bit 0 of the
/// mode is set.
struct TSymbolFollowing {
  std::string_view GroupID; ///< empty: not linked
  int GroupDataMode = -1;

  bool FollowsBroadcast() const;
  bool FollowsGroup(std::string_view group) const;
  bool FollowsOrder(std::string_view group) const;

private:
  bool FollowsEverybody() const { return GroupDataMode < 0; }
  bool UnlinkedFollows() const { return (GroupDataMode & 1) != 0; }
};

} // namespace Quorpriceview
