// Tare by key, preset tare, and clearing either.
#include "scale_fixture.h"

namespace tolvex::sim {
namespace {

class ScaleTare : public ScaleFixture {
 protected:
  ResultCode preset(double kg) { return scale_.presetTare(kilograms(kg)); }
};

TEST_F(ScaleTare, TheKeyMakesTheGrossWeightTheTare) {
  settle(0.12);
  EXPECT_EQ(tare(), ResultCode::Ok);
  EXPECT_EQ(shownTare(), "0.120");
  EXPECT_EQ(net(), "0.000");
  EXPECT_EQ(weigh().tareKind, TareKind::ByKey);
  EXPECT_FALSE(weigh().zero);
  settle(0.602);
  EXPECT_EQ(net(), "0.482");
  EXPECT_EQ(gross(), "0.602");
}

TEST_F(ScaleTare, ATakenAwayContainerShowsAsNegativeNet) {
  settle(0.12);
  EXPECT_EQ(tare(), ResultCode::Ok);
  settle(0);
  EXPECT_EQ(result(), ResultCode::Ok);
  EXPECT_EQ(net(), "-0.120");
  EXPECT_EQ(highResNet(), "-0.1200");
  EXPECT_TRUE(weigh().zero);
}

TEST_F(ScaleTare, TheTareIsRoundedToTheDivision) {
  settle(0.1204);
  EXPECT_EQ(tare(), ResultCode::Ok);
  EXPECT_EQ(shownTare(), "0.120");
  EXPECT_EQ(net(), "0.000");
  EXPECT_EQ(highResNet(), "0.0004");
}

TEST_F(ScaleTare, TheNetWeightIsRoundedToTheDivisionOfTheGrossWeight) {
  settle(0.123);
  EXPECT_EQ(tare(), ResultCode::Ok);
  settle(10);
  EXPECT_EQ(net(), "9.875");
  EXPECT_EQ(highResNet(), "9.8770");
  settle(10.0024);  // shown as 10.000; the part that is not shown must not turn up in the net
  EXPECT_EQ(net(), "9.875");
}

TEST_F(ScaleTare, TheKeyNeedsAStableWeight) {
  put(0.12);
  pass(0.1);
  EXPECT_EQ(tare(), ResultCode::WeightNotStable);
  EXPECT_EQ(weigh().tareKind, TareKind::None);
}

TEST_F(ScaleTare, TheKeyAtGrossZeroClearsTheTare) {
  EXPECT_EQ(preset(0.5), ResultCode::Ok);
  EXPECT_EQ(tare(), ResultCode::Ok);
  EXPECT_EQ(shownTare(), "0.000");
  EXPECT_EQ(weigh().tareKind, TareKind::None);
}

TEST_F(ScaleTare, ALoadThatRoundsToZeroClearsTheTareToo) {
  EXPECT_EQ(preset(0.5), ResultCode::Ok);
  settle(0.0004);
  EXPECT_EQ(tare(), ResultCode::Ok);
  EXPECT_EQ(weigh().tareKind, TareKind::None);
}

TEST_F(ScaleTare, TheKeyRefusesAWeightBelowZero) {
  settle(-0.001);
  EXPECT_EQ(tare(), ResultCode::UnderLoad);
  settle(-0.5);
  EXPECT_EQ(tare(), ResultCode::UnderLoad);
}

TEST_F(ScaleTare, TheKeyRefusesOverLoad) {
  settle(15.05);
  EXPECT_EQ(tare(), ResultCode::OverLoad);
}

TEST_F(ScaleTare, TheKeyTakesUpToTheLargestTare) {
  settle(6);
  EXPECT_EQ(tare(), ResultCode::Ok);
  EXPECT_EQ(shownTare(), "6.000");
  settle(6.0025);
  EXPECT_EQ(tare(), ResultCode::CommandReturnFail);
  EXPECT_EQ(shownTare(), "6.000");
}

TEST_F(ScaleTare, TheKeyReplacesATare) {
  EXPECT_EQ(preset(0.5), ResultCode::Ok);
  settle(0.2);
  EXPECT_EQ(tare(), ResultCode::Ok);
  EXPECT_EQ(shownTare(), "0.200");
  EXPECT_EQ(weigh().tareKind, TareKind::ByKey);
}

TEST_F(ScaleTare, APresetTareNeedsNoStableWeight) {
  put(1);
  EXPECT_EQ(preset(0.12), ResultCode::Ok);
  EXPECT_EQ(weigh().tareKind, TareKind::Preset);
  pass(10);
  EXPECT_EQ(net(), "0.880");
}

TEST_F(ScaleTare, APresetTareIsRoundedToTheDivision) {
  EXPECT_EQ(preset(0.1205), ResultCode::Ok);
  EXPECT_EQ(shownTare(), "0.121");
}

TEST_F(ScaleTare, APresetTareIsRoundedToTheDivisionOfItsOwnRange) {
  ScaleConfig config;
  config.maxPreTare = kilograms(15);
  Scale scale(config);
  EXPECT_EQ(scale.presetTare(kilograms(3.001)), ResultCode::Ok);
  EXPECT_EQ(scale.tare(), kilograms(3.002));
  EXPECT_EQ(scale.presetTare(kilograms(6.002)), ResultCode::Ok);
  EXPECT_EQ(scale.tare(), kilograms(6));
}

TEST_F(ScaleTare, APresetTareThatRoundsToZeroClearsTheTare) {
  EXPECT_EQ(preset(0.5), ResultCode::Ok);
  EXPECT_EQ(preset(0.0004), ResultCode::Ok);
  EXPECT_EQ(scale_.tare(), 0);
  EXPECT_EQ(weigh().tareKind, TareKind::None);
}

TEST_F(ScaleTare, APresetTareHasLimits) {
  EXPECT_EQ(preset(3), ResultCode::Ok);
  EXPECT_EQ(scale_.presetTare(kilograms(3) + 1), ResultCode::InvalidParam);
  EXPECT_EQ(preset(-0.001), ResultCode::InvalidParam);
  EXPECT_EQ(shownTare(), "3.000");
}

TEST_F(ScaleTare, ClearingEndsEitherTare) {
  EXPECT_EQ(preset(0.5), ResultCode::Ok);
  EXPECT_EQ(scale_.clearTare(), ResultCode::Ok);
  EXPECT_EQ(weigh().tareKind, TareKind::None);
  settle(1);
  EXPECT_EQ(tare(), ResultCode::Ok);
  EXPECT_EQ(scale_.clearTare(), ResultCode::Ok);
  EXPECT_EQ(net(), "1.000");
  EXPECT_EQ(shownTare(), "0.000");
}

TEST_F(ScaleTare, ClearingNeedsNoStableWeight) {
  EXPECT_EQ(preset(0.5), ResultCode::Ok);
  put(1);
  EXPECT_EQ(scale_.clearTare(), ResultCode::Ok);
}

TEST_F(ScaleTare, IsLostWithThePower) {
  EXPECT_EQ(preset(0.5), ResultCode::Ok);
  scale_.unplug();
  scale_.plug(now_);
  EXPECT_EQ(weigh().tareKind, TareKind::None);
}

TEST_F(ScaleTare, NoTareKeyWorksWhileUnpluggedOrFaulty) {
  EXPECT_EQ(preset(0.5), ResultCode::Ok);
  scale_.setInvalid(true);
  EXPECT_EQ(tare(), ResultCode::InvalidWeight);
  EXPECT_EQ(preset(0.1), ResultCode::InvalidWeight);
  EXPECT_EQ(scale_.clearTare(), ResultCode::InvalidWeight);
  EXPECT_EQ(shownTare(), "0.500");
  scale_.unplug();
  EXPECT_EQ(tare(), ResultCode::LcNotConnected);
  EXPECT_EQ(preset(0.1), ResultCode::LcNotConnected);
  EXPECT_EQ(scale_.clearTare(), ResultCode::LcNotConnected);
}

}  // namespace
}  // namespace tolvex::sim
