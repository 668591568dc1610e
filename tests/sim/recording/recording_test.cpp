#include "recording/recording.h"

#include <gtest/gtest.h>

#include "scenario/refusal.h"

namespace tolvex::sim {
namespace {

const std::string kHeader = "{\"recording\":\"zelkad-sim\",\"format\":1,\"version\":\"3.0.3.2\"}\n";
const std::string kLine =
    R"({"number":1,"ms":12.345,"port":"printing","connection":2,"request":"{}","reply":"{\"result\":\"8\"}"})";

RecordedExchange exchange() {
  return {1, std::chrono::microseconds(12'345), Half::Printing, 2, "{}", R"({"result":"8"})", "",
          2};
}

std::string refusalOf(const std::string& text) {
  try {
    parseRecording(text);
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return "taken";
}

void expectSame(const RecordedExchange& one, const RecordedExchange& other) {
  EXPECT_EQ(one.number, other.number);
  EXPECT_EQ(one.time, other.time);
  EXPECT_EQ(one.half, other.half);
  EXPECT_EQ(one.connection, other.connection);
  EXPECT_EQ(one.request, other.request);
  EXPECT_EQ(one.reply, other.reply);
  EXPECT_EQ(one.instead, other.instead);
  EXPECT_EQ(one.line, other.line);
}

TEST(Recording, IsLinesOfJson) {
  EXPECT_EQ(recordingHeader("3.0.3.2") + "\n", kHeader);
  EXPECT_EQ(recordingLine(exchange()), kLine);
}

TEST(Recording, KeepsBytesThatAreNotUtf8) {
  RecordedExchange odd = exchange();
  odd.request = "K\xE4se";
  odd.reply = std::string("\xFF\0", 2);
  EXPECT_EQ(
      recordingLine(odd),
      R"({"number":1,"ms":12.345,"port":"printing","connection":2,"request_base64":"S+RzZQ==","reply_base64":"/wA="})");
  const auto read = parseRecording(kHeader + recordingLine(odd) + "\n");
  ASSERT_EQ(read.size(), 1U);
  expectSame(read[0], odd);
}

TEST(Recording, IsReadAsItWasWritten) {
  RecordedExchange closed = exchange();
  closed.number = 2;
  closed.reply = "";
  closed.instead = "close";
  closed.line = 3;
  const auto read =
      parseRecording(kHeader + recordingLine(exchange()) + "\r\n" + recordingLine(closed));
  ASSERT_EQ(read.size(), 2U);
  expectSame(read[0], exchange());
  expectSame(read[1], closed);
}

TEST(Recording, MayHaveNoExchange) { EXPECT_TRUE(parseRecording(kHeader).empty()); }

TEST(Recording, MayEndWithBlankLines) {
  for (const char* end : {"\n", "\n\n", "\r\n\r\n", "\n  ", "\n\t\n\n"}) {
    const auto read = parseRecording(kHeader + kLine + end);
    ASSERT_EQ(read.size(), 1U) << end;
    expectSame(read[0], exchange());
  }
  EXPECT_EQ(refusalOf(kHeader + "\n" + kLine),
            "line 2: this is no JSON. Mend the line, or delete it if it is cut short.");
}

TEST(Recording, RefusesAFileThatIsNone) {
  for (const char* nothing : {"", "\n", " \r\n"}) {
    EXPECT_EQ(refusalOf(nothing), "the recording is empty. Give a file that --record has written.");
  }
  EXPECT_EQ(refusalOf("{}\n"),
            "line 1: this is no header of a recording. Give a file that --record has written.");
  EXPECT_EQ(refusalOf("<svg>\n"),
            "line 1: this is no JSON. Mend the line, or delete it if it is cut short.");
  EXPECT_EQ(refusalOf(R"({"recording":"zelkad-sim","format":2})"),
            "line 1/format: this format is not known. Record the session again with this version.");
}

TEST(Recording, RefusesABrokenLineWithItsNumber) {
  const std::string start = kHeader + kLine + "\n";
  EXPECT_EQ(refusalOf(start + kLine.substr(0, 40)),
            "line 3: this is no JSON. Mend the line, or delete it if it is cut short.");
  EXPECT_EQ(refusalOf(start + "[]"), "line 3: [] is no object. Write an object: {...}.");
  EXPECT_EQ(refusalOf(start + "{}"), "line 3: there is no \"number\". Record the session again.");
  EXPECT_EQ(refusalOf(start + R"({"number":1,"ms":1,"port":"both","connection":1})"),
            "line 3/port: there is no port \"both\". Ports are weighing and printing.");
  EXPECT_EQ(refusalOf(start + R"({"number":1,"ms":1,"port":"printing","connection":1})"),
            "line 3: it has not one request. Write \"request\" or \"request_base64\".");
  EXPECT_EQ(
      refusalOf(
          start +
          R"({"number":1,"ms":1,"port":"printing","connection":1,"request_base64":"x","reply":""})"),
      "line 3/request_base64: this is not base64. Record the session again.");
  EXPECT_EQ(
      refusalOf(
          start +
          R"({"number":1,"ms":1,"port":"printing","connection":1,"request":"","instead":"x"})"),
      "line 3/instead: this is nothing that comes instead of a reply. Write \"no-answer\", "
      "\"close\" or \"reset\".");
  EXPECT_EQ(
      refusalOf(
          start +
          R"({"number":1,"ms":1,"port":"printing","connection":1,"request":"{}","reply":""})"),
      "line 3: the reply is empty. If the client got none, write \"instead\":\"no-answer\".");
  EXPECT_NE(refusalOf(start + R"({"number":0})"), "taken");
  EXPECT_NE(refusalOf(start + R"({"more":0})"), "taken");
}

}  // namespace
}  // namespace tolvex::sim
