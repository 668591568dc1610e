#include <gtest/gtest.h>

#include <string>

#include "log/fake_disk.h"
#include "log/log_file.h"

namespace tolvex {
namespace {

// Lines end in CR LF on this disk.
class FullDisk : public testing::Test {
 protected:
  FullDisk() { EXPECT_TRUE(file_.open("till")); }

  void write(const std::string& line) { file_.writeLine(line.data(), line.size()); }
  static void leaveRoomFor(std::size_t bytes) { test::disk.room = bytes; }
  static void makeRoom() { test::disk.room = 1000000; }
  static std::string contents() { return test::disk.files["till_0.log"]; }

  LogFile file_;
};

TEST_F(FullDisk, LosesALineWithoutATrace) {
  write("first");
  leaveRoomFor(0);
  write("second");
  makeRoom();
  write("third");
  EXPECT_EQ(contents(), "first\r\nthird\r\n");
}

TEST_F(FullDisk, EndsATornLineBeforeTheNext) {
  leaveRoomFor(3);
  write("first");
  makeRoom();
  write("second");
  EXPECT_EQ(contents(), "fir\r\nsecond\r\n");
}

TEST_F(FullDisk, EndsATornLineOnce) {
  leaveRoomFor(3);
  write("first");
  makeRoom();
  write("second");
  write("third");
  EXPECT_EQ(contents(), "fir\r\nsecond\r\nthird\r\n");
}

TEST_F(FullDisk, EndsATornLineAlsoAfterLostOnes) {
  leaveRoomFor(3);
  write("first");
  write("second");
  write("third");
  makeRoom();
  write("fourth");
  EXPECT_EQ(contents(), "fir\r\nfourth\r\n");
}

TEST_F(FullDisk, EndsALineThatMissesItsLineEnd) {
  leaveRoomFor(5);
  write("first");
  makeRoom();
  write("second");
  EXPECT_EQ(contents(), "first\r\nsecond\r\n");
}

TEST_F(FullDisk, AddsNoLineEndToAWholeLine) {
  leaveRoomFor(7);
  write("first");
  makeRoom();
  write("second");
  EXPECT_EQ(contents(), "first\r\nsecond\r\n");
}

TEST_F(FullDisk, AddsNoLineEndToALineTornBehindALineEndOfItsOwn) {
  leaveRoomFor(3);
  write("a\nb");
  makeRoom();
  write("second");
  EXPECT_EQ(contents(), "a\r\nsecond\r\n");
}

TEST_F(FullDisk, EndsALineWhoseRepairWasTornToo) {
  leaveRoomFor(3);
  write("first");
  leaveRoomFor(4);
  write("second");
  makeRoom();
  write("third");
  EXPECT_EQ(contents(), "fir\r\nse\r\nthird\r\n");
}

TEST_F(FullDisk, EndsALongLineThatIsTornBetweenItsPieces) {
  const std::string line(5000, 'x');
  leaveRoomFor(2048);
  write(line);
  makeRoom();
  write("second");
  EXPECT_EQ(contents(), line.substr(0, 2048) + "\r\nsecond\r\n");
}

TEST_F(FullDisk, EndsATornLineAtOnceWithALongOne) {
  leaveRoomFor(3);
  write("first");
  makeRoom();
  test::disk.writes = 0;
  write(std::string(5000, 'x'));
  EXPECT_EQ(test::disk.writes, 1);
}

TEST_F(FullDisk, WritesNoFurtherPieceOfALineThatIsTorn) {
  leaveRoomFor(100);
  write(std::string(100000, 'x'));
  EXPECT_EQ(test::disk.writes, 1);
}

TEST_F(FullDisk, LeavesALineTornAtTheEndOfAFullFileToThatFile) {
  test::disk.files["till_0.log"].assign(kFullSize, 'x');
  leaveRoomFor(3);
  write("first");
  makeRoom();
  file_.close();
  ASSERT_TRUE(file_.open("till"));
  write("second");
  EXPECT_EQ(test::disk.files["till_1.log"], "second\r\n");
}

TEST_F(FullDisk, LeavesNothingOfATornLineInARingThatIsEmptied) {
  for (unsigned i = 1; i < kRingFiles; ++i) {
    test::disk.files["till_" + std::to_string(i) + ".log"].assign(kFullSize + 1, 'x');
  }
  test::disk.files["till_0.log"].assign(kFullSize, 'x');
  leaveRoomFor(3);
  write("first");
  makeRoom();
  file_.close();
  ASSERT_FALSE(file_.open("till"));
  EXPECT_EQ(contents(), " ===== Clear All logs =====\r\n");
}

TEST_F(FullDisk, CountsOnlyWhatWasWritten) {
  leaveRoomFor(0);
  for (int i = 0; i < 100; ++i) write(std::string(100000, 'x'));
  EXPECT_FALSE(file_.isFull());
}

TEST_F(FullDisk, IsNoReasonToCloseTheFile) {
  leaveRoomFor(0);
  write("first");
  EXPECT_TRUE(file_.isOpen());
}

// Files may be written to and still not be emptied: another program has them mapped, or they are for
// appending only.
TEST(LogFileBound, HoldsWhereTheRingCannotBeEmptied) {
  const std::string full(5242881, '\n');
  for (char i = '0'; i <= '9'; ++i) test::disk.files[std::string("till_") + i + ".log"] = full;
  test::disk.canBeEmptied = false;
  LogFile file;
  EXPECT_FALSE(file.open("till"));
  EXPECT_FALSE(file.isOpen());
  EXPECT_EQ(test::disk.files["till_0.log"].size(), full.size());
}

TEST(LogFileWrites, EachRecordAtOnce) {
  LogFile file;
  ASSERT_TRUE(file.open("till"));
  const std::string record(510, 'r');
  file.writeLine(record.data(), record.size());
  EXPECT_EQ(test::disk.writes, 1);
}

// Between two pieces another process could write.
TEST(LogFileWrites, ALongLineAtOnce) {
  LogFile file;
  ASSERT_TRUE(file.open("till"));
  std::string line(100000, 'x');
  for (std::size_t i = 10; i < line.size(); i += 100) line[i] = '\n';
  file.writeLine(line.data(), line.size());
  EXPECT_EQ(test::disk.writes, 1);
}

TEST(LogFileWrites, ALineOfAnyLengthAtOnce) {
  LogFile file;
  ASSERT_TRUE(file.open("till"));
  for (std::size_t length = 2040; length <= 2060; ++length) {
    test::disk.writes = 0;
    const std::string line(length, 'x');
    file.writeLine(line.data(), line.size());
    EXPECT_EQ(test::disk.writes, 1) << length;
  }
}

// Others may write to the file; to ask costs as much as to write.
TEST(LogFileWrites, AskForTheSizeOfTheFileOnceIn64KiB) {
  LogFile file;
  ASSERT_TRUE(file.open("till"));
  test::disk.questions = 0;
  const std::string record(1022, 'r');  // and a line end
  for (int i = 0; i < 64 * 3; ++i) {
    file.writeLine(record.data(), record.size());
    EXPECT_FALSE(file.isFull());
    EXPECT_EQ(test::disk.questions, (i + 1) / 64);
  }
}

TEST(LogFileWrites, GoOnWhereTheLengthOfTheFileIsUnknown) {
  test::disk.sizesKnown = false;
  LogFile file;
  ASSERT_TRUE(file.open("till"));
  const std::string line(100000, 'x');
  for (int i = 0; i < 10; ++i) {
    file.writeLine(line.data(), line.size());
    EXPECT_FALSE(file.isFull());
  }
  EXPECT_EQ(test::disk.files["till_0.log"].size(), 10 * (line.size() + 2));
}

}  // namespace
}  // namespace tolvex
