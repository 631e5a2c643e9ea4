#pragma once

namespace Platform {
class TcxImageList;
}

namespace Quorpriceview {

/// Positions of the caption-button images in the image list.
enum TCaptionImage {
  imLess,
  imMore,
  im5Levels,
  im10Levels,
  imLock,
  imUnlock,
  imChart,
  imRefresh,
  imHideBrokerQueue,
  imShowBrokerQueue,
  imHideQty,
  imShowQty,
};

/// Appends the twelve images, in that order. They are drawn at the size asked for, in the
/// colour of the palette's button text, so that they are sharp on any skin and at any scale.
void AddCaptionImages(Platform::TcxImageList& images);

} // namespace Quorpriceview
