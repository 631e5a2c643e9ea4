#include "feed/QuietSource.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

TEST(MarketReader, DoesNotPlayFromTheBeginningWhatCannotSeek) {
  FeedTest::TQuietSource source([] {});
  source.Step(1s);
  ASSERT_TRUE(source.IsAtEnd());
  EXPECT_TRUE(source.Take().Finished);
  source.Play();
  EXPECT_FALSE(source.IsPlaying());
  EXPECT_TRUE(source.IsAtEnd());
  EXPECT_EQ(source.Position(), FeedTest::TQuietSource::Start + 1s);
}

} // namespace
