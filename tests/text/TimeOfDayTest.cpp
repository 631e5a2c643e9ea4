#include "text/TimeOfDay.h"

#include <gtest/gtest.h>

namespace {

using namespace Text;
using namespace std::chrono_literals;

TEST(TTimeOfDayTest, ReadsWholeSecondsAndFractions) {
  EXPECT_EQ(ParseTimeOfDay("00:00:00"), TTimeOfDay(0));
  EXPECT_EQ(ParseTimeOfDay("23:59:59.999999"), 24h - 1us);
  EXPECT_EQ(ParseTimeOfDay("01:02:03.5"), 1h + 2min + 3s + 500ms);
  EXPECT_EQ(ParseTimeOfDay("01:02:03.000007"), 1h + 2min + 3s + 7us);
}

TEST(TTimeOfDayTest, RefusesEverythingElse) {
  for (const char* text :
       {"", "9:30:00", "09:30", "24:00:00", "09:60:00", "09:30:60", "09:30:00.", "09:30:00.1234567",
        "09:30:00,5", "09:30:00.1x", "09-30-00", " 09:30:00", "09:30:00 ", "-1:00:00", "09:30:0a"})
    EXPECT_FALSE(ParseTimeOfDay(text)) << text;
}

TEST(TTimeOfDayTest, WritesTheClockToTheSecond) {
  EXPECT_EQ(ClockText(9h + 5min + 7s + 999999us), "09:05:07");
}

TEST(TTimeOfDayTest, WritesWhatItReads) {
  EXPECT_EQ(TimeOfDayText(9h + 5min + 7s + 42us), "09:05:07.000042");
  EXPECT_EQ(ParseTimeOfDay(TimeOfDayText(24h - 1us)), 24h - 1us);
}

} // namespace
