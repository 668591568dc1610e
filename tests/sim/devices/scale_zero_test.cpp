// The zero key. With a capacity of 15 kg it reaches 0.3 kg to both sides of the empty platform.
#include "scale_fixture.h"

namespace tolvex::sim {
namespace {

class ScaleZero : public ScaleFixture {};

TEST_F(ScaleZero, MakesTheLoadZero) {
  settle(0.05);
  EXPECT_FALSE(weigh().zero);
  EXPECT_EQ(zero(), ResultCode::Ok);
  EXPECT_TRUE(weigh().zero);
  EXPECT_EQ(net(), "0.000");
  settle(0.25);
  EXPECT_EQ(net(), "0.200");
}

TEST_F(ScaleZero, RemovesEvenAFractionOfADivision) {
  settle(0.0004);
  EXPECT_FALSE(weigh().zero);
  EXPECT_EQ(zero(), ResultCode::Ok);
  EXPECT_TRUE(weigh().zero);
}

TEST_F(ScaleZero, NeedsAStableWeight) {
  put(0.05);
  EXPECT_EQ(zero(), ResultCode::WeightNotStable);
  pass(10);
  EXPECT_EQ(net(), "0.050");
}

TEST_F(ScaleZero, ReachesTwoPercentOfTheCapacity) {
  settle(0.3);
  EXPECT_EQ(zero(), ResultCode::Ok);
  settle(-0.3);
  EXPECT_EQ(zero(), ResultCode::Ok);
  EXPECT_EQ(net(), "0.000");
}

TEST_F(ScaleZero, RefusesALoadBeyondItsReach) {
  settle(0.3001);
  EXPECT_EQ(zero(), ResultCode::CommandReturnFail);
  EXPECT_EQ(net(), "0.300");
}

TEST_F(ScaleZero, TheReachCountsFromTheEmptyPlatform) {
  settle(0.2);
  EXPECT_EQ(zero(), ResultCode::Ok);
  settle(0.31);
  EXPECT_EQ(zero(), ResultCode::CommandReturnFail);
  EXPECT_EQ(net(), "0.110");
}

TEST_F(ScaleZero, NamesUnderLoadAndOverLoadBeyondItsReach) {
  settle(-0.31);
  EXPECT_EQ(zero(), ResultCode::UnderLoad);
  settle(16);
  EXPECT_EQ(zero(), ResultCode::OverLoad);
}

// The platform was zeroed with something on it that is gone now.
TEST_F(ScaleZero, BringsAScaleBackFromUnderLoadWithinItsReach) {
  settle(0.1);
  EXPECT_EQ(zero(), ResultCode::Ok);
  settle(0);
  EXPECT_EQ(result(), ResultCode::UnderLoad);
  EXPECT_EQ(zero(), ResultCode::Ok);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_TRUE(weigh().zero);
}

TEST_F(ScaleZero, ShiftsTheLimitsOfTheRanges) {
  settle(0.3);
  EXPECT_EQ(zero(), ResultCode::Ok);
  settle(15.345);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_EQ(net(), "15.045");
  settle(15.3451);
  EXPECT_EQ(result(), ResultCode::OverLoad);
}

TEST_F(ScaleZero, LeavesTheTare) {
  settle(0.1);
  EXPECT_EQ(tare(), ResultCode::Ok);
  EXPECT_EQ(zero(), ResultCode::Ok);
  EXPECT_EQ(shownTare(), "0.100");
  EXPECT_EQ(net(), "-0.100");
}

TEST_F(ScaleZero, IsLostWithThePower) {
  settle(0.1);
  EXPECT_EQ(zero(), ResultCode::Ok);
  scale_.unplug();
  EXPECT_EQ(zero(), ResultCode::LcNotConnected);
  scale_.plug(now_);
  pass(10);
  EXPECT_EQ(net(), "0.100");
}

TEST_F(ScaleZero, IsRefusedByAFaultyScale) {
  scale_.setInvalid(true);
  EXPECT_EQ(zero(), ResultCode::InvalidWeight);
}

}  // namespace
}  // namespace tolvex::sim
