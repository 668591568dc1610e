#include "service/envelope.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace tolvex {
namespace {

std::string withText(const char* value) { return Envelope("c").add("k", value).text(); }
std::string withNumber(int value) { return Envelope("c").add("k", value).text(); }
std::string holding(const std::string& value) { return R"({"cmd":"c","k":")" + value + R"("})"; }

TEST(Envelope, OfACommandAloneHoldsOnlyIt) {
  Envelope request("setzero");
  EXPECT_STREQ(request.text(), R"({"cmd":"setzero"})");
}

TEST(Envelope, KeepsTheOrderOfTheCalls) {
  Envelope request("setLeftMargin");
  request.add("printerName", "Till 1").add("leftMargin", 8).add("a", "last");
  EXPECT_STREQ(request.text(),
               R"({"cmd":"setLeftMargin","printerName":"Till 1","leftMargin":"8","a":"last"})");
}

TEST(Envelope, TellsItsLengthWithoutTheNul) {
  Envelope request("setzero");
  const char* const text = request.text();
  EXPECT_EQ(request.length(), 17U);
  EXPECT_EQ(text[request.length()], '\0');
}

TEST(Envelope, GivesTheSameTextTwice) {
  Envelope request("setzero");
  request.text();
  EXPECT_STREQ(request.text(), R"({"cmd":"setzero"})");
  EXPECT_EQ(request.length(), 17U);
}

TEST(Envelope, WritesNumbersAsDecimalText) {
  EXPECT_EQ(withNumber(0), holding("0"));
  EXPECT_EQ(withNumber(-5), holding("-5"));
  EXPECT_EQ(withNumber(40), holding("40"));
}

TEST(Envelope, WritesTheExtremesOfThirtyTwoBits) {
  EXPECT_EQ(withNumber(std::numeric_limits<int>::min()), holding("-2147483648"));
  EXPECT_EQ(withNumber(std::numeric_limits<int>::max()), holding("2147483647"));
}

TEST(Envelope, GrowsWithWhateverIsAdded) {
  for (std::size_t length = 0; length < 2200; ++length) {
    const std::string value(length, 'x');
    Envelope request("c");
    request.add("a", value.c_str()).add("b", "y").add("c", value.c_str()).add("d", -1).add("", "");
    const std::string expected =
        R"({"cmd":"c","a":")" + value + R"(","b":"y","c":")" + value + R"(","d":"-1","":""})";
    ASSERT_EQ(request.text(), expected);
    ASSERT_EQ(request.length(), expected.size());
  }
}

TEST(Envelope, GrowsWithEscapes) {
  for (std::size_t length = 0; length < 400; ++length) {
    const std::string value(length, '\x01');
    std::string escaped;
    for (std::size_t count = 0; count < length; ++count) escaped += "\\u0001";
    Envelope request("c");
    request.add("a", value.c_str()).add("b", "\"");
    ASSERT_EQ(request.text(), R"({"cmd":"c","a":")" + escaped + R"(","b":"\""})");
  }
}

TEST(Envelope, TakesANullTextAsEmpty) { EXPECT_EQ(withText(nullptr), holding("")); }

TEST(Envelope, KeepsAnEmptyText) { EXPECT_EQ(withText(""), holding("")); }

TEST(Envelope, EscapesQuotesAndBackslashes) {
  EXPECT_EQ(withText(R"(say "hi" in C:\shop)"), holding(R"(say \"hi\" in C:\\shop)"));
}

TEST(Envelope, EscapesQuotesInTheCommand) {
  Envelope request(R"(a"b)");
  EXPECT_STREQ(request.text(), R"({"cmd":"a\"b"})");
}

TEST(Envelope, EscapesEveryControlCharacter) {
  const char* const escapes[] = {
      "\\u0001", "\\u0002", "\\u0003", "\\u0004", "\\u0005", "\\u0006", "\\u0007", "\\b",
      "\\t",     "\\n",     "\\u000B", "\\f",     "\\r",     "\\u000E", "\\u000F", "\\u0010",
      "\\u0011", "\\u0012", "\\u0013", "\\u0014", "\\u0015", "\\u0016", "\\u0017", "\\u0018",
      "\\u0019", "\\u001A", "\\u001B", "\\u001C", "\\u001D", "\\u001E", "\\u001F"};
  char character[2] = "\x01";
  for (const char* const escape : escapes) {
    EXPECT_EQ(withText(character), holding(escape));
    ++character[0];
  }
  EXPECT_EQ(character[0], ' ');
}

TEST(Envelope, LeavesEveryOtherByteAsItIs) {
  for (int byte = 0x20; byte <= 0xFF; ++byte) {
    if (byte == '"' || byte == '\\') continue;
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(withText(text.c_str()), holding(text)) << byte;
  }
}

TEST(Envelope, PassesUtf8Through) {
  EXPECT_EQ(withText("\xE8\x8B\xB9\xE6\x9E\x9C \xC3\xA9 \xF0\x9F\x8D\x8E"),
            holding("\xE8\x8B\xB9\xE6\x9E\x9C \xC3\xA9 \xF0\x9F\x8D\x8E"));
}

TEST(Envelope, PassesInvalidUtf8Through) {
  const char* const invalid = "\xFF\xFE \xC3 \xED\xA0\x80 \xE8\x8B \x80";
  EXPECT_EQ(withText(invalid), holding(invalid));
}

TEST(Envelope, PassesGbkBytesThrough) {
  EXPECT_EQ(withText("\xC6\xBB\xB9\xFB"), holding("\xC6\xBB\xB9\xFB"));
}

// The second byte of some GBK characters is the code of the backslash. Bytes are all it looks at.
TEST(Envelope, EscapesTheBackslashByteInsideAGbkCharacter) {
  EXPECT_EQ(withText("\x81\x5C"), holding("\x81\x5C\x5C"));
}

TEST(Envelope, TakesOneMegabyteOfText) {
  const std::string text(1U << 20, 'x');
  Envelope request("c");
  request.add("k", text.c_str());
  EXPECT_EQ(request.text(), holding(text));
  EXPECT_EQ(request.length(), holding(text).size());
}

TEST(Envelope, TakesOneMegabyteOfQuotes) {
  std::string escaped;
  for (int count = 0; count < 1 << 20; ++count) escaped += "\\\"";
  EXPECT_EQ(withText(std::string(1U << 20, '"').c_str()), holding(escaped));
}

}  // namespace
}  // namespace tolvex
