#include <gtest/gtest.h>

#include "base/printable.h"

namespace tolvex::ctl {
namespace {

TEST(PrintableText, KeepsOrdinaryTextOfEveryScript) {
  EXPECT_EQ(printable("Käse 1,50 € 秤 สวัสดี 😀 \\ \""), "Käse 1,50 € 秤 สวัสดี 😀 \\ \"");
}

TEST(PrintableText, WritesWhatATerminalWouldObeyAsBytes) {
  EXPECT_EQ(printable("a\x1b[2Jb\n\x7F"), "a\\x1B[2Jb\\x0A\\x7F");
  EXPECT_EQ(printable("\xC2\x9B"), "\\xC2\\x9B");
  EXPECT_EQ(printable("\xE2\x80\xAE"), "\\xE2\\x80\\xAE");
}

TEST(PrintableText, WritesBytesThatAreNotUtf8AsBytes) {
  EXPECT_EQ(printable("\xFF"), "\\xFF");
  EXPECT_EQ(printable("\xC0\x80"), "\\xC0\\x80");
  EXPECT_EQ(printable("\xED\xA0\x80"), "\\xED\\xA0\\x80");
  EXPECT_EQ(printable("\xE2\x82"), "\\xE2\\x82");
  EXPECT_EQ(printable("\xF4\x90\x80\x80"), "\\xF4\\x90\\x80\\x80");
  EXPECT_FALSE(isUtf8("a\xE2\x82"));
  EXPECT_TRUE(isUtf8("Käse\n\x1b"));
}

}  // namespace
}  // namespace tolvex::ctl
