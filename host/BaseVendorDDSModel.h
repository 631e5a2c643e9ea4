#pragma once

#include "host/Service.h"

namespace Basevendorddsmodel {

/// The vendor's data feed. A host may have installed none: GetInstance may give null.
class QUOR_EXPORT TCustomVendorDDSModel : public Host::TService<TCustomVendorDDSModel> {
public:
  ~TCustomVendorDDSModel() override;

  /// Constdef::FeedType_..., or another number that counts as none of them.
  virtual int FeedType() = 0;
};

} // namespace Basevendorddsmodel
