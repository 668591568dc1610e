// Which texts are JSON, and what is told about those that are not.
#include <gtest/gtest.h>
#include <pthread.h>
#include <rapidjson/document.h>

#include <cstring>
#include <iterator>
#include <random>
#include <string>

#include "service/reply.h"
#include "service/result_codes.h"

namespace tolvex {
namespace {

const char* const kMalformed[] = {
    "",
    " \t\r\n",
    "}",
    "]",
    " ,",
    ":",
    "x",
    "'a'",
    "{",
    "[",
    "{1:2}",
    "{,}",
    R"({"a")",
    R"({"a"})",
    R"({"a":)",
    R"({"a":})",
    R"({"a" "b"})",
    R"({"a":"b")",
    R"({"a":"b" "c":"d"})",
    R"({"a":"b"])",
    R"({"a":"b",})",
    R"({"a":"b",,"c":"d"})",
    "[1",
    "[1 2]",
    "[1,]",
    "[,1]",
    "[}",
    R"({"result":"0"}{"result":"0"})",
    R"({"result":"0"} x)",
    "1 2",
    R"({"a":"b)",
    R"({"a":"\q"})",
    R"({"a":"\u12G4"})",
    R"({"a":"\uD800"})",
    R"({"a":"\uD800\u0041"})",
    "{\"a\":\"line\nbreak\"}",
    "tru",
    "[fals]",
    "nul",
    "-",
    "01",
    "1.",
    "1e",
    "[1e999]",
    "+1",
    "NaN",
    "\xEF\xBB\xBF",
    "{\"result\":\"0\"}\x01",
};

TEST(ReplyParsing, RefusesEveryMalformedText) {
  for (const char* const text : kMalformed) {
    const Reply reply(text);
    EXPECT_FALSE(reply.isJson()) << text;
    EXPECT_EQ(reply.result(), result::kUnreadableReply) << text;
    EXPECT_EQ(reply.text("a"), nullptr) << text;
  }
}

// The numbers are part of the log, where they were always those of the plain parser.
TEST(ReplyParsing, TellsTheErrorNumbersOfThePlainParser) {
  for (const char* const text : kMalformed) {
    rapidjson::Document plain;
    plain.Parse(text);
    EXPECT_EQ(Reply(text).parseError(), static_cast<int>(plain.GetParseError())) << text;
  }
}

TEST(ReplyParsing, TellsNoErrorForAGoodReply) {
  const Reply reply(R"( { "result" : "0" } )");
  EXPECT_TRUE(reply.isJson());
  EXPECT_EQ(reply.parseError(), 0);
}

TEST(ReplyParsing, RefusesAReplyCutOffAnywhere) {
  const std::string whole = R"({"result":"0","tare":"1.250","list":["a",1,true,null,{"b":-2.5}]})";
  ASSERT_EQ(Reply(whole.c_str()).result(), 0);
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_FALSE(Reply(whole.substr(0, length).c_str()).isJson()) << length;
  }
}

TEST(ReplyParsing, EndsAtTheFirstNul) {
  const char text[] = "{\"result\":\"0\"}\0garbage";
  EXPECT_EQ(Reply(text).result(), 0);
  const char cut[] = "{\"result\":\0\"0\"}";
  EXPECT_FALSE(Reply(cut).isJson());
}

TEST(ReplyParsing, ReadsNoFurtherThanAReplyCanBeLong) {
  const std::string before = R"({"result":"0","x":")";
  const std::string tooLong = before + std::string(kReplyCapacity, 'y') + R"("})";
  EXPECT_FALSE(Reply(tooLong.c_str()).isJson());
  const std::string complete = R"({"result":"0"})" + std::string(kReplyCapacity, ' ') + "x";
  EXPECT_TRUE(Reply(complete.c_str()).isJson());
}

TEST(ReplyParsing, LeavesTheGivenTextAlone) {
  const std::string text = R"({"result":"a\nb","tare":"\u0041"})";
  const std::string before = text;
  const Reply reply(text.c_str());
  EXPECT_STREQ(reply.text("tare"), "A");
  EXPECT_EQ(text, before);
}

