#include "logs/log_ring.h"

#include <gtest/gtest.h>

#include "logs/log_filter.h"
#include "logs/log_follower.h"
#include "support/temporary_folder.h"

namespace tolvex::ctl {
namespace {

using test::TemporaryFolder;
using test::writeBytes;

// A line of the log at so many seconds of a minute.
std::string line(unsigned second, const std::string& text) {
  char head[64];
  std::snprintf(head, sizeof(head), "2024-03-05 14:07:%02u Ms:000 [T] L:100 M:DLL ", second);
  return head + text;
}

std::vector<std::string> textsOf(LogRing& ring) {
  std::vector<std::string> texts;
  while (const std::optional<LogRecord> record = ring.next()) {
    texts.push_back(record->file + ": " + record->text);
  }
  return texts;
}

std::vector<std::string> textsOf(const std::vector<LogRecord>& records) {
  std::vector<std::string> texts;
  for (const LogRecord& record : records) texts.push_back(record.file + ": " + record.text);
  return texts;
}

class RingTest : public ::testing::Test {
 protected:
  void write(const std::string& name, const std::vector<std::string>& lines,
             const std::string& lineEnd = "\n") {
    std::string bytes;
    for (const std::string& each : lines) bytes += each + lineEnd;
    writeBytes(folder_.file(name), bytes);
  }
  std::vector<std::string> read() {
    LogRing ring(findLogFiles({folder_.path()}));
    return textsOf(ring);
  }

