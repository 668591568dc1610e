#include "platform/file_copy.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/file.h"
#include "support/os_support.h"
#include "support/temporary_folder.h"

namespace tolvex::platform {
namespace {

// Bytes of which no two chunks are alike.
std::string contentsOf(std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(i ^ (i >> 8) ^ (i >> 16));
  return bytes;
}

class FileCopy : public testing::Test {
 protected:
  bool copy() const { return copyFile(source_.c_str(), target_.c_str()); }

  const test::TemporaryFolder folder_;
  const std::string source_ = folder_.file("logo.bmp");
  const std::string target_ = folder_.file("prt_0.bmp");
};

class FileCopyOfSize : public FileCopy, public testing::WithParamInterface<std::size_t> {};

TEST_P(FileCopyOfSize, HasTheSourcesContents) {
  test::writeBytes(source_, contentsOf(GetParam()));
  EXPECT_TRUE(copy());
  EXPECT_TRUE(test::readBytes(target_) == contentsOf(GetParam()));
  EXPECT_TRUE(test::readBytes(source_) == contentsOf(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Bytes, FileCopyOfSize,
                         testing::Values(0, 1, 1023, 1024, 1025, 2048, 1 << 20));

TEST_F(FileCopy, HasEveryByteAsItIs) {
  const std::string bytes("a\r\nb\n\0\x1A\xFF", 8);
  test::writeBytes(source_, bytes);
  EXPECT_TRUE(copy());
  EXPECT_EQ(test::readBytes(target_), bytes);
}

TEST_F(FileCopy, TakesThePlaceOfALongerFile) {
  test::writeBytes(source_, "new");
  test::writeBytes(target_, contentsOf(5000));
  EXPECT_TRUE(copy());
  EXPECT_EQ(test::readBytes(target_), "new");
}

TEST_F(FileCopy, OfAMissingFileFailsAndLeavesTheTarget) {
  test::writeBytes(target_, "old");
  EXPECT_FALSE(copy());
  EXPECT_EQ(test::readBytes(target_), "old");
}

TEST_F(FileCopy, OfAMissingFileMakesNoTarget) {
  EXPECT_FALSE(copy());
  EXPECT_FALSE(test::exists(target_));
}

TEST_F(FileCopy, OfAFolderFailsAndLeavesTheTarget) {
  test::makeFolder(source_);
  test::writeBytes(target_, "old");
  EXPECT_FALSE(copy());
  EXPECT_EQ(test::readBytes(target_), "old");
}

TEST_F(FileCopy, InPlaceOfAFolderFails) {
  test::writeBytes(source_, "text");
  test::makeFolder(target_);
  EXPECT_FALSE(copy());
  EXPECT_TRUE(test::exists(target_));
}

TEST_F(FileCopy, IntoAMissingFolderFails) {
  test::writeBytes(source_, "text");
  EXPECT_FALSE(copyFile(source_.c_str(), folder_.file("missing/a.bmp").c_str()));
  EXPECT_FALSE(test::exists(folder_.file("missing")));
}

TEST_F(FileCopy, NeedsPaths) {
  test::writeBytes(source_, "text");
  EXPECT_FALSE(copyFile("", target_.c_str()));
  EXPECT_FALSE(copyFile(source_.c_str(), ""));
}

TEST_F(FileCopy, OntoItselfLeavesTheFile) {
  test::writeBytes(source_, "text");
  EXPECT_TRUE(copyFile(source_.c_str(), source_.c_str()));
  EXPECT_EQ(test::readBytes(source_), "text");
}

TEST_F(FileCopy, OntoItselfByAnotherPathLeavesTheFile) {
  test::writeBytes(source_, "text");
  test::makeFolder(folder_.file("folder"));
  EXPECT_TRUE(copyFile(source_.c_str(), folder_.file("folder/../logo.bmp").c_str()));
  EXPECT_EQ(test::readBytes(source_), "text");
}

TEST_F(FileCopy, OntoItselfByAHardLinkLeavesTheFile) {
  test::writeBytes(source_, "text");
  std::filesystem::create_hard_link(source_, target_);
  EXPECT_TRUE(copy());
  EXPECT_EQ(test::readBytes(source_), "text");
}

TEST_F(FileCopy, OntoItselfLeavesAFileThatMayNotBeWritten) {
  test::writeBytes(source_, "text");
  std::filesystem::permissions(source_, std::filesystem::perms::owner_read);
  EXPECT_TRUE(copyFile(source_.c_str(), source_.c_str()));
  EXPECT_EQ(test::readBytes(source_), "text");
  std::filesystem::permissions(source_, std::filesystem::perms::owner_all);
}

TEST_F(FileCopy, IsMadeWhileOthersWriteToBothFiles) {
  test::writeBytes(source_, "text");
  AppendFile source;
  AppendFile target;
  ASSERT_TRUE(source.open(source_.c_str()));
  ASSERT_TRUE(target.open(target_.c_str()));
  target.write("old", 3);
  EXPECT_TRUE(copy());
  EXPECT_EQ(test::readBytes(target_), "text");
}

TEST_F(FileCopy, LeavesNothingOpen) {
  test::writeBytes(source_, "text");
  copy();
  const std::size_t handles = test::handleCount();
  for (int i = 0; i < 10; ++i) {
    copy();
    copyFile(source_.c_str(), source_.c_str());
    copyFile(source_.c_str(), folder_.path().c_str());
    copyFile(folder_.path().c_str(), target_.c_str());
    fileSize(source_.c_str());
  }
  EXPECT_EQ(test::handleCount(), handles);
}

TEST_F(FileCopy, SizeIsThatOfTheFile) {
  test::writeBytes(source_, contentsOf(1025));
  EXPECT_EQ(fileSize(source_.c_str()), 1025);
}

TEST_F(FileCopy, SizeOfAnEmptyFileIsZero) {
  test::writeBytes(source_, "");
  EXPECT_EQ(fileSize(source_.c_str()), 0);
}

TEST_F(FileCopy, SizeOfAMissingFileIsZero) {
  EXPECT_EQ(fileSize(source_.c_str()), 0);
  EXPECT_EQ(fileSize(""), 0);
}

TEST_F(FileCopy, SizeOfAFolderIsZero) { EXPECT_EQ(fileSize(folder_.path().c_str()), 0); }

TEST_F(FileCopy, SizeFitsUpTo31Bits) {
  test::makeFileOfSize(source_, 0x7FFFFFFF);
  EXPECT_EQ(fileSize(source_.c_str()), 0x7FFFFFFF);
  test::makeFileOfSize(source_, 0x80000000);
  EXPECT_EQ(fileSize(source_.c_str()), 0);
  test::makeFileOfSize(source_, 0x100000001);
  EXPECT_EQ(fileSize(source_.c_str()), 0);
}

}  // namespace
}  // namespace tolvex::platform
