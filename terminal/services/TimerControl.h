#pragma once

#include "host/BaseTimerControl.h"
#include "terminal/services/Listeners.h"

#include <QTimer>

namespace Terminal {

/// The shared timer: ticks twice a second while the event loop runs.
class TTimerControl : public Basetimercontrol::TCustomTimerControl {
public:
  TTimerControl();

  void Register(const System::TObject* owner, System::TNotifyEvent handler) override;
  void Unregister(const System::TObject* owner) override;

  std::size_t RegistrationCount() const { return listeners_.Count(); }

private:
  QTimer timer_;
  TListeners<System::TObject*> listeners_;
};

} // namespace Terminal
