#include "base/base64.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(Base64, PadsTheLastGroup) {
  EXPECT_EQ(base64Of(""), "");
  EXPECT_EQ(base64Of("f"), "Zg==");
  EXPECT_EQ(base64Of("fo"), "Zm8=");
  EXPECT_EQ(base64Of("foo"), "Zm9v");
  EXPECT_EQ(base64Of("foob"), "Zm9vYg==");
  EXPECT_EQ(base64Of("fooba"), "Zm9vYmE=");
  EXPECT_EQ(base64Of("foobar"), "Zm9vYmFy");
}

TEST(Base64, TakesBytesOfEveryValue) {
  EXPECT_EQ(base64Of(std::string_view("\0\0\0", 3)), "AAAA");
  EXPECT_EQ(base64Of("\xFF\xFF\xFE"), "///+");
  EXPECT_EQ(base64Of(std::string_view("\xFB\0", 2)), "+wA=");
}

}  // namespace
}  // namespace tolvex::sim