  TemporaryFolder folder_;
};

TEST_F(RingTest, FindsNoFilesInAFolderThatIsMissing) {
  EXPECT_TRUE(findLogFiles({folder_.file("missing/")}).empty());
}

TEST_F(RingTest, FindsTheFilesOfTheRingAndNothingElse) {
  for (const char* name :
       {"DLL_0.log", "DLL_9.log", "NLog_1.log", "DLL_10.log", "other_0.log", "NLog.ini"}) {
    write(name, {line(1, name)});
  }
  EXPECT_EQ(read(), (std::vector<std::string>{"DLL_0.log: DLL_0.log", "DLL_9.log: DLL_9.log",
                                              "NLog_1.log: NLog_1.log"}));
}

TEST_F(RingTest, JoinsTheFilesInTimeOrderWhateverTheirNumbers) {
  write("DLL_0.log", {line(3, "c"), line(5, "e")}, "\r\n");
  write("DLL_1.log", {line(1, "a"), line(4, "d")});
  write("DLL_4.log", {line(2, "b")});
  write("DLL_2.log", {});
  EXPECT_EQ(read(), (std::vector<std::string>{"DLL_1.log: a", "DLL_4.log: b", "DLL_0.log: c",
                                              "DLL_1.log: d", "DLL_0.log: e"}));
}

TEST_F(RingTest, KeepsTheOrderWithinAFileWhereTheClockWasSetBack) {
  write("DLL_0.log", {line(30, "late"), line(10, "early"), line(31, "later")});
  EXPECT_EQ(read(),
            (std::vector<std::string>{"DLL_0.log: late", "DLL_0.log: early", "DLL_0.log: later"}));
}

TEST_F(RingTest, GivesATextThatStandsInTheNextFileToItsHeader) {
  write("DLL_0.log", {line(1, "first"), line(2, "")});
  write("DLL_1.log", {"[PrintTextByPaperWidth] Milk", "Bread", line(3, "next")});
  EXPECT_EQ(read(), (std::vector<std::string>{"DLL_0.log: first",
                                              "DLL_0.log: [PrintTextByPaperWidth] Milk\nBread",
                                              "DLL_1.log: next"}));
}

TEST_F(RingTest, GivesATextToTheOnlyRecordOfTheFileBefore) {
  write("DLL_0.log", {line(2, "")});
  write("DLL_1.log", {"[PrintTextByPaperWidth] Milk", line(3, "next")});
  EXPECT_EQ(read(), (std::vector<std::string>{"DLL_0.log: [PrintTextByPaperWidth] Milk",
                                              "DLL_1.log: next"}));
}

TEST_F(RingTest, ShowsATextWhoseHeaderIsLostBeforeWhatFollows) {
  write("DLL_3.log", {"lost", line(3, "next")});
  write("DLL_5.log", {line(2, "before")});
  EXPECT_EQ(read(),
            (std::vector<std::string>{"DLL_5.log: before", "DLL_3.log: lost", "DLL_3.log: next"}));
}

TEST_F(RingTest, ShowsWhereTheRingWasEmptied) {
  write("DLL_0.log", {std::string(kClearedMark), line(7, "after")});
  write("NLog_0.log", {line(6, "before")});
  EXPECT_EQ(read(), (std::vector<std::string>{
                        "NLog_0.log: before",
                        "DLL_0.log: ===== Clear All logs =====", "DLL_0.log: after"}));
}

TEST_F(RingTest, ReadsALastLineThatHasNoEndYet) {
  writeBytes(folder_.file("DLL_0.log"), line(1, "a") + "\n" + line(2, "b"));
  EXPECT_EQ(read(), (std::vector<std::string>{"DLL_0.log: a", "DLL_0.log: b"}));
}

TEST_F(RingTest, LeavesAloneWhatIsWrittenWhileItReads) {
  write("DLL_0.log", {line(1, "a")});
  const std::vector<LogFile> files = findLogFiles({folder_.path()});
  write("DLL_0.log", {line(1, "a"), line(2, "b")});
  LogRing ring(files);
  EXPECT_EQ(textsOf(ring), (std::vector<std::string>{"DLL_0.log: a"}));
}

TEST_F(RingTest, EndsEarlyWhenAFileIsEmptiedMeanwhile) {
  write("DLL_0.log", {line(1, "a"), line(2, "b")});
  const std::vector<LogFile> files = findLogFiles({folder_.path()});
  write("DLL_0.log", {});
  LogRing ring(files);
  EXPECT_EQ(textsOf(ring), std::vector<std::string>{});
}

TEST_F(RingTest, FollowsWhatIsAppended) {
  write("DLL_0.log", {line(1, "old")});
  LogFollower follower({folder_.path()}, findLogFiles({folder_.path()}));
  EXPECT_EQ(textsOf(follower.poll()), std::vector<std::string>{});
  write("DLL_0.log", {line(1, "old"), line(2, "new"), line(3, "newer")});
  EXPECT_EQ(textsOf(follower.poll()), (std::vector<std::string>{"DLL_0.log: new"}));
  EXPECT_EQ(textsOf(follower.poll()), (std::vector<std::string>{"DLL_0.log: newer"}));
  EXPECT_EQ(textsOf(follower.poll()), std::vector<std::string>{});
}

TEST_F(RingTest, FollowsIntoNewFilesAndThroughEmptying) {
  write("DLL_0.log", {line(1, "a record that is longer than all that comes after the emptying")});
  LogFollower follower({folder_.path()}, findLogFiles({folder_.path()}));
  write("DLL_1.log", {line(2, "in a new file")});
  follower.poll();
  EXPECT_EQ(textsOf(follower.poll()), (std::vector<std::string>{"DLL_1.log: in a new file"}));
  write("DLL_1.log", {});
  write("DLL_0.log", {std::string(kClearedMark), line(3, "x")});
  EXPECT_EQ(textsOf(follower.poll()),
            (std::vector<std::string>{"DLL_0.log: ===== Clear All logs ====="}));
  EXPECT_EQ(textsOf(follower.poll()), (std::vector<std::string>{"DLL_0.log: x"}));
}

TEST_F(RingTest, WaitsForTheEndOfALine) {
  write("DLL_0.log", {});
  LogFollower follower({folder_.path()}, findLogFiles({folder_.path()}));
  writeBytes(folder_.file("DLL_0.log"), line(1, "half a "));
  EXPECT_EQ(textsOf(follower.poll()), std::vector<std::string>{});
  writeBytes(folder_.file("DLL_0.log"), line(1, "half a line\n"));
  follower.poll();
  EXPECT_EQ(textsOf(follower.poll()), (std::vector<std::string>{"DLL_0.log: half a line"}));
}

LogRecord record(int level, const std::string& module, const std::string& text, LogTime time) {
  LogRecord made;
  made.level = level;
  made.module = module;
  made.text = text;
  made.time = time;
  made.order = time;
  return made;
}

TEST(LogFilter, LetsAllThroughAtFirst) {
  EXPECT_TRUE(LogFilter().passes(record(6, "DLL", "text", 5)));
  EXPECT_TRUE(LogFilter().passes(LogRecord()));
}

TEST(LogFilter, ChoosesByLevelModuleTimeAndText) {
  LogFilter filter;
  EXPECT_TRUE(addLevels("5,w,6-7,traffic", filter.levels));
  filter.modules = {"dll"};
  filter.since = 10;
  filter.until = 20;
  filter.text = "PAPER";
  EXPECT_TRUE(filter.passes(record(5, "DLL", "Out of Paper", 10)));
  EXPECT_TRUE(filter.passes(record(2, "DLL", "Out of Paper", 20)));
  EXPECT_FALSE(filter.passes(record(3, "DLL", "Out of Paper", 15)));
  EXPECT_FALSE(filter.passes(record(5, "Socket", "Out of Paper", 15)));
  EXPECT_FALSE(filter.passes(record(5, "DLL", "Out of Paper", 9)));
  EXPECT_FALSE(filter.passes(record(5, "DLL", "Out of Paper", 21)));
  EXPECT_FALSE(filter.passes(record(5, "DLL", "Out of ink", 15)));
}

TEST(LogFilter, RefusesWordsThatAreNoLevel) {
  for (const char* words : {"", "0", "8", "5,", "7-5x", "q", "5-", "fail"}) {
    std::array<bool, 8> levels{};
    EXPECT_FALSE(addLevels(words, levels)) << words;
    EXPECT_EQ(levels, (std::array<bool, 8>{})) << words;
  }
}

}  // namespace
}  // namespace tolvex::ctl
