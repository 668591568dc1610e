#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "weighing/record_text.h"

namespace tolvex {
namespace {

constexpr std::size_t kRoom = 400;

std::string printed(double value, int decimals) {
  std::string record(kRoom, '#');
  printWeight(record.data(), kRoom, 0, value, decimals);
  return record.c_str();
}

void expectAsPrintf(double value) {
  char expected[kRoom];
  std::snprintf(expected, sizeof(expected), "%07.3f", value);
  EXPECT_EQ(printed(value, 3), expected);
  std::snprintf(expected, sizeof(expected), "%07.4f", value);
  EXPECT_EQ(printed(value, 4), expected);
}

TEST(PrintWeight, EqualsPrintfForWeights) {
  for (const double value :
       {0.0,    0.0001,     0.00005,  0.000049, 0.0005, 0.00049, 0.001,    0.005,
        0.2,    1.0,        1.5,      1.00005,  9.9999, 9.99999, 10.0,     12.5,
        15.0,   99.9999,    99.99991, 99.99995, 100.0,  150.5,   999.9994, 999.9999,
        1000.0, 12345.6789, 0.0625,   0.03125,  2.5,    0.12345, 1.0 / 3}) {
    expectAsPrintf(value);
    expectAsPrintf(-value);
  }
}

TEST(PrintWeight, EqualsPrintfForHugeNumbers) {
  for (const double value :
       {1e9, 1e15, 1e16, 1e22, 1e23, 1.5e100, 1e300, std::numeric_limits<double>::max()}) {
    expectAsPrintf(value);
    expectAsPrintf(-value);
  }
}

TEST(PrintWeight, EqualsPrintfForTinyNumbers) {
  for (const double value : {1e-5, 1e-10, 1e-300, std::numeric_limits<double>::denorm_min()}) {
    expectAsPrintf(value);
    expectAsPrintf(-value);
  }
}

TEST(PrintWeight, EqualsPrintfForAnyBits) {
  std::mt19937_64 random(20240305);
  for (int round = 0; round < 20000; ++round) {
    const std::uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof(value));
    if (value == value) expectAsPrintf(value);
  }
}

// Where the plain way ends, and where it may not be sure how to round.
TEST(PrintWeight, EqualsPrintfAroundEveryTie) {
  for (int step = -40000; step <= 40000; ++step) {
    const double tie = step * 0.0005 + 0.00005;
    for (const double value : {tie, std::nextafter(tie, 1e9), std::nextafter(tie, -1e9)}) {
      expectAsPrintf(value);
    }
  }
}

TEST(PrintWeight, EqualsPrintfForNumbersOfAnySize) {
  std::mt19937_64 random(20261122);
  for (int round = 0; round < 20000; ++round) {
    const auto digits = static_cast<std::int64_t>(random() >> (random() % 60 + 4));
    const double value = static_cast<double>(digits) / std::pow(10, random() % 9);
    expectAsPrintf(value);
    expectAsPrintf(-value);
  }
}

TEST(PrintWeight, PadsWithZerosBehindTheSign) {
  EXPECT_EQ(printed(1.5, 3), "001.500");
  EXPECT_EQ(printed(1.5, 4), "01.5000");
  EXPECT_EQ(printed(-1.5, 3), "-01.500");
  EXPECT_EQ(printed(-1.5, 4), "-1.5000");
}

TEST(PrintWeight, ShowsTheSignOfMinusZero) {
  EXPECT_EQ(printed(-0.0, 3), "-00.000");
  EXPECT_EQ(printed(-0.0, 4), "-0.0000");
  EXPECT_EQ(printed(-0.00001, 4), "-0.0000");
}

TEST(PrintWeight, PadsInfinityAndNanWithBlanks) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(printed(infinity, 3), "    inf");
  EXPECT_EQ(printed(-infinity, 4), "   -inf");
  EXPECT_EQ(printed(std::numeric_limits<double>::quiet_NaN(), 4), "    nan");
  EXPECT_EQ(printed(-std::numeric_limits<double>::quiet_NaN(), 3), "   -nan");
}

TEST(PrintWeight, TerminatesItsText) {
  std::string record(12, '#');
  printWeight(record.data(), 12, 2, 1.5, 4);
  EXPECT_EQ(record, std::string("##01.5000\0##", 12));
}

TEST(PrintWeight, RunsOnBehindItsField) {
  std::string record(12, '#');
  printWeight(record.data(), 12, 1, 123.25, 4);
  EXPECT_EQ(record, std::string("#123.2500\0##", 12));
}

TEST(PrintWeight, EndsWithTheRecord) {
  std::string record(12, '#');
  printWeight(record.data(), 10, 2, 123.25, 4);
  EXPECT_EQ(record, "##123.2500##");
  printWeight(record.data(), 10, 4, -123.25, 4);
  EXPECT_EQ(record, "##12-123.2##");
}

}  // namespace
}  // namespace tolvex
