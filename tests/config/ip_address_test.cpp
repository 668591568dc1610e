#include "config/ip_address.h"

#include <gtest/gtest.h>

namespace tolvex::config {
namespace {

TEST(IpAddress, AcceptsAnOrdinaryAddress) { EXPECT_TRUE(isIpv4Address("192.168.1.20")); }

TEST(IpAddress, AcceptsTheLowest) { EXPECT_TRUE(isIpv4Address("1.0.0.0")); }

TEST(IpAddress, AcceptsTheHighest) { EXPECT_TRUE(isIpv4Address("255.255.255.255")); }

TEST(IpAddress, RejectsTheEmptyText) { EXPECT_FALSE(isIpv4Address("")); }

TEST(IpAddress, RejectsAFirstPartOfZero) {
  EXPECT_FALSE(isIpv4Address("0.1.2.3"));
  EXPECT_FALSE(isIpv4Address("000.1.2.3"));
}

TEST(IpAddress, RejectsAPartAbove255) {
  EXPECT_FALSE(isIpv4Address("256.2.3.4"));
  EXPECT_FALSE(isIpv4Address("1.256.3.4"));
  EXPECT_FALSE(isIpv4Address("1.2.256.4"));
  EXPECT_FALSE(isIpv4Address("1.2.3.256"));
  EXPECT_FALSE(isIpv4Address("1.2.3.999"));
}

TEST(IpAddress, RejectsThreeParts) {
  EXPECT_FALSE(isIpv4Address("1.2.3"));
  EXPECT_FALSE(isIpv4Address("1.2.3."));
}

TEST(IpAddress, RejectsFiveParts) {
  EXPECT_FALSE(isIpv4Address("1.2.3.4.5"));
  EXPECT_FALSE(isIpv4Address("1.2.3.4."));
}

TEST(IpAddress, RejectsAnEmptyPart) {
  EXPECT_FALSE(isIpv4Address(".2.3.4"));
  EXPECT_FALSE(isIpv4Address("1..3.4"));
  EXPECT_FALSE(isIpv4Address("..."));
}

TEST(IpAddress, RejectsFourDigits) {
  EXPECT_FALSE(isIpv4Address("1234.1.1.1"));
  EXPECT_FALSE(isIpv4Address("1.1.1.0001"));
}

TEST(IpAddress, AcceptsLeadingZeros) {
  EXPECT_TRUE(isIpv4Address("010.001.000.09"));
  EXPECT_TRUE(isIpv4Address("1.1.1.099"));
}

TEST(IpAddress, CountsPartsWithLeadingZerosAsDecimal) {
  EXPECT_TRUE(isIpv4Address("1.2.3.089"));  // no octal number
}

TEST(IpAddress, RejectsBlanksAroundIt) {
  EXPECT_FALSE(isIpv4Address("1.2.3.4 "));
  EXPECT_FALSE(isIpv4Address(" 1.2.3.4"));
  EXPECT_FALSE(isIpv4Address("1.2. 3.4"));
  EXPECT_FALSE(isIpv4Address("1.2.3.4\n"));
}

TEST(IpAddress, RejectsAPort) { EXPECT_FALSE(isIpv4Address("1.2.3.4:8080")); }

TEST(IpAddress, RejectsSigns) {
  EXPECT_FALSE(isIpv4Address("+1.2.3.4"));
  EXPECT_FALSE(isIpv4Address("1.2.3.-4"));
}

TEST(IpAddress, RejectsOtherSeparators) { EXPECT_FALSE(isIpv4Address("1,2,3,4")); }

TEST(IpAddress, RejectsLettersAndNames) {
  EXPECT_FALSE(isIpv4Address("1.2.3.a"));
  EXPECT_FALSE(isIpv4Address("0x1.2.3.4"));
  EXPECT_FALSE(isIpv4Address("localhost"));
}

TEST(IpAddress, RejectsATrailingNul) {
  EXPECT_FALSE(isIpv4Address(std::string_view("1.2.3.4\0", 8)));
}

TEST(IpAddress, RejectsDigitsOfOtherScripts) {
  EXPECT_FALSE(isIpv4Address("\xEF\xBC\x91.2.3.4"));  // a full-width 1
}

}  // namespace
}  // namespace tolvex::config
