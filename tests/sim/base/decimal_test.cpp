#include "base/decimal.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(Decimal, ReadsWholeNumbersAndFractions) {
  EXPECT_EQ(parseDecimal("0"), 0.0);
  EXPECT_EQ(parseDecimal("12"), 12.0);
  EXPECT_EQ(parseDecimal("0.120"), 0.12);
  EXPECT_EQ(parseDecimal("007.5"), 7.5);
  EXPECT_EQ(parseDecimal("-0.5"), -0.5);
}

TEST(Decimal, TakesUpToFifteenCharacters) {
  EXPECT_EQ(parseDecimal("123456789012345"), 123456789012345.0);
  EXPECT_EQ(parseDecimal("1234567890123456"), std::nullopt);
}

TEST(Decimal, RefusesEverythingElse) {
  for (const char* text : {"", "-", ".", "1.", ".5", "-.5", "+1", " 1", "1 ", "1,5", "1.2.3", "--1",
                           "1e3", "0x10", "nan", "inf", "-inf", "kg", "1kg"}) {
    EXPECT_EQ(parseDecimal(text), std::nullopt) << '"' << text << '"';
  }
  EXPECT_EQ(parseDecimal(std::string_view("1\0", 2)), std::nullopt);
}

}  // namespace
}  // namespace tolvex::sim
