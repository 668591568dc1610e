#include "base/ipv4.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(Ipv4Address, IsFourNumbersUpTo255) {
  for (const char* text : {"127.0.0.1", "0.0.0.0", "255.255.255.255", "10.20.30.40"}) {
    EXPECT_TRUE(isIpv4Address(text)) << text;
  }
}

TEST(Ipv4Address, IsNothingElse) {
  for (const char* text : {"", ".", "...", "localhost", "1.2.3", "1.2.3.", ".1.2.3", "1.2.3.4.5",
                           "1.2.3.256", "1.2.3.1000", "1.2.3.04", "1.2.3.+4", "1.2.3.-4",
                           " 1.2.3.4", "1.2.3.4 ", "0x7f.0.0.1", "::1"}) {
    EXPECT_FALSE(isIpv4Address(text)) << text;
  }
}

}  // namespace
}  // namespace tolvex::sim
