// A reading that does not stand still, and how long it takes to.
#include <set>
#include <stdexcept>

#include "scale_fixture.h"

namespace tolvex::sim {
namespace {

class ScaleNoise : public ScaleFixture {
 protected:
  /// The net weights that the scale shows within ten seconds.
  std::set<std::string> shownWeights() {
    std::set<std::string> weights;
    for (int i = 0; i < 100; ++i) {
      weights.insert(net());
      pass(0.1);
    }
    return weights;
  }
};

TEST_F(ScaleNoise, IsFilteredOutAsLongAsItChangesNothing) {
  scale_.setNoise(kilograms(0.0004));
  settle(0.482);
  EXPECT_EQ(scale_.noise(), 400);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_EQ(shownWeights(), std::set<std::string>{"0.482"});
  EXPECT_EQ(highResNet(), "0.4820");
  EXPECT_EQ(zero(), ResultCode::CommandReturnFail);
  EXPECT_EQ(tare(), ResultCode::Ok);
}

TEST_F(ScaleNoise, IsSeenWhereTheShownWeightCouldChange) {
  scale_.setNoise(kilograms(0.0004));
  settle(0.4822);
  EXPECT_EQ(result(), ResultCode::WeightNotStable);
  EXPECT_EQ(shownWeights(), (std::set<std::string>{"0.482", "0.483"}));
}

TEST_F(ScaleNoise, KeepsALargerReadingFromEverBeingStable) {
  scale_.setNoise(kilograms(0.002));
  settle(0.482);
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(result(), ResultCode::WeightNotStable);
    ASSERT_FALSE(weigh().stable);
    ASSERT_GE(weigh().net, kilograms(0.480));
    ASSERT_LE(weigh().net, kilograms(0.484));
    pass(0.05);
  }
  EXPECT_EQ(shownWeights(), (std::set<std::string>{"0.480", "0.481", "0.482", "0.483", "0.484"}));
  EXPECT_EQ(zero(), ResultCode::WeightNotStable);
  EXPECT_EQ(tare(), ResultCode::WeightNotStable);
}

TEST_F(ScaleNoise, IsTheSameForAllWhoLookAtATime) {
  scale_.setNoise(kilograms(0.01));
  settle(0.482);
  const std::string first = highResNet();
  EXPECT_EQ(highResNet(), first);
  pass(0.099);
  EXPECT_EQ(highResNet(), first);
  pass(0.001);
  EXPECT_NE(highResNet(), first);
}

TEST_F(ScaleNoise, EndsAsSoonAsItIsSwitchedOff) {
  scale_.setNoise(kilograms(0.01));
  settle(0.482);
  scale_.setNoise(0);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_EQ(net(), "0.482");
}

TEST_F(ScaleNoise, AnUnstableScaleNeverRestsWithoutALoadEither) {
  scale_.setUnstable(true);
  EXPECT_TRUE(scale_.isUnstable());
  EXPECT_EQ(result(), ResultCode::WeightNotStable);
  EXPECT_EQ(shownWeights(), (std::set<std::string>{"-0.002", "-0.001", "0.000", "0.001", "0.002"}));
  settle(0.482);
  EXPECT_EQ(result(), ResultCode::WeightNotStable);
  EXPECT_EQ(shownWeights(), (std::set<std::string>{"0.480", "0.481", "0.482", "0.483", "0.484"}));
  EXPECT_EQ(tare(), ResultCode::WeightNotStable);
  EXPECT_EQ(zero(), ResultCode::WeightNotStable);
  scale_.setUnstable(false);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_EQ(net(), "0.482");
}

TEST_F(ScaleNoise, GraverFaultsAreAnswered) {
  scale_.setUnstable(true);
  scale_.setInvalid(true);
  EXPECT_TRUE(scale_.isInvalid());
  EXPECT_EQ(result(), ResultCode::InvalidWeight);
  scale_.unplug();
  EXPECT_EQ(result(), ResultCode::LcNotConnected);
  scale_.plug(now_);
  scale_.setInvalid(false);
  settle(20);
  EXPECT_EQ(result(), ResultCode::OverLoad);
}

TEST_F(ScaleNoise, SettlingTakesAsLongAsItIsSet) {
  EXPECT_EQ(scale_.settling(), Seconds(1));
  scale_.setSettling(Seconds(2.5), now_);
  EXPECT_EQ(scale_.settling(), Seconds(2.5));
  put(1);
  pass(2.4);
  EXPECT_EQ(result(), ResultCode::WeightNotStable);
  pass(0.2);
  EXPECT_EQ(result(), ResultCode::Ok);
  scale_.setSettling(Seconds(0), now_);
  put(2);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_EQ(net(), "2.000");
}

TEST_F(ScaleNoise, AnotherSettlingLeavesTheReadingWhereItIs) {
  put(1);
  pass(0.1);
  const std::string before = net();
  scale_.setSettling(Seconds(30), now_);
  EXPECT_EQ(net(), before);
  EXPECT_EQ(result(), ResultCode::WeightNotStable);
  pass(40);
  EXPECT_EQ(net(), "1.000");
  EXPECT_EQ(result(), ResultCode::Ok);
  scale_.setSettling(Seconds(10), now_);
  EXPECT_EQ(result(), ResultCode::Ok);
}

TEST_F(ScaleNoise, AnImpossibleSettlingIsRefused) {
  EXPECT_THROW(scale_.setSettling(Seconds(-1), now_), std::invalid_argument);
  EXPECT_EQ(scale_.settling(), Seconds(1));
}

}  // namespace
}  // namespace tolvex::sim
