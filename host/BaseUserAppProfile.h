#pragma once

#include "host/Service.h"

#include <string_view>

namespace Baseuserappprofile {

/// What the user may do.
class QUOR_EXPORT TCustomUserAppProfile : public Host::TService<TCustomUserAppProfile> {
public:
  ~TCustomUserAppProfile() override;

  /// `function`: Constdef::Function_...
  virtual bool IsFunctionGranted(std::string_view function) = 0;
};

} // namespace Baseuserappprofile
