#include "log/logger_test.h"
#include "support/os_support.h"

namespace tolvex {
namespace {

using test::kLineEnd;

class LineEnd : public test::LoggerTest {
 protected:
  LineEnd() { open(); }
  std::string bytes() const { return test::readBytes(file(0)); }
};

TEST_F(LineEnd, IsThatOfTheSystem) {
  log("a");
  log("b");
  EXPECT_EQ(bytes(), record("a") + kLineEnd + record("b") + kLineEnd);
}

TEST_F(LineEnd, InsideAMessageBecomesThatOfTheSystem) {
  log("a\nb\n\nc");
  EXPECT_EQ(bytes(), record("a") + kLineEnd + "b" + kLineEnd + kLineEnd + "c" + kLineEnd);
}

TEST_F(LineEnd, AtTheEndOfAMessageStays) {
  log("a\n");
  EXPECT_EQ(bytes(), record("a") + kLineEnd + kLineEnd);
}

TEST_F(LineEnd, LeavesACrBeforeItAlone) {
  log("a\r\nb\r");
  EXPECT_EQ(bytes(), record("a\r") + kLineEnd + "b\r" + kLineEnd);
}

TEST_F(LineEnd, BeginsAFileWithoutAnyMark) {
  log("");
  EXPECT_EQ(bytes(), record("") + kLineEnd);
}

}  // namespace
}  // namespace tolvex
