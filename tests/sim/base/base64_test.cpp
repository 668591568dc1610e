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

TEST(Base64, GivesTheBytesBack) {
  const std::string bytes("\0\xFF\x80 text\n", 9);
  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    EXPECT_EQ(bytesOfBase64(base64Of(bytes.substr(0, length))), bytes.substr(0, length));
  }
}

TEST(Base64, OtherTextHasNoBytes) {
  for (const char* text :
       {"Z", "Zg", "Zg=", "Z===", "====", "Zg==Zg==", "Zg=a", "Zm9v\n", "Zm9-", "Zh=="}) {
    EXPECT_FALSE(bytesOfBase64(text)) << text;
  }
}

}  // namespace
}  // namespace tolvex::sim
