#include "control/iso_time.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

std::string at(std::int64_t milliseconds) {
  return isoTime(std::chrono::system_clock::time_point(std::chrono::milliseconds(milliseconds)));
}

TEST(SimIsoTime, IsInUtcWithMilliseconds) {
  EXPECT_EQ(at(0), "1970-01-01T00:00:00.000Z");
  EXPECT_EQ(at(1'795'261'621'123), "2026-11-21T11:47:01.123Z");
  EXPECT_EQ(at(9'000'000'000'001), "2255-03-14T16:00:00.001Z");
}

TEST(SimIsoTime, KnowsTheCalendar) {
  EXPECT_EQ(at(951'782'399'000), "2000-02-28T23:59:59.000Z");
  EXPECT_EQ(at(951'782'400'000), "2000-02-29T00:00:00.000Z");
  EXPECT_EQ(at(951'868'800'000), "2000-03-01T00:00:00.000Z");
  EXPECT_EQ(at(1'709'164'800'000), "2024-02-29T00:00:00.000Z");
  EXPECT_EQ(at(1'772'323'200'000), "2026-03-01T00:00:00.000Z");
  EXPECT_EQ(at(1'798'761'599'999), "2026-12-31T23:59:59.999Z");
  EXPECT_EQ(at(4'107'542'400'000), "2100-03-01T00:00:00.000Z");
}

}  // namespace
}  // namespace tolvex::sim
