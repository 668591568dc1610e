#include "devices/scale_config.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <stdexcept>

namespace tolvex::sim {
namespace {

using Change = std::function<void(ScaleConfig&)>;

std::string refusalOf(const Change& change) {
  ScaleConfig config;
  change(config);
  try {
    validate(config);
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
  return "accepted";
}

TEST(ScaleConfig, DescribesAScaleOfThreeRangesByDefault) {
  const ScaleConfig config;
  EXPECT_NO_THROW(validate(config));
  EXPECT_EQ(config.max(), kilograms(15));
  EXPECT_EQ(config.decimals(), 3);
}

TEST(ScaleConfig, TheDivisionFollowsTheLoad) {
  const ScaleConfig config;
  EXPECT_EQ(config.divisionAt(kilograms(-1)), kilograms(0.001));
  EXPECT_EQ(config.divisionAt(kilograms(3)), kilograms(0.001));
  EXPECT_EQ(config.divisionAt(kilograms(3) + 1), kilograms(0.002));
  EXPECT_EQ(config.divisionAt(kilograms(6)), kilograms(0.002));
  EXPECT_EQ(config.divisionAt(kilograms(6) + 1), kilograms(0.005));
  EXPECT_EQ(config.divisionAt(kilograms(16)), kilograms(0.005));
}

TEST(ScaleConfig, ShowsTheDecimalsOfTheFinestDivision) {
  ScaleConfig config;
  config.ranges = {{kilograms(6), kilograms(0.05)}, {kilograms(15), kilograms(0.1)}};
  EXPECT_EQ(config.decimals(), 2);
}

TEST(ScaleConfig, RefusesRangesThatNoScaleHas) {
  const auto ranges = [](std::vector<WeighingRange> list) {
    return [list](ScaleConfig& config) { config.ranges = list; };
  };
  const WeighingRange small{kilograms(3), kilograms(0.001)};
  const WeighingRange large{kilograms(6), kilograms(0.002)};
  EXPECT_EQ(refusalOf(ranges({})), "scale: one to three ranges are needed");
  EXPECT_EQ(refusalOf(ranges({small, large, {kilograms(9), 10}, {kilograms(12), 10}})),
            "scale: one to three ranges are needed");
  EXPECT_EQ(refusalOf(ranges({large, small})),
            "scale: range up to 3 kg: capacities must be positive and ascending, at most 1000000 "
            "kg");
  EXPECT_EQ(refusalOf(ranges({{kilograms(3), 0}})),
            "scale: range up to 3 kg: the division must be a positive multiple of 0.00001 kg");
  EXPECT_EQ(refusalOf(ranges({{kilograms(3), 15}})),
            "scale: range up to 3 kg: the division must be a positive multiple of 0.00001 kg");
  EXPECT_EQ(refusalOf(ranges({{kilograms(3), kilograms(0.005)}, large})),
            "scale: range up to 6 kg: divisions must not become finer");
  EXPECT_EQ(refusalOf(ranges({{kilograms(3), kilograms(0.002)}, {kilograms(5), kilograms(2)}})),
            "scale: range up to 5 kg: the capacity must be whole divisions");
}

TEST(ScaleConfig, RefusesLimitsOutsideTheCapacity) {
  const auto tooMuch = kilograms(15) + 1;
  EXPECT_EQ(refusalOf([&](ScaleConfig& config) { config.maxTare = tooMuch; }),
            "scale: maxTare must be 0 to the capacity");
  EXPECT_EQ(refusalOf([&](ScaleConfig& config) { config.maxPreTare = -1; }),
            "scale: maxPreTare must be 0 to the capacity");
  EXPECT_EQ(refusalOf([&](ScaleConfig& config) { config.minRange = tooMuch; }),
            "scale: minRange must be 0 to the capacity");
}

TEST(ScaleConfig, RefusesTextsThatRepliesCanNotCarry) {
  const std::string unit = "scale: unit must be 1 to 4 printable ASCII characters";
  EXPECT_EQ(refusalOf([](ScaleConfig& config) { config.unit = ""; }), unit);
  EXPECT_EQ(refusalOf([](ScaleConfig& config) { config.unit = "stone"; }), unit);
  EXPECT_EQ(refusalOf([](ScaleConfig& config) { config.unit = "k\n"; }), unit);
  EXPECT_EQ(refusalOf([](ScaleConfig& config) { config.unit = "ounc"; }), "accepted");
  const std::string version = "scale: systemVersion must be 1 to 64 printable ASCII characters";
  EXPECT_EQ(refusalOf([](ScaleConfig& config) { config.systemVersion = ""; }), version);
  EXPECT_EQ(refusalOf([](ScaleConfig& config) { config.systemVersion.assign(65, 'v'); }), version);
}

TEST(ScaleConfig, RefusesTimesThatAreNone) {
  const Seconds notANumber{std::numeric_limits<double>::quiet_NaN()};
  EXPECT_EQ(refusalOf([](ScaleConfig& config) { config.timeConstant = Seconds(-1); }),
            "scale: timeConstant must be 0 to 3600 s");
  EXPECT_EQ(refusalOf([&](ScaleConfig& config) { config.timeConstant = notANumber; }),
            "scale: timeConstant must be 0 to 3600 s");
  EXPECT_EQ(refusalOf([](ScaleConfig& config) { config.holdTime = Seconds(3601); }),
            "scale: holdTime must be 0 to 3600 s");
}

TEST(ScaleConfig, SettlingTimesKeepTheirProportion) {
  ScaleConfig config;
  setSettling(config, Seconds(2));
  EXPECT_DOUBLE_EQ(config.timeConstant.count(), 2.0 / 12);
  EXPECT_DOUBLE_EQ(config.holdTime.count(), 0.6);
  setSettling(config, Seconds(0));
  EXPECT_EQ(config.timeConstant.count(), 0);
  EXPECT_EQ(config.holdTime.count(), 0);
}

TEST(ScaleConfig, ItsSettlingIsTheOneThatWasSet) {
  ScaleConfig config;
  EXPECT_EQ(settlingOf(config), Seconds(1));
  for (const double seconds : {0.0, 0.1, 0.7, 2.5, 59.9, 3600.0}) {
    setSettling(config, Seconds(seconds));
    EXPECT_DOUBLE_EQ(settlingOf(config).count(), seconds);
  }
}

}  // namespace
}  // namespace tolvex::sim
