#include "logs/log_time.h"

#include <gtest/gtest.h>

namespace tolvex::ctl {
namespace {

LogTime at(unsigned year, unsigned month, unsigned day, unsigned hour, unsigned minute,
           unsigned second = 0, unsigned millisecond = 0) {
  return logTime(year, month, day, hour, minute, second, millisecond).value();
}

const LogTime kNow = at(2026, 3, 1, 0, 5);

std::string read(const std::string& text) {
  const std::optional<LogTime> time = parseLogTime(text, kNow);
  return time ? logTimeText(*time, ' ') : "none";
}

TEST(LogTime, IsShownAsItWasMade) {
  EXPECT_EQ(logTimeText(at(2024, 2, 29, 23, 59, 58, 7), 'T'), "2024-02-29T23:59:58.007");
  EXPECT_EQ(logTimeText(at(1969, 12, 31, 1, 2, 3), ' '), "1969-12-31 01:02:03.000");
  EXPECT_EQ(logTimeText(at(2000, 3, 1, 0, 0), ' '), "2000-03-01 00:00:00.000");
}

TEST(LogTime, RefusesDaysThatDoNotExist) {
  EXPECT_FALSE(logTime(2026, 2, 29, 0, 0, 0, 0));
  EXPECT_FALSE(logTime(2026, 13, 1, 0, 0, 0, 0));
  EXPECT_FALSE(logTime(2026, 0, 1, 0, 0, 0, 0));
  EXPECT_FALSE(logTime(2026, 1, 1, 24, 0, 0, 0));
  EXPECT_TRUE(logTime(2026, 1, 1, 23, 59, 60, 999)) << "a leap second";
}

TEST(ParseLogTime, ReadsHowLongAgoAcrossDaysAndMonths) {
  EXPECT_EQ(read("90s"), "2026-03-01 00:03:30.000");
  EXPECT_EQ(read("10m"), "2026-02-28 23:55:00.000");
  EXPECT_EQ(read("2h"), "2026-02-28 22:05:00.000");
  EXPECT_EQ(read("60d"), "2025-12-31 00:05:00.000");
}

TEST(ParseLogTime, ReadsDatesAndClocks) {
  EXPECT_EQ(read("2026-01-02"), "2026-01-02 00:00:00.000");
  EXPECT_EQ(read("2026-01-02 08:30"), "2026-01-02 08:30:00.000");
  EXPECT_EQ(read("2026-01-02T08:30:15.5"), "2026-01-02 08:30:15.500");
  EXPECT_EQ(read("8:30"), "2026-03-01 08:30:00.000");
}

TEST(ParseLogTime, RefusesEverythingElse) {
  for (const char* text : {"", "10", "m", "10x", "yesterday", "2026-13-01", "2026-01-02 25:00",
                           "2026-01-02 08:30 ", "08:3", "-5m", "1234567890s", "2026-01-02x"}) {
    EXPECT_EQ(read(text), "none") << text;
  }
}

}  // namespace
}  // namespace tolvex::ctl
