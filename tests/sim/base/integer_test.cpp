#include "base/integer.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(ParseInteger, ReadsWholeNumbers) {
  EXPECT_EQ(parseInteger("0"), 0);
  EXPECT_EQ(parseInteger("28"), 28);
  EXPECT_EQ(parseInteger("-5"), -5);
  EXPECT_EQ(parseInteger("007"), 7);
  EXPECT_EQ(parseInteger("2147483647"), 2147483647);
  EXPECT_EQ(parseInteger("-2147483648"), -2147483647 - 1);
}

TEST(ParseInteger, RefusesEverythingElse) {
  for (const char* text : {"", "-", "+1", " 1", "1 ", "1.0", "1e3", "0x10", "1,000", "x", "--1",
                           "2147483648", "-2147483649", "99999999999999999999999999"}) {
    EXPECT_EQ(parseInteger(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace tolvex::sim
