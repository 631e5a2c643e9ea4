#pragma once

#include "host/Service.h"

namespace Basetimercontrol {

/// The host's shared timer.
class QUOR_EXPORT TCustomTimerControl : public Host::TService<TCustomTimerControl> {
public:
  ~TCustomTimerControl() override;

  /// Calls `handler` on every tick of the shared timer, twice a second. One registration per
  /// owner; the owner unregisters before it dies.
  virtual void Register(const System::TObject* owner, System::TNotifyEvent handler) = 0;
  virtual void Unregister(const System::TObject* owner) = 0;
};

} // namespace Basetimercontrol
