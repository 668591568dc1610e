#include "base/result_code.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(ResultCode, IsWrittenAsItsNumber) {
  EXPECT_EQ(toText(ResultCode::Ok), "0");
  EXPECT_EQ(toText(ResultCode::VersionIncompatible), "9");
  EXPECT_EQ(toText(ResultCode::LcNotConnected), "1007");
  EXPECT_EQ(toText(ResultCode::PrtStatusAbnormal), "2010");
}

TEST(ResultCode, HasAMessage) {
  EXPECT_STREQ(message(ResultCode::Ok), "OK");
  EXPECT_STREQ(message(ResultCode::WeightNotStable), "Weight Not Stable");
  EXPECT_STREQ(message(ResultCode::UnsupportPrintCmd), "Unsupport Print Cmd");
}

TEST(ResultCode, NumbersThatAreNoCodeHaveTheMessageUnknown) {
  EXPECT_STREQ(message(static_cast<ResultCode>(2004)), "Unknown");
  EXPECT_STREQ(message(static_cast<ResultCode>(-1)), "Unknown");
}

}  // namespace
}  // namespace tolvex::sim
