#pragma once

#include "host/Service.h"

namespace Platform {
class TcxImageList;
}

namespace Iimageresource {

/// The host's shared images.
class QUOR_EXPORT TIImageResourceList : public Host::TService<TIImageResourceList> {
public:
  ~TIImageResourceList() override;

  /// Image that stands for deleting a row.
  static constexpr int DeleteImage = 2;

  /// Host-owned, never null.
  virtual Platform::TcxImageList* Images() = 0;
};

} // namespace Iimageresource
