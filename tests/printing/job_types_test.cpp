// The name and the printer of every job type.
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>

#include "printing/begin_print.h"

namespace tolvex {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

TEST(JobName, IsThatOfTheTable) {
  const std::map<int, std::string> names = {
      {0, "0_Ticket"},        {2, "2_DOT_LBL"},      {4, "4_FEED"},          {7, "7_IMG_TKT"},
      {8, "8_CUT"},           {80, "80_CALIB_LBL"},  {204, "204_IMG_LBL"},   {205, "205_DOT_LBL"},
      {206, "206_FEED_AUTO"}, {208, "208_FEED_LBL"}, {105, "105_FP_CUT"},    {207, "207_FLP_CUT"},
      {305, "305_FLLP_CUT"},  {104, "104_FP_FEED"},  {304, "304_FLLP_FEED"}, {81, "81_CALIB_TKT"}};
  for (const auto& [jobType, name] : names) EXPECT_EQ(jobNameOf(jobType), name);
}

// Their names have 18 characters, and there is room for 15.
TEST(JobName, IsTheNumberWhereTheNameIsTooLong) {
  EXPECT_EQ(jobNameOf(90), "90");
  EXPECT_EQ(jobNameOf(91), "91");
}

TEST(JobName, IsTheNumberWhereThereIsNoName) {
  for (const int jobType : {1, 6, 42, 106, 203, 209, 306, 311, 100000}) {
    EXPECT_EQ(jobNameOf(jobType), std::to_string(jobType));
  }
}

TEST(JobName, IsTheSignedNumberWhereItIsNegative) {
  EXPECT_EQ(jobNameOf(-1), "-1");
  EXPECT_EQ(jobNameOf(-90), "-90");
  EXPECT_EQ(jobNameOf(kLowest), "-2147483648");
  EXPECT_EQ(jobNameOf(kHighest), "2147483647");
}

TEST(PrinterType, OfLabelsIsZero) {
  for (const int jobType : {2, 80, 90, 204, 205, 206, 208}) {
    EXPECT_EQ(printerTypeOf(jobType), 0) << jobType;
  }
}

TEST(PrinterType, OfTicketsIsOne) {
  for (const int jobType : {0, 4, 7, 8, 81, 91, 104, 105, 207, 209, 6, 106}) {
    EXPECT_EQ(printerTypeOf(jobType), 1) << jobType;
  }
}

TEST(PrinterType, From301To311IsTwo) {
  for (int jobType = 301; jobType <= 311; ++jobType) {
    EXPECT_EQ(printerTypeOf(jobType), 2) << jobType;
  }
}

TEST(PrinterType, BesideTheRangesIsOne) {
  for (const int jobType : {1, 3, 79, 82, 89, 92, 203, 207, 209, 300, 312}) {
    EXPECT_EQ(printerTypeOf(jobType), 1) << jobType;
  }
}

TEST(PrinterType, OfAnythingElseIsOne) {
  for (const int jobType : {42, 100, 1000, -1, -2, -80, -305, kLowest, kHighest}) {
    EXPECT_EQ(printerTypeOf(jobType), 1) << jobType;
  }
}

}  // namespace
}  // namespace tolvex
