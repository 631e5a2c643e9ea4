#include "platform/ImageList.h"

namespace Platform {

TcxImageList::TcxImageList(QObject* parent) : QObject(parent) {}

QIcon TcxImageList::Image(int index) const {
  return index >= 0 && index < Count() ? images_[static_cast<std::size_t>(index)] : QIcon();
}

} // namespace Platform
