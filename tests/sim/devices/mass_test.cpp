#include "devices/mass.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(Mass, ConvertsKilogramsToTheNearestMilligram) {
  EXPECT_EQ(kilograms(0.482), 482'000);
  EXPECT_EQ(kilograms(1.0005), 1'000'500);
  EXPECT_EQ(kilograms(-0.0000006), -1);
}

TEST(Mass, ReadsKilogramsFromText) {
  EXPECT_EQ(parseKilograms("1.0005"), 1'000'500);
  EXPECT_EQ(parseKilograms("-2"), -2'000'000);
  EXPECT_EQ(parseKilograms("1000000000"), 1'000'000'000 * kMilligramsPerKilogram);
  EXPECT_EQ(parseKilograms("1000000001"), std::nullopt);
  EXPECT_EQ(parseKilograms("-1000000001"), std::nullopt);
  EXPECT_EQ(parseKilograms("heavy"), std::nullopt);
}

TEST(Mass, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(roundTo(1'499, 1'000), 1'000);
  EXPECT_EQ(roundTo(1'500, 1'000), 2'000);
  EXPECT_EQ(roundTo(-1'499, 1'000), -1'000);
  EXPECT_EQ(roundTo(-1'500, 1'000), -2'000);
  EXPECT_EQ(roundTo(7'500, 5'000), 10'000);
  EXPECT_EQ(roundTo(2, 5), 0);
  EXPECT_EQ(roundTo(3, 5), 5);
  EXPECT_EQ(roundTo(-7, 1), -7);
}

TEST(Mass, CountsTheDecimalsOfADivision) {
  EXPECT_EQ(decimalsOf(kilograms(0.001)), 3);
  EXPECT_EQ(decimalsOf(kilograms(0.005)), 3);
  EXPECT_EQ(decimalsOf(kilograms(0.02)), 2);
  EXPECT_EQ(decimalsOf(kilograms(1)), 0);
  EXPECT_EQ(decimalsOf(kilograms(10)), 0);
  EXPECT_EQ(decimalsOf(1), 6);
}

TEST(Mass, FormatsWithFixedDecimals) {
  EXPECT_EQ(formatKilograms(kilograms(0.182), 3), "0.182");
  EXPECT_EQ(formatKilograms(kilograms(12), 3), "12.000");
  EXPECT_EQ(formatKilograms(kilograms(-0.02), 3), "-0.020");
  EXPECT_EQ(formatKilograms(kilograms(7), 0), "7");
  EXPECT_EQ(formatKilograms(1, 6), "0.000001");
}

TEST(Mass, ZeroHasNoSign) {
  EXPECT_EQ(formatKilograms(0, 3), "0.000");
  EXPECT_EQ(formatKilograms(-400, 3), "0.000");
}

TEST(Mass, FormatsWithAsManyDecimalsAsNeeded) {
  EXPECT_EQ(formatKilograms(0), "0");
  EXPECT_EQ(formatKilograms(kilograms(15)), "15");
  EXPECT_EQ(formatKilograms(kilograms(0.02)), "0.02");
  EXPECT_EQ(formatKilograms(kilograms(-1.5)), "-1.5");
}

}  // namespace
}  // namespace tolvex::sim
