#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "platform/file.h"
#include "support/os_support.h"
#include "support/temporary_folder.h"

namespace tolvex::platform {
namespace {

class AppendFileTest : public testing::Test {
 protected:
  bool open() { return file_.open(path_.c_str()); }
  std::size_t write(const std::string& data) { return file_.write(data.data(), data.size()); }
  std::string contents() const { return test::readBytes(path_); }

  const test::TemporaryFolder folder_;
  const std::string path_ = folder_.file("a.log");
  AppendFile file_;
};

TEST_F(AppendFileTest, IsClosedAtFirst) { EXPECT_FALSE(file_.isOpen()); }

TEST_F(AppendFileTest, IsMadeWhereItIsMissing) {
  EXPECT_TRUE(open());
  EXPECT_TRUE(file_.isOpen());
  EXPECT_EQ(contents(), "");
}

TEST_F(AppendFileTest, KeepsWhatIsThere) {
  test::writeBytes(path_, "old ");
  ASSERT_TRUE(open());
  EXPECT_EQ(write("new"), 3u);
  EXPECT_EQ(contents(), "old new");
}

TEST_F(AppendFileTest, WritesBytesAsTheyAre) {
  ASSERT_TRUE(open());
  const std::string bytes("\n\r\n\0\xFF\x1A", 6);
  EXPECT_EQ(write(bytes), bytes.size());
  EXPECT_EQ(contents(), bytes);
}

TEST_F(AppendFileTest, WritesNothing) {
  ASSERT_TRUE(open());
  EXPECT_EQ(write(""), 0u);
  EXPECT_EQ(contents(), "");
}

TEST_F(AppendFileTest, KnowsItsLength) {
  test::writeBytes(path_, "12345");
  ASSERT_TRUE(open());
  EXPECT_EQ(file_.size(), 5);
  write("678");
  EXPECT_EQ(file_.size(), 8);
}

TEST_F(AppendFileTest, KnowsALengthBeyond32Bits) {
  test::makeFileOfSize(path_, 5000000000);
  ASSERT_TRUE(open());
  EXPECT_EQ(file_.size(), 5000000000);
}

TEST_F(AppendFileTest, HasNoLengthWhileClosed) { EXPECT_EQ(file_.size(), -1); }

TEST_F(AppendFileTest, TakesNothingWhileClosed) { EXPECT_EQ(write("text"), 0u); }

TEST_F(AppendFileTest, WritesBehindWhatOthersAppended) {
  ASSERT_TRUE(open());
  AppendFile other;
  ASSERT_TRUE(other.open(path_.c_str()));
  write("a");
  other.write("b", 1);
  write("c");
  EXPECT_EQ(contents(), "abc");
  EXPECT_EQ(file_.size(), 3);
}

TEST_F(AppendFileTest, WritesAtTheEndOfAFileThatWasEmptied) {
  ASSERT_TRUE(open());
  write("long text");
  ASSERT_TRUE(truncateFile(path_.c_str()));
  write("x");
  EXPECT_EQ(contents(), "x");
}

TEST_F(AppendFileTest, CanBeReadWhileItIsOpen) {
  ASSERT_TRUE(open());
  write("text");
  std::string text;
  EXPECT_TRUE(readFile(path_.c_str(), text));
  EXPECT_EQ(text, "text");
}

TEST_F(AppendFileTest, CanBeClosedTwice) {
  ASSERT_TRUE(open());
  file_.close();
  file_.close();
  EXPECT_FALSE(file_.isOpen());
}

TEST_F(AppendFileTest, CanBeOpenedAgain) {
  ASSERT_TRUE(open());
  write("a");
  file_.close();
  ASSERT_TRUE(open());
  write("b");
  EXPECT_EQ(contents(), "ab");
}

TEST_F(AppendFileTest, ClosesTheFileItHadOpen) {
  const std::string second = folder_.file("b.log");
  ASSERT_TRUE(open());
  const std::size_t handles = test::handleCount();
  ASSERT_TRUE(file_.open(second.c_str()));
  EXPECT_EQ(test::handleCount(), handles);
  write("b");
  EXPECT_EQ(contents(), "");
  EXPECT_EQ(test::readBytes(second), "b");
}

TEST_F(AppendFileTest, IsClosedWhenAnotherCannotBeOpened) {
  ASSERT_TRUE(open());
  EXPECT_FALSE(file_.open(folder_.file("missing/a.log").c_str()));
  EXPECT_FALSE(file_.isOpen());
}

TEST_F(AppendFileTest, IsClosedByItsDestructor) {
  const std::size_t handles = test::handleCount();
  {
    AppendFile file;
    ASSERT_TRUE(file.open(path_.c_str()));
    EXPECT_EQ(test::handleCount(), handles + 1);
  }
  EXPECT_EQ(test::handleCount(), handles);
}

TEST_F(AppendFileTest, IsNotGoneWhileItIsThere) {
  ASSERT_TRUE(open());
  EXPECT_FALSE(file_.isGone());
}

TEST_F(AppendFileTest, IsGoneWhenItWasDeletedWhereThatCanBe) {
  ASSERT_TRUE(open());
  std::error_code inUse;
  const bool isDeleted = std::filesystem::remove(std::filesystem::u8path(path_), inUse);
  EXPECT_EQ(file_.isGone(), isDeleted);
}

TEST_F(AppendFileTest, MakesNoFolder) {
  EXPECT_FALSE(file_.open(folder_.file("missing/a.log").c_str()));
  EXPECT_FALSE(test::exists(folder_.file("missing")));
}

TEST_F(AppendFileTest, IsNoFolder) {
  EXPECT_FALSE(file_.open(folder_.path().c_str()));
  EXPECT_FALSE(file_.isOpen());
}

TEST_F(AppendFileTest, EndsInsideALineThatHasNoEnd) {
  test::writeBytes(path_, "whole\nto");
  EXPECT_TRUE(endsInsideLine(path_.c_str()));
}

TEST_F(AppendFileTest, EndsInsideNoLineThatHasAnEnd) {
  test::writeBytes(path_, "whole" + test::kLineEnd);
  EXPECT_FALSE(endsInsideLine(path_.c_str()));
}

TEST_F(AppendFileTest, EndsInsideNoLineWithoutAny) {
  EXPECT_FALSE(endsInsideLine(path_.c_str()));
  test::writeBytes(path_, "");
  EXPECT_FALSE(endsInsideLine(path_.c_str()));
}

TEST_F(AppendFileTest, NeedsAPath) { EXPECT_FALSE(file_.open("")); }

TEST_F(AppendFileTest, MayHaveANonAsciiName) {
  const std::string path = folder_.file("K\xC3\xA4sse \xE7\xA7\xA4.log");
  ASSERT_TRUE(file_.open(path.c_str()));
  write("text");
  EXPECT_EQ(test::readBytes(path), "text");
}

TEST(LineEndOfThePlatform, IsThatOfItsTextFiles) { EXPECT_EQ(kLineEnd, test::kLineEnd); }

}  // namespace
}  // namespace tolvex::platform
