#pragma once

#include "host/BaseOrderData.h"
#include "host/Service.h"

#include <memory>

namespace Baseorderadapter {

/// Makes the objects that order entry and custom views understand. The caller owns them.
class QUOR_EXPORT TCustomOrderAdapter : public Host::TService<TCustomOrderAdapter> {
public:
  ~TCustomOrderAdapter() override;

  /// Never null.
  virtual std::unique_ptr<Baseorderdata::TCustomOrder> NewOrder() = 0;
  /// Never null.
  virtual std::unique_ptr<Baseorderdata::TCustomViewParameters> NewViewParameters() = 0;
};

} // namespace Baseorderadapter
