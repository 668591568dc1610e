#include "log/logger_test.h"
#include "support/os_support.h"

namespace tolvex {
namespace {

using test::Lines;

// What the logger tells on standard output.
class PrintedMessages : public test::LoggerTest {
 protected:
  std::string opened(unsigned index) const { return "NLog::OpenFile: " + file(index) + " Succ\n"; }
  std::string failed(unsigned index) const { return "NLog::OpenFile: " + file(index) + " Fail\n"; }
  std::string nothingOpened() const {
    std::string text;
    for (unsigned i = 0; i <= 9; ++i) text += failed(i);
    return text + "NLog::OpenFile Fail\nNLog::WriteLocalFile File Open Failed\n";
  }
  static std::string logged(const char* message) {
    return printedBy([message] { log(message); });
  }
};

TEST_F(PrintedMessages, NameTheFileThatWasOpened) {
  open();
  EXPECT_EQ(logged("a"), opened(0));
}

TEST_F(PrintedMessages, AreNoneWhileTheFileIsOpen) {
  open();
  logged("a");
  EXPECT_EQ(logged("b"), "");
}

TEST_F(PrintedMessages, AreNoneForARecordThatIsHeldBack) {
  open();
  EXPECT_EQ(printedBy([] { NLog::Log(NLog::GetInstance(), "DLL", 2, 1, "traffic"); }), "");
}

TEST_F(PrintedMessages, AreNoneForFilesWithoutRoom) {
  test::makeFileOfSize(file(0), 5242881);
  test::makeFileOfSize(file(1), 5242881);
  open();
  EXPECT_EQ(logged("a"), opened(2));
}

TEST_F(PrintedMessages, NameAFileThatCannotBeOpened) {
  test::makeFolder(file(0));
  test::makeFolder(file(1));
  open();
  EXPECT_EQ(logged("a"), failed(0) + failed(1) + opened(2));
}

TEST_F(PrintedMessages, TellOfAFileThatGotTooBig) {
  test::makeFileOfSize(file(0), 5242880);
  open();
  EXPECT_EQ(logged("a"), opened(0) + "NLog::WriteLocalFile File too Big to close it\n");
  EXPECT_EQ(logged("b"), opened(1));
}

TEST_F(PrintedMessages, AreNoneForAFileThatReachesItsLimit) {
  const std::size_t line = record("a").size() + test::kLineEnd.size();
  test::makeFileOfSize(file(0), 5242880 - line);
  open();
  EXPECT_EQ(logged("a"), opened(0));
  ASSERT_EQ(test::sizeOf(file(0)), 5242880u);
  EXPECT_EQ(logged("b"), "NLog::WriteLocalFile File too Big to close it\n");
}

TEST_F(PrintedMessages, AreNoneWhenTheRingIsEmptied) {
  for (unsigned i = 0; i <= 9; ++i) test::makeFileOfSize(file(i), 5242881);
  open();
  EXPECT_EQ(logged("a"), "");
}

TEST_F(PrintedMessages, NameTheUnopenedFilesOfARingThatIsEmptied) {
  for (unsigned i = 0; i <= 9; ++i) test::makeFileOfSize(file(i), 5242881);
  test::removeTree(file(4));
  test::makeFolder(file(4));
  open();
  EXPECT_EQ(logged("a"), failed(4));
}

TEST_F(PrintedMessages, TellThatTheFolderIsMissing) {
  open();
  test::removeTree(folder_.path());
  EXPECT_EQ(logged("a"), nothingOpened());
}

TEST_F(PrintedMessages, TellThatTheFolderIsMissingForEveryRecord) {
  open();
  test::removeTree(folder_.path());
  logged("a");
  EXPECT_EQ(logged("b"), nothingOpened());
}

TEST_F(PrintedMessages, TellOfAMissingFolderTwiceForALongText) {
  open();
  test::removeTree(folder_.path());
  EXPECT_EQ(printedBy([] { NLog::LogString(NLog::GetInstance(), "DLL", 7, 1, "text"); }),
            nothingOpened() + nothingOpened());
}

TEST_F(PrintedMessages, TellThatTheFolderIsMissingAtTheStart) {
  test::removeTree(folder_.path());
  EXPECT_EQ(printedBy([this] { open(); }), nothingOpened());
}

class MissingFolder : public test::LoggerTest {
 protected:
  MissingFolder() {
    open();
    test::removeTree(folder_.path());
  }
};

TEST_F(MissingFolder, IsNotMade) {
  log("a");
  EXPECT_FALSE(test::exists(folder_.path()));
}

TEST_F(MissingFolder, LosesTheRecordForTheFile) {
  log("a");
  test::makeFolder(folder_.path());
  log("b");
  EXPECT_EQ(lines(), (Lines{record("b")}));
}

TEST_F(MissingFolder, StillShowsTheRecordToTheDebugger) {
  log("a");
  EXPECT_EQ(test::debuggerTexts, (Lines{record("a")}));
}

TEST_F(MissingFolder, IsTakenUpAsSoonAsItAppears) {
  log("a");
  log("b");
  test::makeFolder(folder_.path());
  EXPECT_EQ(printedBy([] { log("c"); }), "NLog::OpenFile: " + file(0) + " Succ\n");
  EXPECT_EQ(lines(), (Lines{record("c")}));
}

}  // namespace
}  // namespace tolvex
