#include "terminal/services/UserProfile.h"

namespace Terminal {

TVendorModel::~TVendorModel() { SetFeedType(std::nullopt); }

void TVendorModel::SetFeedType(std::optional<int> type) {
  feedType_ = type;
  if (type)
    Install(this);
  else if (GetInstance() == this)
    Install(nullptr);
}

} // namespace Terminal