// Runs the function on a thread whose stack has no room for a recursion as deep as a reply is long.
void onASmallStack(void (*function)()) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 128 * 1024), 0);
  pthread_t thread;
  const auto run = [](void* argument) -> void* {
    (*static_cast<void (**)()>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &function), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

TEST(ReplyParsing, OfBracketsOnlyNeedsNoDeepStack) {
  onASmallStack([] {
    const Reply reply(std::string(kReplyCapacity, '[').c_str());
    EXPECT_FALSE(reply.isJson());
    EXPECT_EQ(reply.parseError(), static_cast<int>(rapidjson::kParseErrorValueInvalid));
  });
}

TEST(ReplyParsing, OfDeeplyNestedArraysNeedsNoDeepStack) {
  onASmallStack([] {
    const std::string text = std::string(kReplyCapacity / 2, '[') + std::string(1024, ']');
    EXPECT_TRUE(Reply(text.c_str()).isJson());
  });
}

TEST(ReplyParsing, OfDeeplyNestedObjectsNeedsNoDeepStack) {
  onASmallStack([] {
    std::string text = R"({"result":"12","d":)";
    for (int level = 0; level < 300; ++level) text += "{\"a\":";
    text += "0" + std::string(301, '}');
    EXPECT_EQ(Reply(text.c_str()).result(), 12);
  });
}

// Text of pieces that a reply may be made of, in an order that makes no sense most of the time.
std::string patchwork(std::mt19937& random) {
  constexpr const char* kPieces[] = {"{",          "}",
                                     R"("a":"b")", R"("result":"1005")",
                                     ",",          ":",
                                     R"("")",      R"("x")",
                                     " ",          "\t",
                                     "\r",         "\n",
                                     "\x01",       "\"",
                                     "\\",         R"("\n")",
                                     "1",          "null",
                                     "[]",         "[",
                                     "]",          R"("a":1)",
                                     "\xC3\xA9",   "true",
                                     R"("a")",     R"("\u00e9":"\"")"};
  std::string text = random() % 4 != 0 ? "{" : "";
  for (auto count = random() % 8; count > 0; --count)
    text += kPieces[random() % std::size(kPieces)];
  return random() % 4 != 0 ? text + "}" : text;
}

// Plain replies are read by a way of their own, which must not be told from the general one.
TEST(ReplyParsing, ReadsWhatThePlainParserReads) {
  std::mt19937 random(20261122);
  int good = 0;
  for (int round = 0; round < 50000; ++round) {
    const std::string text = patchwork(random);
    const Reply reply(text.c_str());
    rapidjson::Document plain;
    plain.Parse(text.c_str());
    ASSERT_EQ(reply.parseError(), static_cast<int>(plain.GetParseError())) << text;
    if (!plain.HasParseError() && plain.IsObject()) ++good;
    for (const char* const key : {"a", "result", "", "x", "\xC3\xA9"}) {
      const bool isText = !plain.HasParseError() && plain.IsObject() && plain.HasMember(key) &&
                          plain[key].IsString();
      ASSERT_EQ(reply.text(key) != nullptr, isText) << text;
      if (isText) {
        ASSERT_STREQ(reply.text(key), plain[key].GetString()) << text;
      }
    }
  }
  EXPECT_GT(good, 2000);
}

TEST(ReplyParsing, TakesAsManyMembersAsFit) {
  for (const char* const member : {R"("":"")", R"("":0)"}) {
    std::string text = R"({"result":"9")";
    while (text.size() + std::strlen(member) + 2 <= kReplyCapacity)
      text += std::string(",") + member;
    text += "}";
    EXPECT_EQ(Reply(text.c_str()).result(), 9) << member;
    EXPECT_FALSE(Reply((text.substr(0, text.size() - 1) + ",").c_str()).isJson()) << member;
  }
  std::string shortest = "{\"\":0";
  while (shortest.size() + 5 <= kReplyCapacity) shortest += ",\"\":0";
  EXPECT_FALSE(
      Reply((shortest + std::string(kReplyCapacity - shortest.size(), ' ')).c_str()).isJson());
}

TEST(ReplyParsing, TakesAThousandMembers) {
  std::string text = R"({"result":"9")";
  while (text.size() < kReplyCapacity - 8) text += R"(,"":[])";
  text += "}";
  EXPECT_EQ(Reply(text.c_str()).result(), 9);
}

}  // namespace
}  // namespace tolvex
