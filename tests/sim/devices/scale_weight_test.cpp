// What the scale shows for what lies on it.
#include <stdexcept>

#include "scale_fixture.h"

namespace tolvex::sim {
namespace {

class ScaleWeight : public ScaleFixture {};

TEST_F(ScaleWeight, AnEmptyScaleIsStableAtZero) {
  const Weight weight = weigh();
  EXPECT_EQ(weight.result, ResultCode::Ok);
  EXPECT_TRUE(weight.stable);
  EXPECT_TRUE(weight.zero);
  EXPECT_EQ(weight.net, 0);
  EXPECT_EQ(weight.tareKind, TareKind::None);
}

TEST_F(ScaleWeight, ALoadIsUnstableUntilItHasSettled) {
  put(0.482);
  pass(0.2);
  EXPECT_EQ(result(), ResultCode::WeightNotStable);
  EXPECT_FALSE(weigh().stable);
  EXPECT_GT(weigh().net, 0);
  EXPECT_LT(weigh().net, kilograms(0.482));
  pass(1);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_TRUE(weigh().stable);
  EXPECT_EQ(net(), "0.482");
}

TEST_F(ScaleWeight, AKilogramIsStableAfterAboutASecond) {
  put(1);
  pass(0.95);
  EXPECT_EQ(result(), ResultCode::WeightNotStable);
  pass(0.1);
  EXPECT_EQ(result(), ResultCode::Ok);
}

TEST_F(ScaleWeight, AScaleCanStartWithALoad) {
  const Scale scale(ScaleConfig(), kilograms(0.25));
  EXPECT_EQ(scale.weigh(now_).result, ResultCode::Ok);
  EXPECT_EQ(scale.weigh(now_).net, kilograms(0.25));
  EXPECT_EQ(scale.load(), kilograms(0.25));
}

TEST_F(ScaleWeight, RoundsToTheDivisionOfTheRange) {
  struct Row {
    double load;
    const char* shown;
  };
  for (const Row& row : {
           Row{0.0004, "0.000"},
           Row{0.0005, "0.001"},
           Row{1.0005, "1.001"},
           Row{2.9994, "2.999"},
           Row{2.9996, "3.000"},
           Row{3.0000, "3.000"},
           Row{3.0009, "3.000"},  // from here in steps of 2 g
           Row{3.0010, "3.002"},
           Row{3.0029, "3.002"},
           Row{5.9989, "5.998"},
           Row{6.0000, "6.000"},
           Row{6.0024, "6.000"},  // from here in steps of 5 g
           Row{6.0025, "6.005"},
           Row{14.9974, "14.995"},
           Row{15.0000, "15.000"},
           Row{-0.0004, "0.000"},
           Row{-0.0005, "-0.001"},
       }) {
    settle(row.load);
    EXPECT_EQ(result(), ResultCode::Ok) << row.load;
    EXPECT_EQ(net(), row.shown) << row.load;
  }
}

TEST_F(ScaleWeight, HighResolutionShowsATenthOfTheDivision) {
  struct Row {
    double load;
    const char* shown;
  };
  for (const Row& row : {
           Row{0.18204, "0.1820"},
           Row{0.18205, "0.1821"},
           Row{3.00031, "3.0004"},  // steps of 0.2 g
           Row{3.00029, "3.0002"},
           Row{6.00024, "6.0000"},  // steps of 0.5 g
           Row{6.00025, "6.0005"},
       }) {
    settle(row.load);
    EXPECT_EQ(highResNet(), row.shown) << row.load;
  }
}

TEST_F(ScaleWeight, OverLoadBeginsNineDivisionsAboveTheCapacity) {
  settle(15.045);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_EQ(net(), "15.045");
  settle(15.0451);
  EXPECT_EQ(result(), ResultCode::OverLoad);
}

TEST_F(ScaleWeight, UnderLoadBeginsTwentyDivisionsBelowZero) {
  settle(-0.020);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_EQ(net(), "-0.020");
  settle(-0.0201);
  EXPECT_EQ(result(), ResultCode::UnderLoad);
}

TEST_F(ScaleWeight, OverLoadIsShownWhileTheReadingStillMoves) {
  put(100);
  pass(0.001);
  EXPECT_EQ(result(), ResultCode::WeightNotStable);
  pass(0.1);
  EXPECT_EQ(result(), ResultCode::OverLoad);
  EXPECT_FALSE(weigh().stable);
}

TEST_F(ScaleWeight, TheZeroLampReachesAQuarterDivisionToBothSides) {
  for (const double load : {0.00025, -0.00025, 0.0}) {
    settle(load);
    EXPECT_TRUE(weigh().zero) << load;
  }
  for (const double load : {0.00026, -0.00026, 1.0}) {
    settle(load);
    EXPECT_FALSE(weigh().zero) << load;
  }
}

TEST_F(ScaleWeight, AFaultyScaleHasNoValidWeight) {
  settle(1);
  scale_.setInvalid(true);
  EXPECT_EQ(result(), ResultCode::InvalidWeight);
  EXPECT_EQ(scale_.condition(), ResultCode::InvalidWeight);
  scale_.setInvalid(false);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_EQ(net(), "1.000");
}

TEST_F(ScaleWeight, TheFaultIsShownBeforeOverLoad) {
  settle(20);
  scale_.setInvalid(true);
  EXPECT_EQ(result(), ResultCode::InvalidWeight);
}

TEST_F(ScaleWeight, AnUnpluggedScaleIsNotConnected) {
  settle(20);
  scale_.setInvalid(true);
  scale_.unplug();
  EXPECT_EQ(result(), ResultCode::LcNotConnected);
  EXPECT_FALSE(scale_.isPluggedIn());
}

TEST_F(ScaleWeight, APluggedInScaleSettlesAnew) {
  settle(1);
  scale_.unplug();
  scale_.plug(now_);
  EXPECT_EQ(result(), ResultCode::WeightNotStable);
  pass(10);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_EQ(net(), "1.000");
}

TEST_F(ScaleWeight, PluggingInTwiceDisturbsNothing) {
  settle(1);
  scale_.plug(now_);
  EXPECT_EQ(result(), ResultCode::Ok);
}

TEST_F(ScaleWeight, KeepsTheOverloadAlarm) {
  EXPECT_FALSE(scale_.overloadAlarm());
  scale_.setOverloadAlarm(true);
  EXPECT_TRUE(scale_.overloadAlarm());
  scale_.setOverloadAlarm(false);
  EXPECT_FALSE(scale_.overloadAlarm());
}

TEST_F(ScaleWeight, AnImpossibleConfigurationIsRefused) {
  ScaleConfig config;
  config.ranges.clear();
  EXPECT_THROW(Scale{config}, std::invalid_argument);
}

TEST_F(ScaleWeight, AScaleMayHaveOneCoarseRange) {
  ScaleConfig config;
  config.ranges = {{kilograms(150), kilograms(0.05)}};
  Scale scale(config, kilograms(99.975));
  EXPECT_EQ(scale.weigh(now_).net, kilograms(100));
  EXPECT_EQ(scale.weigh(now_).highResNet, kilograms(99.975));
}

}  // namespace
}  // namespace tolvex::sim
