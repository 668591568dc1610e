#include "devices/settling.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

constexpr Milligrams kBand = 250;
constexpr Milligrams kLoad = 1'000'000;

// Time constant 100 ms, hold 300 ms. From 1 kg to 250 mg takes ln(4000) = 8.294 time constants, so
// a load of 1 kg is stable after 1129 ms.
class SettlingTest : public ::testing::Test {
 protected:
  TimePoint at(int milliseconds) const { return start_ + std::chrono::milliseconds(milliseconds); }

  const TimePoint start_{std::chrono::hours(1)};
  Settling settling_{0, Seconds(0.1), Seconds(0.3)};
};

TEST_F(SettlingTest, StartsAtAStandstill) {
  EXPECT_TRUE(settling_.isStable(at(0)));
  EXPECT_EQ(settling_.reading(at(0)), 0);
}

TEST_F(SettlingTest, ApproachesTheTargetExponentially) {
  settling_.approach(kLoad, kBand, at(0));
  EXPECT_EQ(settling_.reading(at(0)), 0);
  EXPECT_EQ(settling_.reading(at(100)), 632'121);  // 1 - 1/e
  EXPECT_EQ(settling_.reading(at(200)), 864'665);
  EXPECT_EQ(settling_.target(), kLoad);
}

TEST_F(SettlingTest, IsStableAfterTheHoldTimeWithinTheBand) {
  settling_.approach(kLoad, kBand, at(0));
  EXPECT_FALSE(settling_.isStable(at(0)));
  EXPECT_FALSE(settling_.isStable(at(1129)));
  EXPECT_TRUE(settling_.isStable(at(1130)));
  EXPECT_NE(settling_.reading(at(900)), kLoad);
  EXPECT_EQ(settling_.reading(at(1130)), kLoad);
}

TEST_F(SettlingTest, TurnsRoundWhereItIsWhenTheTargetChanges) {
  settling_.approach(kLoad, kBand, at(0));
  settling_.approach(0, kBand, at(100));
  EXPECT_EQ(settling_.reading(at(100)), 632'121);
  EXPECT_EQ(settling_.reading(at(200)), 232'544);  // 632121 / e
  EXPECT_FALSE(settling_.isStable(at(1183)));
  EXPECT_TRUE(settling_.isStable(at(1184)));  // 100 + 783.5 + 300 ms
}

TEST_F(SettlingTest, TheSameTargetAgainDisturbsNothing) {
  settling_.approach(kLoad, kBand, at(0));
  settling_.approach(kLoad, kBand, at(1000));
  EXPECT_TRUE(settling_.isStable(at(1130)));
}

TEST_F(SettlingTest, AChangeWithinTheBandLeavesAStandstill) {
  settling_.approach(kBand, kBand, at(0));
  EXPECT_TRUE(settling_.isStable(at(0)));
  EXPECT_EQ(settling_.reading(at(0)), kBand);
}

TEST_F(SettlingTest, AChangeBeyondTheBandEndsAStandstill) {
  settling_.approach(kBand + 1, kBand, at(0));
  EXPECT_FALSE(settling_.isStable(at(299)));
  EXPECT_TRUE(settling_.isStable(at(301)));
}

TEST_F(SettlingTest, RestartsFromAnotherValue) {
  settling_.approach(kLoad, kBand, at(0));
  settling_.restart(0, kBand, at(5000));
  EXPECT_EQ(settling_.reading(at(5100)), 632'121);
  EXPECT_FALSE(settling_.isStable(at(6129)));
  EXPECT_TRUE(settling_.isStable(at(6130)));
}

TEST_F(SettlingTest, WithoutTimesEveryLoadIsStableAtOnce) {
  Settling settling(0, Seconds(0), Seconds(0));
  settling.approach(kLoad, kBand, at(0));
  EXPECT_TRUE(settling.isStable(at(0)));
  EXPECT_EQ(settling.reading(at(0)), kLoad);
}

TEST_F(SettlingTest, WithoutATimeConstantOnlyTheHoldTimePasses) {
  Settling settling(0, Seconds(0), Seconds(0.3));
  settling.approach(kLoad, kBand, at(0));
  EXPECT_EQ(settling.reading(at(0)), kLoad);
  EXPECT_FALSE(settling.isStable(at(299)));
  EXPECT_TRUE(settling.isStable(at(300)));
}

}  // namespace
}  // namespace tolvex::sim
