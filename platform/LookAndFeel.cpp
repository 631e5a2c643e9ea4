#include "platform/LookAndFeel.h"

namespace Platform {

TcxRootLookAndFeel& TcxRootLookAndFeel::Instance() {
  static TcxRootLookAndFeel instance;
  return instance;
}

void TcxRootLookAndFeel::SetSkinPainter(std::optional<TSkinPainter> painter) {
  if (painter_ == painter)
    return;
  painter_ = painter;
  emit Changed();
}

} // namespace Platform
