#include <cwchar>

#include "log/logger_test.h"

namespace tolvex {
namespace {

using Format = test::LoggerTest;

// Windows' printf puts something in the place of such a letter.
TEST_F(Format, ThatCannotBeFilledInLeavesTheHeaderAlone) {
  NLog::Log(open(), "DLL", 7, 1, "a %lc", wint_t{0x7FFFFFFF});
  log("b");
  EXPECT_EQ(lines(), (test::Lines{record(""), record("b")}));
}

}  // namespace
}  // namespace tolvex
