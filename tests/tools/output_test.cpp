#include "app/output.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace tolvex::ctl {
namespace {

#ifdef _WIN32
void setVariable(const char* name, const char* value) { _putenv_s(name, value); }
#else
void setVariable(const char* name, const char* value) { setenv(name, value, 1); }
#endif

class FakeStreams : public Streams {
 public:
  bool output(const std::string& text) override {
    if (isFull) return false;
    out += text;
    return true;
  }
  void error(const std::string& text) override { err += text; }
  bool outputIsTerminal() override { return isTerminal; }
  std::string captured(std::size_t offset) override { return messages.substr(offset); }

  std::string out;
  std::string err;
  std::string messages;
  bool isFull = false;
  bool isTerminal = true;
};

class OutputTest : public ::testing::Test {
 protected:
  FakeStreams streams;
  Output text{streams, false, true};
  Output json{streams, true, false};
};

TEST_F(OutputTest, IsEitherTextOrJson) {
  text.result({{"a", 1}}, "one\n");
  EXPECT_EQ(streams.out, "one\n");
  json.result({{"a", 1}}, "one\n");
  EXPECT_EQ(streams.out, "one\n{\n  \"ok\": true,\n  \"a\": 1\n}\n");
}

TEST_F(OutputTest, GivesALineOfJsonToEachOfMany) {
  json.line({{"a", 1}}, "one\n");
  json.line({{"ok", false}, {"a", 2}}, "two\n");
  EXPECT_EQ(streams.out, "{\"ok\":true,\"a\":1}\n{\"ok\":false,\"a\":2}\n");
}

TEST_F(OutputTest, IsValidJsonWhateverTheBytes) {
  json.line({{"a", "\xFF"}}, "");
  EXPECT_EQ(streams.out, "{\"ok\":true,\"a\":\"\xEF\xBF\xBD\"}\n");
}

TEST_F(OutputTest, TellsAFailureWithItsRemedy) {
  text.failure(Failure(ExitCode::Failed, "it is broken", "Mend it."));
  EXPECT_EQ(streams.err, "tolvexctl: it is broken\nfix: Mend it.\n");
  EXPECT_EQ(streams.out, "");
  json.failure(Failure(ExitCode::Failed, "it is broken", "Mend it."));
  EXPECT_EQ(streams.out, R"({"ok":false,"error":{"message":"it is broken","code":null,"name":null,)"
                         R"("meaning":null,"remedy":"Mend it."},"exit":1})"
                         "\n");
}

TEST_F(OutputTest, TakesTheRemedyOfACodeFromTheTable) {
  text.failure(Failure("cannot weigh", 1005));
  EXPECT_EQ(
      streams.err,
      "tolvexctl: cannot weigh: 1005 WEIGHT_NOT_STABLE (Weight Not Stable): The weight has not "
      "settled.\nfix: Wait until the goods lie still, and read again.\n");
}

TEST_F(OutputTest, TellsACodeThatNobodyKnows) {
  text.failure(Failure("cannot weigh", 3001));
  EXPECT_EQ(streams.err,
            "tolvexctl: cannot weigh: 3001\n"
            "fix: The number is none of the library's, but the service's own: read its log.\n");
}

TEST_F(OutputTest, HasColoursOnlyWhereTheyAreWanted) {
  EXPECT_EQ(text.paint(Colour::Bad, "no"), "\x1b[31mno\x1b[0m");
  EXPECT_EQ(json.paint(Colour::Bad, "no"), "no");
}

TEST_F(OutputTest, WantsNoColoursWhereTheyAreRefusedOrOfNoUse) {
  setVariable("NO_COLOR", "");
  setVariable("TERM", "xterm");
  EXPECT_TRUE(wantsColour(streams, false));
  EXPECT_FALSE(wantsColour(streams, true));
  setVariable("NO_COLOR", "1");
  EXPECT_FALSE(wantsColour(streams, false));
  setVariable("NO_COLOR", "");
  setVariable("TERM", "dumb");
  EXPECT_FALSE(wantsColour(streams, false));
  setVariable("TERM", "xterm");
  streams.isTerminal = false;
  EXPECT_FALSE(wantsColour(streams, false));
}

TEST_F(OutputTest, PassesOnEachMessageOfTheLibraryOnce) {
  streams.messages = "one\n";
  text.passOnLibraryMessages();
  streams.messages += "two\x1b\n";
  text.passOnLibraryMessages();
  EXPECT_EQ(streams.err, "library: one\nlibrary: two\\x1B\n");
  EXPECT_EQ(text.libraryMessages(), "one\ntwo\x1b\n");
}

TEST_F(OutputTest, FailsWhereAResultCanNotBeWritten) {
  streams.isFull = true;
  EXPECT_THROW(text.result({}, "one\n"), Failure);
}

}  // namespace
}  // namespace tolvex::ctl
