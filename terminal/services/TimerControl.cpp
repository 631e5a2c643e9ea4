#include "terminal/services/TimerControl.h"

namespace Terminal {

TTimerControl::TTimerControl() {
  timer_.setTimerType(Qt::PreciseTimer);
  timer_.callOnTimeout([this] { listeners_.Notify(this); });
  timer_.start(500);
}

void TTimerControl::Register(const System::TObject* owner, System::TNotifyEvent handler) {
  listeners_.Set(owner, std::move(handler));
}

void TTimerControl::Unregister(const System::TObject* owner) { listeners_.Remove(owner); }

} // namespace Terminal
