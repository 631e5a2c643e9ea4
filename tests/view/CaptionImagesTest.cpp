// The pictures on the caption buttons.

#include "view/CaptionImages.h"

#include "platform/ImageList.h"

#include <QImage>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace {

TEST(TCaptionImagesTest, EveryImageShowsSomethingOfItsOwn) {
  Platform::TcxImageList images;
  Quorpriceview::AddCaptionImages(images);
  ASSERT_EQ(images.Count(), 12);
  for (const int size : {16, 24, 32}) {
    std::set<std::vector<uchar>> seen;
    for (int index = 0; index < images.Count(); ++index) {
      const auto picture = images.Image(index)
                               .pixmap(QSize(size, size), 1.0)
                               .toImage()
                               .convertToFormat(QImage::Format_ARGB32);
      ASSERT_EQ(picture.size(), QSize(size, size)) << index;
      const std::vector<uchar> pixels(picture.constBits(),
                                      picture.constBits() + picture.sizeInBytes());
      EXPECT_NE(std::count(pixels.begin(), pixels.end(), 0), std::ssize(pixels)) << index;
      EXPECT_TRUE(seen.insert(pixels).second) << index;
    }
    EXPECT_EQ(seen.size(), 12u);
  }
}

TEST(TCaptionImagesTest, StandInTheirOrder) {
  using namespace Quorpriceview;
  const std::vector<int> order{imLess,    imMore,   im5Levels, im10Levels,        imLock,
                               imUnlock,  imChart,  imRefresh, imHideBrokerQueue, imShowBrokerQueue,
                               imHideQty, imShowQty};
  for (int i = 0; i < 12; ++i)
    EXPECT_EQ(order[static_cast<std::size_t>(i)], i);
}

} // namespace
