#pragma once

#include "host/BaseVendorDDSModel.h"
#include "host/ConstDef.h"

namespace Quorpriceview {

inline bool HasVendorModel() {
  return Basevendorddsmodel::TCustomVendorDDSModel::GetInstance() != nullptr;
}

/// Whether the vendor data-feed model exists and reports this feed type.
inline bool IsFeedType(int type) {
  auto* model = Basevendorddsmodel::TCustomVendorDDSModel::GetInstance();
  return model && model->FeedType() == type;
}

inline bool IsPerclickFeed() { return IsFeedType(Constdef::FeedType_PerClick); }
inline bool IsDelayedFeed() { return IsFeedType(Constdef::FeedType_Delayed); }

} // namespace Quorpriceview
