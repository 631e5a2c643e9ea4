// The vendor's feed type, asked afresh each time.

#include "view/FeedType.h"

#include "fakes/HostFakes.h"

#include <gtest/gtest.h>

using namespace Quorpriceview;

namespace {

TEST(TFeedTypeTest, WithoutModelQuotesStreamAndOtherwiseTheModelSays) {
  Fakes::THostFakes host;
  EXPECT_EQ(FeedType(), Constdef::FeedType_Streaming);
  for (const int type : {0, 1, 2, 3, 4}) {
    host.SetFeedType(type);
    EXPECT_EQ(FeedType(), type);
    EXPECT_EQ(IsPerclickFeed(), type == 2);
    EXPECT_EQ(IsDelayedFeed(), type == 3);
  }
  host.SetFeedType(std::nullopt);
  EXPECT_FALSE(IsPerclickFeed());
  EXPECT_FALSE(IsDelayedFeed());
}

} // namespace
