// log and explain as people call them.
#include "tools/support/tool_test.h"

namespace tolvex::test {
namespace {

std::string line(unsigned second, char letter, const std::string& module, const std::string& text) {
  char head[64];
  std::snprintf(head, sizeof(head), "2024-03-05 14:07:%02u Ms:042 [%c] L:044 M:", second, letter);
  return head + module + ' ' + text + '\n';
}

class LogCommand : public ToolTest {
 protected:
  LogCommand() {
    writeBytes(logs.file("DLL_1.log"), line(1, 'T', "DLL", "[shop][feedPaper] Entry") +
                                           line(4, 'W', "DLL", "[feedPaper] Err:2006"));
    writeBytes(logs.file("DLL_0.log"),
               line(2, 'W', "Socket", "Error: 10061") +
                   line(3, 'T', "DLL", "[shop][PrintText] font:24 [Milk\n\x1B[2JBread]"));
  }
  Words words(const Words& more) const {
    Words all = {"log", "--dir", logs.path()};
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }
  std::string shown(const Words& more) {
    const Finished finished = tolvexctl(words(more));
    EXPECT_EQ(finished.exitCode, 0) << finished.err;
    return finished.out;
  }

  TemporaryFolder logs;
};

const std::string kFirst = "2024-03-05 14:07:01.042 [T] DLL: [shop][feedPaper] Entry\n";
const std::string kSecond = "2024-03-05 14:07:02.042 [W] Socket: Error: 10061\n";
const std::string kThird =
    "2024-03-05 14:07:03.042 [T] DLL: [shop][PrintText] font:24 [Milk\n    \\x1B[2JBread]\n";
const std::string kFourth = "2024-03-05 14:07:04.042 [W] DLL: [feedPaper] Err:2006\n";

TEST_F(LogCommand, JoinsTheFilesInTimeOrder) {
  EXPECT_EQ(shown({}), kFirst + kSecond + kThird + kFourth);
  EXPECT_EQ(shown({"-n", "2"}), kThird + kFourth);
  EXPECT_EQ(shown({"--count", "1"}), kFirst);
}

TEST_F(LogCommand, ShowsWhatIsAskedFor) {
  EXPECT_EQ(shown({"--level", "failures", "--module", "socket"}), kSecond);
  EXPECT_EQ(shown({"--since", "2024-03-05 14:07:03", "--grep", "BREAD"}), kThird);
  EXPECT_EQ(shown({"--until", "2024-03-05 14:07:02"}), kFirst);
}

TEST_F(LogCommand, TellsARecordAsAJsonObjectInALine) {
  const Finished finished = tolvexctl(words({"--json", "--module", "Socket"}));
  EXPECT_EQ(finished.exitCode, 0);
  const ordered_json expected = {{"ok", true},
                                 {"time", "2024-03-05T14:07:02.042"},
                                 {"level", 5},
                                 {"letter", "W"},
                                 {"line", 44},
                                 {"module", "Socket"},
                                 {"text", "Error: 10061"},
                                 {"file", "DLL_0.log"}};
  EXPECT_EQ(finished.out, expected.dump() + "\n");
}

TEST_F(LogCommand, IsJsonEvenWhereNothingIsFound) {
  const ordered_json expected = {{"ok", true}, {"records", 0}};
  EXPECT_EQ(json(words({"--grep", "no such text"}), 0), expected);
}

TEST_F(LogCommand, FollowsWhatIsWritten) {
  Child log({TOLVEXCTL, "log", "--dir", logs.path(), "-f", "-n", "1", "--count", "2"});
  EXPECT_EQ(log.readLine().value_or("none") + "\n", kFourth);
  writeBytes(logs.file("DLL_2.log"), line(5, 'T', "DLL", "new"));
  EXPECT_EQ(log.readLine().value_or("none"), "2024-03-05 14:07:05.042 [T] DLL: new");
  EXPECT_EQ(log.finish().exitCode, 0);
}

TEST_F(LogCommand, SaysWhatIsWrongWithItsArguments) {
  const ordered_json missing = json({"log", "--dir", logs.file("missing")}, 1);
  EXPECT_EQ(missing["error"]["message"], "there is no log in " + logs.file("missing"));
  EXPECT_EQ(json({"log", "--level", "loud"}, 2)["ok"], false);
  EXPECT_EQ(json({"log", "-n", "-1"}, 2)["error"]["message"],
            "--lines: \"-1\" is no whole number from 0 to 1000000000");
  EXPECT_EQ(json({"log", "-C", "0"}, 2)["error"]["message"],
            "--count: \"0\" is no whole number from 1 to 1000000000");
  EXPECT_EQ(json({"log", "--since", "yesterday"}, 2)["ok"], false);
}

class ExplainCommand : public ToolTest {};

TEST_F(ExplainCommand, TellsNumberNameMeaningAndRemedy) {
  const std::string expected =
      "2006 OUT_OF_PAPER (Out of Paper)\n"
      "  constant: TOLVEX_RESULT_OUT_OF_PAPER\n"
      "  meaning:  The printer has no paper left.\n"
      "  remedy:   Put in new paper, close the cover, and print the job again: what came out "
      "before is not complete.\n";
  for (const Words& asked : {Words{"2006"}, Words{"out", "of", "paper"}, Words{"OutOfPaper"}}) {
    Words words = {"explain"};
    words.insert(words.end(), asked.begin(), asked.end());
    const Finished finished = tolvexctl(words);
    EXPECT_EQ(finished.exitCode, 0);
    EXPECT_EQ(finished.out, expected);
  }
}

TEST_F(ExplainCommand, KnowsTheAnswersToo) {
  const ordered_json unreadable = json({"explain", "-1"}, 0);
  ASSERT_EQ(unreadable["codes"].size(), 2u);
  EXPECT_EQ(unreadable["codes"][0]["constant"], "TOLVEX_UNREADABLE_REPLY");
  EXPECT_EQ(json({"explain", "0xf0"}, 0)["codes"][0]["constant"], "TOLVEX_OK");
  EXPECT_GT(json({"explain", "--all"}, 0)["codes"].size(), 30u);
}

TEST_F(ExplainCommand, TakesSeveralNumbersForSeveralQuestions) {
  const ordered_json codes = json({"explain", "2006", "1007"}, 0)["codes"];
  ASSERT_EQ(codes.size(), 2u);
  EXPECT_EQ(codes[0]["name"], "OUT_OF_PAPER");
  EXPECT_EQ(codes[1]["name"], "LC_NOT_CONNECTED");
  EXPECT_EQ(json({"explain", "2006", "2004"}, 1)["error"]["message"],
            "there is no code or name \"2004\"");
}

TEST_F(ExplainCommand, SuggestsNamesForOneThatIsNotThere) {
  const ordered_json paper = json({"explain", "paper"}, 1);
  EXPECT_EQ(paper["error"]["message"], "there is no code or name \"paper\"");
  EXPECT_EQ(paper["error"]["remedy"],
            "Do you mean OUT_OF_PAPER? tolvexctl explain --all lists all codes. A number that is "
            "not there is the service's own: read its log.");
  EXPECT_EQ(json({"explain"}, 2)["ok"], false);
  EXPECT_EQ(json({"explain", "2004"}, 1)["ok"], false);
}

}  // namespace
}  // namespace tolvex::test
