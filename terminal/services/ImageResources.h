#pragma once

#include "host/view/ImageResource.h"
#include "platform/ImageList.h"

namespace Terminal {

/// The terminal's shared images: 0 add, 1 edit, 2 delete, 3 chart. Drawn, not loaded, so that they
/// are sharp at every size.
class TImageResources : public Iimageresource::TIImageResourceList {
public:
  /// Needs the application.
  TImageResources();

  Platform::TcxImageList* Images() override { return &images_; }

private:
  Platform::TcxImageList images_;
};

} // namespace Terminal
