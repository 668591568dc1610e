#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "weighing/record_text.h"

namespace tolvex {
namespace {

TEST(Truncated, CutsTowardZero) {
  EXPECT_EQ(truncated(0.0), 0);
  EXPECT_EQ(truncated(0.999), 0);
  EXPECT_EQ(truncated(-0.999), 0);
  EXPECT_EQ(truncated(15.9), 15);
  EXPECT_EQ(truncated(-15.9), -15);
  EXPECT_EQ(truncated(1.001 * 1000), 1000);
}

TEST(Truncated, ReachesTheExtremesOfThirtyTwoBits) {
  EXPECT_EQ(truncated(2147483646.9), 2147483646);
  EXPECT_EQ(truncated(2147483647.0), INT32_MAX);
  EXPECT_EQ(truncated(2147483647.9), INT32_MAX);
  EXPECT_EQ(truncated(-2147483647.9), -2147483647);
  EXPECT_EQ(truncated(-2147483648.0), INT32_MIN);
  EXPECT_EQ(truncated(-2147483648.9), INT32_MIN);
}

TEST(Truncated, ClampsWhatIsLarger) {
  EXPECT_EQ(truncated(2147483648.0), INT32_MAX);
  EXPECT_EQ(truncated(1e300), INT32_MAX);
  EXPECT_EQ(truncated(-2147483649.0), INT32_MIN);
  EXPECT_EQ(truncated(-1e300), INT32_MIN);
  EXPECT_EQ(truncated(std::numeric_limits<double>::infinity()), INT32_MAX);
  EXPECT_EQ(truncated(-std::numeric_limits<double>::infinity()), INT32_MIN);
}

TEST(Truncated, IsZeroForNoNumber) {
  EXPECT_EQ(truncated(std::numeric_limits<double>::quiet_NaN()), 0);
  EXPECT_EQ(truncated(-std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
}  // namespace tolvex
