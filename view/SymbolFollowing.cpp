#include "view/SymbolFollowing.h"

namespace Quorpriceview {

bool TSymbolFollowing::FollowsBroadcast() const {
  return FollowsEverybody() || (GroupID.empty() && UnlinkedFollows());
}

bool TSymbolFollowing::FollowsGroup(std::string_view group) const {
  return FollowsEverybody() || group == GroupID;
}

bool TSymbolFollowing::FollowsOrder(std::string_view group) const {
  return FollowsEverybody() || (GroupID.empty() ? UnlinkedFollows() : group == GroupID);
}

} // namespace Quorpriceview
