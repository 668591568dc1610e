#include <cstdint>
#include <filesystem>
#include <system_error>

#include "log/logger_test.h"
#include "support/os_support.h"

namespace tolvex {
namespace {

constexpr std::int64_t kLookInterval = 100;  // milliseconds

using test::Lines;
using test::makeFileOfSize;
using test::sizeOf;

constexpr std::uint64_t kFull = 5242880;

class Ring : public test::LoggerTest {
 protected:
  void makeFull(unsigned first, unsigned last) const {
    for (unsigned i = first; i <= last; ++i) makeFileOfSize(file(i), kFull + 1);
  }
  // What stands in a file after the length it was made with.
  std::string addedTo(unsigned index, std::uint64_t length) const {
    return test::readBytes(file(index)).substr(length);
  }
  static std::string line(const std::string& message) { return record(message) + test::kLineEnd; }
  static std::uint64_t lineSize(const std::string& message) { return line(message).size(); }
};

TEST_F(Ring, BeginsWithTheFirstFile) {
  open();
  log("a");
  EXPECT_EQ(lines(0), (Lines{record("a")}));
  EXPECT_FALSE(test::exists(file(1)));
}

TEST_F(Ring, AppendsToAFileThatIsThere) {
  test::writeBytes(file(0), "old" + test::kLineEnd);
  open();
  log("a");
  EXPECT_EQ(lines(0), (Lines{"old", record("a")}));
}

// A process that is killed at a record leaves the beginning of it.
TEST_F(Ring, EndsATornLineOfAnEarlierProcess) {
  test::writeBytes(file(0), "whole" + test::kLineEnd + "to");
  open();
  log("a");
  log("b");
  EXPECT_EQ(lines(0), (Lines{"whole", "to", record("a"), record("b")}));
}

TEST_F(Ring, EndsATornLineOfTheNextFile) {
  makeFull(0, 0);
  test::writeBytes(file(1), "to");
  open();
  log("a");
  EXPECT_EQ(lines(1), (Lines{"to", record("a")}));
}

TEST_F(Ring, AppendsToAFileOfExactlyTheLimit) {
  makeFileOfSize(file(0), kFull);
  open();
  log("a");
  EXPECT_EQ(addedTo(0, kFull), line("a"));
  EXPECT_FALSE(test::exists(file(1)));
}

TEST_F(Ring, SkipsAFileOneByteOverTheLimit) {
  makeFull(0, 0);
  open();
  log("a");
  EXPECT_EQ(sizeOf(file(0)), kFull + 1);
  EXPECT_EQ(lines(1), (Lines{record("a")}));
}

TEST_F(Ring, KeepsAFileThatReachesTheLimit) {
  const std::uint64_t start = kFull - lineSize("a");
  makeFileOfSize(file(0), start);
  open();
  log("a");
  ASSERT_EQ(sizeOf(file(0)), kFull);
  log("b");
  EXPECT_EQ(addedTo(0, start), line("a") + line("b"));
}

TEST_F(Ring, CompletesTheRecordThatCrossesTheLimit) {
  const std::uint64_t start = kFull - lineSize("a") + 1;
  makeFileOfSize(file(0), start);
  open();
  log("a");
  EXPECT_EQ(addedTo(0, start), line("a"));
}

TEST_F(Ring, WritesTheNextRecordToTheNextFile) {
  makeFileOfSize(file(0), kFull);
  open();
  log("a");
  log("b");
  EXPECT_EQ(sizeOf(file(0)), kFull + lineSize("a"));
  EXPECT_EQ(lines(1), (Lines{record("b")}));
}

TEST_F(Ring, CompletesALongTextThatCrossesTheLimit) {
  makeFileOfSize(file(0), kFull - 100);
  open();
  NLog::LogString(NLog::GetInstance(), "DLL", 7, 1, std::string(10000, 't'));
  EXPECT_EQ(addedTo(0, kFull - 100), line("") + std::string(10000, 't') + test::kLineEnd);
}

TEST_F(Ring, PutsALongTextInTheNextFileWhenItsHeaderCrossesTheLimit) {
  makeFileOfSize(file(0), kFull);
  open();
  NLog::LogString(NLog::GetInstance(), "DLL", 7, 1, "text");
  EXPECT_EQ(addedTo(0, kFull), line(""));
  EXPECT_EQ(lines(1), (Lines{"text"}));
}

TEST_F(Ring, SearchesAgainFromTheFirstFile) {
  makeFull(0, 1);
  makeFileOfSize(file(2), kFull);
  open();
  log("crosses the limit of the third");
  test::writeBytes(file(0), "");
  log("a");
  EXPECT_EQ(lines(0), (Lines{record("a")}));
  EXPECT_FALSE(test::exists(file(3)));
}

TEST_F(Ring, UsesAFileThatDisappeared) {
  makeFull(0, 0);
  makeFileOfSize(file(1), kFull);
  open();
  log("crosses the limit of the second");
  test::removeTree(file(0));
  log("a");
  EXPECT_EQ(lines(0), (Lines{record("a")}));
}

TEST_F(Ring, StaysWithItsFileWhileThatHasRoom) {
  makeFull(0, 0);
  open();
  log("a");
  test::writeBytes(file(0), "");
  log("b");
  EXPECT_EQ(lines(1), (Lines{record("a"), record("b")}));
}

// Some systems do not let anybody delete a file that is open.
TEST_F(Ring, BeginsAnewWhenItsFileIsDeleted) {
  open();
  log("a");
  std::error_code inUse;
  const bool isDeleted = std::filesystem::remove(std::filesystem::u8path(file(0)), inUse);
  test::intervalTime += kLookInterval;
  log("b");
  EXPECT_EQ(lines(0), isDeleted ? Lines{record("b")} : (Lines{record("a"), record("b")}));
}

// It asks after its file ten times a second only.
TEST_F(Ring, NoticesADeletedFileATenthOfASecondLater) {
  open();
  log("a");
  std::error_code inUse;
  const bool isDeleted = std::filesystem::remove(std::filesystem::u8path(file(0)), inUse);
  test::intervalTime += kLookInterval - 1;
  log("lost where a file can be deleted");
  test::intervalTime += 1;
  log("b");
  EXPECT_EQ(lines(0), isDeleted ? Lines{record("b")}
                                : (Lines{record("a"), record("lost where a file can be deleted"),
                                         record("b")}));
}

TEST_F(Ring, BeginsAnewWhenItsFolderIsDeletedAndRestored) {
  open();
  log("a");
  std::error_code inUse;
  std::filesystem::remove_all(std::filesystem::u8path(folder_.path()), inUse);
  test::intervalTime += kLookInterval;
  const std::string printed = printedBy([] { log("b"); });
  EXPECT_EQ(printed.find("NLog::WriteLocalFile File Open Failed") != std::string::npos, !inUse);
  test::makeFolder(folder_.path());
  log("c");
  EXPECT_EQ(lines(0), inUse ? (Lines{record("a"), record("b"), record("c")}) : Lines{record("c")});
}

TEST_F(Ring, UsesTheTenthFile) {
  makeFull(0, 8);
  open();
  log("a");
  EXPECT_EQ(lines(9), (Lines{record("a")}));
}

TEST_F(Ring, IsEmptiedWhenAllTenAreFull) {
  makeFull(0, 9);
  open();
  log("a");
  EXPECT_EQ(lines(0), (Lines{" ===== Clear All logs =====", record("a")}));
  for (unsigned i = 1; i <= 9; ++i) EXPECT_EQ(sizeOf(file(i)), 0u) << i;
  EXPECT_FALSE(test::exists(file(10)));
}

TEST_F(Ring, IsEmptiedByTheRecordAfterTheOneThatFilledIt) {
  makeFull(0, 8);
  makeFileOfSize(file(9), kFull);
  open();
  log("a");
  EXPECT_EQ(addedTo(9, kFull), line("a"));
  log("b");
  EXPECT_EQ(lines(0), (Lines{" ===== Clear All logs =====", record("b")}));
  EXPECT_EQ(sizeOf(file(9)), 0u);
}

TEST_F(Ring, GoesOnInTheFirstFileAfterItWasEmptied) {
  makeFull(0, 9);
  open();
  log("a");
  log("b");
  EXPECT_EQ(lines(0), (Lines{" ===== Clear All logs =====", record("a"), record("b")}));
}

TEST_F(Ring, DoesNotShowTheClearLineToTheDebugger) {
  makeFull(0, 9);
  open();
  log("a");
  EXPECT_EQ(test::debuggerTexts, (Lines{record("a")}));
}

TEST_F(Ring, PassesOverAFileThatCannotBeOpened) {
  test::makeFolder(file(0));
  open();
  log("a");
  EXPECT_EQ(lines(1), (Lines{record("a")}));
}

TEST_F(Ring, IsEmptiedWhenTheRestCannotBeOpened) {
  makeFull(0, 8);
  test::makeFolder(file(9));
  open();
  log("a");
  EXPECT_EQ(lines(0), (Lines{" ===== Clear All logs =====", record("a")}));
  EXPECT_EQ(sizeOf(file(8)), 0u);
}

TEST_F(Ring, LeavesOtherFilesOfTheFolderAlone) {
  makeFull(0, 9);
  test::writeBytes(folder_.file("DLL_10.log"), "ten");
  test::writeBytes(folder_.file("last_print.log"), "print");
  open();
  log("a");
  EXPECT_EQ(test::readBytes(folder_.file("DLL_10.log")), "ten");
  EXPECT_EQ(test::readBytes(folder_.file("last_print.log")), "print");
}

TEST_F(Ring, MakesNoFileForTheLatestPrint) {
  open();
  log("a");
  EXPECT_FALSE(test::exists(folder_.file("last_print.log")));
}

}  // namespace
}  // namespace tolvex
