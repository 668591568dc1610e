#include <exports.h>
#include <gtest/gtest.h>

#include "base/result_code.h"

namespace tolvex::ctl {
namespace {

TEST(ResultCodeText, ComesFromTheTableOfTheHeader) {
  const CodeText* const row = findCode(2006);
  ASSERT_NE(row, nullptr);
  EXPECT_STREQ(row->name, "OUT_OF_PAPER");
  EXPECT_STREQ(row->text, "Out of Paper");
  EXPECT_STREQ(findCode(TOLVEX_FAILED)->name, "TOLVEX_FAILED");
  EXPECT_STREQ(findCode(-1)->name, "TOLVEX_UNREADABLE_REPLY");
  EXPECT_EQ(findCode(2004), nullptr);
  EXPECT_EQ(resultCodes().size(), 27u);
  EXPECT_EQ(answers().size(), 7u);
}

TEST(ResultCodeText, SaysWhatTheProgramEndsWith) {
  for (const CodeText& row : resultCodes()) {
    ExitCode expected = ExitCode::DeviceError;
    if (row.code == 0) expected = ExitCode::Fine;
    if (row.code == 4 || row.code == 1001) expected = ExitCode::Unreachable;
    EXPECT_EQ(exitOf(row.code), expected) << row.code;
  }
  EXPECT_EQ(exitOf(-1), ExitCode::Unreachable);
  EXPECT_EQ(exitOf(242), ExitCode::Failed);
  EXPECT_EQ(exitOf(255), ExitCode::Failed);
  EXPECT_EQ(exitOf(3001), ExitCode::DeviceError);
}

TEST(ResultCodeText, IsOneLine) {
  EXPECT_EQ(codeLine(1004), "1004 OVER_LOAD (Over Load)");
  EXPECT_EQ(codeLine(3001), "3001");
}

}  // namespace
}  // namespace tolvex::ctl
