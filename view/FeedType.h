#pragma once

#include "host/BaseVendorDDSModel.h"
#include "host/ConstDef.h"

namespace Quorpriceview {

/// Constdef::FeedType_... of the vendor's data feed; streaming when the host has no model of it.
inline int FeedType() {
  auto* model = Basevendorddsmodel::TCustomVendorDDSModel::GetInstance();
  return model ? model->FeedType() : Constdef::FeedType_Streaming;
}

inline bool IsPerclickFeed() { return FeedType() == Constdef::FeedType_PerClick; }
inline bool IsDelayedFeed() { return FeedType() == Constdef::FeedType_Delayed; }

} // namespace Quorpriceview
