#include "log/log_file.h"
#include "log/logger_test.h"

namespace tolvex {
namespace {

class OpenFile : public test::LoggerTest {
 protected:
  OpenFile() { open(); }
};

TEST_F(OpenFile, ReturnsOneForAFileWithRoom) {
  EXPECT_EQ(NLog::GetInstance()->OpenFile(), 1);
  EXPECT_TRUE(test::exists(file(0)));
}

TEST_F(OpenFile, ReturnsZeroAfterItEmptiedTheRing) {
  for (unsigned i = 0; i <= 9; ++i) test::makeFileOfSize(file(i), 5242881);
  EXPECT_EQ(NLog::GetInstance()->OpenFile(), 0);
  EXPECT_EQ(lines(0), (test::Lines{" ===== Clear All logs ====="}));
}

TEST_F(OpenFile, ReturnsZeroWithoutAFolder) {
  test::removeTree(folder_.path());
  EXPECT_EQ(NLog::GetInstance()->OpenFile(), 0);
}

class LogFilePath : public test::LoggerTest {
 protected:
  std::string base() const { return folder_.file("till"); }
  LogFile file_;
};

TEST_F(LogFilePath, IsEmptyBeforeAFileWasOpened) { EXPECT_EQ(file_.path(), ""); }

TEST_F(LogFilePath, IsThatOfTheFileWithRoom) {
  test::makeFileOfSize(base() + "_0.log", 5242881);
  EXPECT_TRUE(file_.open(base()));
  EXPECT_EQ(file_.path(), base() + "_1.log");
}

TEST_F(LogFilePath, StaysWhenTheRingIsEmptied) {
  test::makeFileOfSize(base() + "_0.log", 5242881);
  ASSERT_TRUE(file_.open(base()));
  for (unsigned i = 1; i <= 9; ++i) {
    test::makeFileOfSize(base() + "_" + std::to_string(i) + ".log", 5242881);
  }
  EXPECT_FALSE(file_.open(base()));
  EXPECT_TRUE(file_.isOpen());
  EXPECT_EQ(file_.path(), base() + "_1.log");
}

TEST_F(LogFilePath, StaysWhenNothingCanBeOpened) {
  ASSERT_TRUE(file_.open(base()));
  EXPECT_FALSE(file_.open(folder_.file("missing/till")));
  EXPECT_FALSE(file_.isOpen());
  EXPECT_EQ(file_.path(), base() + "_0.log");
}

// A record asks for the file's length at most once in 64 KiB of its own.
TEST_F(LogFilePath, NoticesWhatOthersWroteToTheFile) {
  ASSERT_TRUE(file_.open(base()));
  const std::string line(1024, 'x');
  platform::AppendFile other;
  ASSERT_TRUE(other.open((base() + "_0.log").c_str()));
  const std::string much(5242880, 'y');
  ASSERT_EQ(other.write(much.data(), much.size()), much.size());
  int written = 0;
  while (!file_.isFull() && written < 100) {
    file_.writeLine(line.data(), line.size());
    ++written;
  }
  EXPECT_LE(written, 64);
}

// A path has 255 characters at most.
class LongPath : public test::LoggerTest {
 protected:
  // Opens the logger with a base of the given length, and returns that base.
  std::string openBase(std::size_t length) const {
    const std::string name(length - folder_.path().size(), 'n');
    NLog::GetInstance(name.c_str(), folder_.path().c_str());
    return folder_.path() + name;
  }
};

TEST_F(LongPath, Of255CharactersIsWhole) {
  const std::string base = openBase(249);
  EXPECT_EQ(printedBy([] { log("a"); }), "NLog::OpenFile: " + base + "_0.log Succ\n");
  EXPECT_EQ(test::linesOf(base + "_0.log"), (test::Lines{record("a")}));
}

TEST_F(LongPath, Of256CharactersIsCut) {
  const std::string base = openBase(250);
  EXPECT_EQ(printedBy([] { log("a"); }), "NLog::OpenFile: " + base + "_0.lo Succ\n");
  EXPECT_EQ(test::linesOf(base + "_0.lo"), (test::Lines{record("a")}));
}

TEST_F(LongPath, ThatLosesItsNumberIsOneFileForTheWholeRing) {
  const std::string base = openBase(254);
  test::makeFileOfSize(base + "_", 5242881);
  EXPECT_EQ(printedBy([] { log("a"); }), "");
  EXPECT_EQ(test::linesOf(base + "_"), (test::Lines{" ===== Clear All logs =====", record("a")}));
}

}  // namespace
}  // namespace tolvex
