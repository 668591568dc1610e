#include "service/reply.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

#include "service/result_codes.h"

namespace tolvex {
namespace {

std::int32_t codeOf(const std::string& reply) { return Reply(reply.c_str()).result(); }
std::int32_t codeOfText(const std::string& digits) {
  return codeOf(R"({"result":")" + digits + R"("})");
}

// A member's text, or "(none)".
std::string memberOf(const std::string& reply, const char* key) {
  const Reply parsed(reply.c_str());
  const char* const text = parsed.text(key);
  return text != nullptr ? text : "(none)";
}

TEST(ReplyResult, IsTheNumberInTheText) {
  EXPECT_EQ(codeOfText("0"), 0);
  EXPECT_EQ(codeOfText("2006"), 2006);
  EXPECT_EQ(codeOfText("-7"), -7);
}

TEST(ReplyResult, IsUnreadableForAJsonNumber) {
  EXPECT_EQ(codeOf(R"({"result":0})"), result::kUnreadableReply);
}

TEST(ReplyResult, IsUnreadableForEveryOtherType) {
  for (const char* const value :
       {"0.0", "true", "false", "null", "[\"0\"]", "{\"result\":\"0\"}"}) {
    EXPECT_EQ(codeOf(std::string(R"({"result":)") + value + "}"), result::kUnreadableReply)
        << value;
  }
}

TEST(ReplyResult, IsUnreadableWhenMissing) {
  EXPECT_EQ(codeOf("{}"), result::kUnreadableReply);
  EXPECT_EQ(codeOf(R"({"tare":"0"})"), result::kUnreadableReply);
}

TEST(ReplyResult, MindsTheCaseOfItsName) {
  EXPECT_EQ(codeOf(R"({"Result":"0"})"), result::kUnreadableReply);
}

TEST(ReplyResult, IsNotFoundInsideAnotherMember) {
  EXPECT_EQ(codeOf(R"({"data":{"result":"0"}})"), result::kUnreadableReply);
}

TEST(ReplyResult, IsZeroForATextWithoutDigits) {
  EXPECT_EQ(codeOfText("abc"), 0);
  EXPECT_EQ(codeOfText(""), 0);
  EXPECT_EQ(codeOfText("-"), 0);
  EXPECT_EQ(codeOfText("+"), 0);
}

TEST(ReplyResult, EndsAtTheFirstCharacterThatIsNoDigit) {
  EXPECT_EQ(codeOfText("12abc"), 12);
  EXPECT_EQ(codeOfText("1005.9"), 1005);
  EXPECT_EQ(codeOfText("0x10"), 0);
  EXPECT_EQ(codeOfText("1 2"), 1);
}

TEST(ReplyResult, SkipsBlanksBeforeTheNumber) {
  EXPECT_EQ(codeOfText("  7"), 7);
  EXPECT_EQ(codeOfText(R"( \t\n\u000B\f\r-7)"), -7);
}

TEST(ReplyResult, TakesOneSign) {
  EXPECT_EQ(codeOfText("+5"), 5);
  EXPECT_EQ(codeOfText("-5"), -5);
  EXPECT_EQ(codeOfText("--5"), 0);
  EXPECT_EQ(codeOfText("+-5"), 0);
  EXPECT_EQ(codeOfText("- 5"), 0);
}

TEST(ReplyResult, TakesLeadingZeros) { EXPECT_EQ(codeOfText("0000001003"), 1003); }

TEST(ReplyResult, IsClampedToThirtyTwoBits) {
  EXPECT_EQ(codeOfText("2147483647"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(codeOfText("2147483648"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(codeOfText("99999999999999999999999"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(codeOfText("-2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(codeOfText("-2147483649"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(codeOfText("-99999999999999999999999"), std::numeric_limits<std::int32_t>::min());
}

TEST(ReplyResult, IsTheFirstOfTwo) {
  EXPECT_EQ(codeOf(R"({"result":"3","result":"0"})"), 3);
  EXPECT_EQ(codeOf(R"({"result":3,"result":"0"})"), result::kUnreadableReply);
}

TEST(ReplyResult, IsReadFromTheBytesOfAReceive) {
  Reply reply;
  std::strcpy(reply.room(), R"({"result":"1005"})");
  reply.parse();
  EXPECT_EQ(reply.result(), 1005);
}

TEST(ReplyResult, StaysWhenItIsParsedAgain) {
  Reply reply(R"({"result":"1005"})");
  std::strcpy(reply.room(), R"({"result":"0"})");
  reply.parse();
  EXPECT_EQ(reply.result(), 1005);
}

TEST(ReplyResult, IsReadFromAReplyThatFillsTheBuffer) {
  const std::string before = R"({"result":"8","x":")";
  const std::string text = before + std::string(kReplyCapacity - before.size() - 2, 'y') + R"("})";
  ASSERT_EQ(text.size(), kReplyCapacity);
  EXPECT_EQ(codeOf(text), 8);
}

TEST(ReplyMember, IsTheTextOfAString) {
  EXPECT_EQ(memberOf(R"({"result":"0","tare":"1.250"})", "tare"), "1.250");
  EXPECT_EQ(memberOf(R"({"tare":""})", "tare"), "");
}

TEST(ReplyMember, IsNoneWhenMissing) { EXPECT_EQ(memberOf(R"({"a":"b"})", "tare"), "(none)"); }

TEST(ReplyMember, IsNoneForEveryOtherType) {
  for (const char* const value : {"1", "-1.5e3", "true", "false", "null", "[]", "{}"}) {
    EXPECT_EQ(memberOf(std::string(R"({"tare":)") + value + "}", "tare"), "(none)") << value;
  }
}

TEST(ReplyMember, IsTheFirstOfTwo) {
  EXPECT_EQ(memberOf(R"({"tare":"1","tare":"2"})", "tare"), "1");
}

TEST(ReplyMember, IsNoneWhenTheRootIsNoObject) {
  for (const char* const root : {"[]", R"(["tare"])", R"("tare")", "1", "true", "null"}) {
    const Reply reply(root);
    EXPECT_TRUE(reply.isJson()) << root;
    EXPECT_EQ(reply.text("tare"), nullptr) << root;
    EXPECT_EQ(reply.result(), result::kUnreadableReply) << root;
  }
}

TEST(ReplyMember, IsUnescaped) {
  EXPECT_EQ(memberOf(R"({"level":"a\"b\\c\/d\n\u00E9\ud83c\udf4e"})", "level"),
            "a\"b\\c/d\n\xC3\xA9\xF0\x9F\x8D\x8E");
}

TEST(ReplyMember, KeepsBytesThatAreNoUtf8) {
  EXPECT_EQ(memberOf("{\"level\":\"\xC6\xBB\xFF\"}", "level"), "\xC6\xBB\xFF");
}

TEST(ReplyMember, EndsAtAnEmbeddedNul) {
  EXPECT_EQ(memberOf(R"({"level":"ab\u0000cd"})", "level"), "ab");
}

TEST(ReplyMember, IsNotFoundByTheBeginningOfItsName) {
  EXPECT_EQ(memberOf(R"({"tare\u0000x":"1","tareType":"N"})", "tare"), "(none)");
}

}  // namespace
}  // namespace tolvex
