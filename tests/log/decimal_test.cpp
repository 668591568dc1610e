#include "log/decimal.h"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

constexpr std::int32_t kMost = 2147483647;
constexpr std::int32_t kLeast = -kMost - 1;

TEST(TextToInt, ReadsDigits) {
  EXPECT_EQ(textToInt("0"), 0);
  EXPECT_EQ(textToInt("1234567890"), 1234567890);
}

TEST(TextToInt, ReadsASign) {
  EXPECT_EQ(textToInt("-12"), -12);
  EXPECT_EQ(textToInt("+12"), 12);
}

TEST(TextToInt, ReadsOneSignOnly) {
  EXPECT_EQ(textToInt("--12"), 0);
  EXPECT_EQ(textToInt("+-12"), 0);
}

TEST(TextToInt, TakesNoBlankAfterTheSign) { EXPECT_EQ(textToInt("- 12"), 0); }

TEST(TextToInt, PassesOverLeadingBlanks) { EXPECT_EQ(textToInt(" \t\n\v\f\r12"), 12); }

TEST(TextToInt, PassesOverLeadingZeros) { EXPECT_EQ(textToInt("0000000000000000000000012"), 12); }

TEST(TextToInt, StopsAtTheFirstOtherCharacter) {
  EXPECT_EQ(textToInt("12x34"), 12);
  EXPECT_EQ(textToInt("12.9"), 12);
  EXPECT_EQ(textToInt("12 34"), 12);
  EXPECT_EQ(textToInt("0x10"), 0);
}

TEST(TextToInt, IsZeroWithoutDigits) {
  EXPECT_EQ(textToInt(""), 0);
  EXPECT_EQ(textToInt("   "), 0);
  EXPECT_EQ(textToInt("-"), 0);
  EXPECT_EQ(textToInt("abc"), 0);
}

TEST(TextToInt, ReadsTheLimits) {
  EXPECT_EQ(textToInt("2147483647"), kMost);
  EXPECT_EQ(textToInt("-2147483648"), kLeast);
}

TEST(TextToInt, StaysAtTheLimitsBeyondThem) {
  EXPECT_EQ(textToInt("2147483648"), kMost);
  EXPECT_EQ(textToInt("-2147483649"), kLeast);
  EXPECT_EQ(textToInt("99999999999999999999999999"), kMost);
  EXPECT_EQ(textToInt("-99999999999999999999999999"), kLeast);
}

TEST(TextToInt, ReadsNoFurtherThanTheView) {
  EXPECT_EQ(textToInt(std::string_view("123456", 3)), 123);
}

}  // namespace
}  // namespace tolvex
