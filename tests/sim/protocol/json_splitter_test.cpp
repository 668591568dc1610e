#include "protocol/json_splitter.h"

#include <gtest/gtest.h>

#include <vector>

namespace tolvex::sim {
namespace {

constexpr std::size_t kSmallLimit = 20;

// Writes what the splitter yields as one line: objects as they are, "<...>" for garbage and
// "too long" for an oversized object.
std::string drain(JsonSplitter& splitter) {
  std::string all;
  while (const auto piece = splitter.next()) {
    if (!all.empty()) all += ' ';
    switch (piece->kind) {
      case JsonSplitter::Kind::Object:
        all += piece->text;
        break;
      case JsonSplitter::Kind::Garbage:
        all += "<" + piece->text + ">";
        break;
      case JsonSplitter::Kind::TooLong:
        all += "too long";
        break;
    }
  }
  return all;
}

std::string feed(JsonSplitter& splitter, std::string_view bytes) {
  splitter.feed(bytes);
  return drain(splitter);
}

std::string split(std::string_view bytes) {
  JsonSplitter splitter;
  return feed(splitter, bytes);
}

TEST(JsonSplitter, YieldsAnObject) {
  EXPECT_EQ(split(R"({"cmd":"setzero"})"), R"({"cmd":"setzero"})");
  EXPECT_EQ(split("{}"), "{}");
}

TEST(JsonSplitter, YieldsNothingOfNothing) { EXPECT_EQ(split(""), ""); }

TEST(JsonSplitter, WaitsForTheLastBrace) {
  JsonSplitter splitter;
  const std::string object = R"({"a":{"b":"}\"}"},"c":"{"})";
  for (std::size_t i = 0; i + 1 < object.size(); ++i) {
    EXPECT_EQ(feed(splitter, object.substr(i, 1)), "") << i;
  }
  EXPECT_EQ(feed(splitter, "}"), object);
  EXPECT_EQ(feed(splitter, "{}"), "{}");
}

TEST(JsonSplitter, YieldsObjectsThatArriveTogether) {
  EXPECT_EQ(split(R"({"a":"1"}{"b":"2"}{})"), R"({"a":"1"} {"b":"2"} {})");
}

TEST(JsonSplitter, YieldsObjectsCutAnywhere) {
  const std::string both = R"({"a":"1"}{"b":"2"})";
  for (std::size_t cut = 10; cut < both.size(); ++cut) {
    JsonSplitter splitter;
    EXPECT_EQ(feed(splitter, both.substr(0, cut)), R"({"a":"1"})");
    EXPECT_EQ(feed(splitter, both.substr(cut)), R"({"b":"2"})") << cut;
  }
}

TEST(JsonSplitter, IgnoresBracesInStrings) {
  EXPECT_EQ(split(R"({"text":"}{}}"}{})"), R"({"text":"}{}}"} {})");
}

TEST(JsonSplitter, UnderstandsEscapesInStrings) {
  EXPECT_EQ(split(R"({"text":"\"}"}{})"), R"({"text":"\"}"} {})");
  EXPECT_EQ(split(R"({"text":"\\"}{})"), R"({"text":"\\"} {})");
  EXPECT_EQ(split(R"({"text":"\\\"}"}{})"), R"({"text":"\\\"}"} {})");
}

TEST(JsonSplitter, UnderstandsAnEscapeCutInTwo) {
  JsonSplitter splitter;
  EXPECT_EQ(feed(splitter, R"({"text":"\)"), "");
  EXPECT_EQ(feed(splitter, R"("}"})"), R"({"text":"\"}"})");
}

TEST(JsonSplitter, DoesNotJudgeWhatIsBetweenTheBraces) {
  EXPECT_EQ(split("{nonsense[}{}"), "{nonsense[} {}");
}

TEST(JsonSplitter, SkipsBlanksAndLineEndsBetweenObjects) {
  EXPECT_EQ(split(" \r\n\t{} \r\n{}\n"), "{} {}");
}

TEST(JsonSplitter, ReportsGarbageBeforeAnObject) { EXPECT_EQ(split("abc{}"), "<abc> {}"); }

TEST(JsonSplitter, ReportsGarbageAtItsFirstByteAndOncePerRun) {
  JsonSplitter splitter;
  EXPECT_EQ(feed(splitter, "a"), "<a>");
  EXPECT_EQ(feed(splitter, "b"), "");
  EXPECT_EQ(feed(splitter, " \nc"), "");
  EXPECT_EQ(feed(splitter, "d{}"), "{}");
  EXPECT_EQ(feed(splitter, "e"), "<e>");
}

TEST(JsonSplitter, EveryObjectEndsARunOfGarbage) {
  EXPECT_EQ(split("[{},{}]"), "<[> {} <,> {} <]>");
  EXPECT_EQ(split("}{}"), "<}> {}");
  EXPECT_EQ(split(R"("{}")"), R"(<"> {} <">)");
}

TEST(JsonSplitter, ANulIsGarbage) {
  EXPECT_EQ(split(std::string_view("{}\0{}", 5)), std::string("{} <\0> {}", 9));
}

TEST(JsonSplitter, KeepsOnlyASampleOfGarbage) {
  JsonSplitter splitter;
  splitter.feed(std::string(5000, 'x') + "{}");
  const auto garbage = splitter.next();
  ASSERT_TRUE(garbage);
  EXPECT_EQ(garbage->text, std::string(JsonSplitter::kSampleBytes, 'x'));
  EXPECT_EQ(drain(splitter), "{}");
}

TEST(JsonSplitter, TakesAnObjectOfTheLargestSize) {
  JsonSplitter splitter(kSmallLimit);
  const std::string object = "{" + std::string(kSmallLimit - 2, ' ') + "}";
  EXPECT_EQ(feed(splitter, object + "{}"), object + " {}");
}

TEST(JsonSplitter, RefusesAnObjectThatIsOneByteLarger) {
  JsonSplitter splitter(kSmallLimit);
  EXPECT_EQ(feed(splitter, "{" + std::string(kSmallLimit - 1, ' ') + "}"), "too long");
}

TEST(JsonSplitter, RefusesAnOversizedObjectBeforeItsEnd) {
  JsonSplitter splitter(kSmallLimit);
  EXPECT_EQ(feed(splitter, "{" + std::string(kSmallLimit - 1, ' ')), "");
  EXPECT_EQ(feed(splitter, " "), "too long");
}

TEST(JsonSplitter, YieldsNothingAfterAnOversizedObject) {
  JsonSplitter splitter(kSmallLimit);
  EXPECT_EQ(feed(splitter, "{}{" + std::string(kSmallLimit, ' ')), "{} too long");
  EXPECT_EQ(feed(splitter, "}{}"), "");
}

TEST(JsonSplitter, TheUsualLimitIsAMebibyte) {
  JsonSplitter splitter;
  const std::string largest =
      R"({"a":")" + std::string(JsonSplitter::kMaxObjectBytes - 8, 'a') + R"("})";
  ASSERT_EQ(largest.size(), 1024U * 1024U);
  splitter.feed(largest);
  const auto piece = splitter.next();
  ASSERT_TRUE(piece);
  EXPECT_EQ(piece->text, largest);
}

}  // namespace
}  // namespace tolvex::sim
