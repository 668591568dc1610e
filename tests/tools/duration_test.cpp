#include "base/duration.h"

#include <gtest/gtest.h>

namespace tolvex::ctl {
namespace {

using std::chrono::milliseconds;

TEST(Duration, IsANumberOfMillisecondsOrHasAUnit) {
  EXPECT_EQ(parseDuration("500"), milliseconds(500));
  EXPECT_EQ(parseDuration("500ms"), milliseconds(500));
  EXPECT_EQ(parseDuration("5s"), milliseconds(5000));
  EXPECT_EQ(parseDuration("2m"), milliseconds(120000));
  EXPECT_EQ(parseDuration("1440m"), milliseconds(86400000));
}

TEST(Duration, IsNoOtherText) {
  for (const char* text : {"", "0", "-1", "+1", " 1", "1 s", "1.5s", "5h", "s", "1441m", "0x10",
                           "99999999999999999999", "9223372036854775807m"}) {
    EXPECT_EQ(parseDuration(text), std::nullopt) << text;
  }
}

TEST(Duration, IsToldInSecondsFromOneOn) {
  EXPECT_EQ(toText(milliseconds(999)), "999 ms");
  EXPECT_EQ(toText(milliseconds(5000)), "5 s");
  EXPECT_EQ(toText(milliseconds(1500)), "1.5 s");
  EXPECT_EQ(toText(milliseconds(1005)), "1.005 s");
}

}  // namespace
}  // namespace tolvex::ctl
