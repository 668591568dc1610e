#include <gtest/gtest.h>

#include <string>

#include "platform/file.h"
#include "support/os_support.h"
#include "support/temporary_folder.h"

namespace tolvex::platform {
namespace {

const char kNonAsciiName[] = "K\xC3\xA4sse \xE7\xA7\xA4.txt";

class WholeFile : public testing::Test {
 protected:
  const test::TemporaryFolder folder_;
  const std::string path_ = folder_.file("a.txt");
  std::string text_ = "before";
};

TEST_F(WholeFile, IsRead) {
  test::writeBytes(path_, "text");
  EXPECT_TRUE(readFile(path_.c_str(), text_));
  EXPECT_EQ(text_, "text");
}

TEST_F(WholeFile, IsReadByteForByte) {
  const std::string bytes("a\r\nb\n\0\x1A\xFF", 8);
  test::writeBytes(path_, bytes);
  EXPECT_TRUE(readFile(path_.c_str(), text_));
  EXPECT_EQ(text_, bytes);
}

TEST_F(WholeFile, MayBeEmpty) {
  test::writeBytes(path_, "");
  EXPECT_TRUE(readFile(path_.c_str(), text_));
  EXPECT_EQ(text_, "");
}

TEST_F(WholeFile, OfAnyLengthIsReadWhole) {
  for (const std::size_t length : {4095u, 4096u, 4097u, 1000000u}) {
    test::writeBytes(path_, std::string(length, 'x') + "y");
    EXPECT_TRUE(readFile(path_.c_str(), text_));
    EXPECT_EQ(text_, std::string(length, 'x') + "y");
  }
}

TEST_F(WholeFile, IsReadWhileAnotherWritesToIt) {
  AppendFile writer;
  ASSERT_TRUE(writer.open(path_.c_str()));
  writer.write("text", 4);
  EXPECT_TRUE(readFile(path_.c_str(), text_));
  EXPECT_EQ(text_, "text");
}

TEST_F(WholeFile, MayHaveANonAsciiName) {
  test::writeBytes(folder_.file(kNonAsciiName), "text");
  EXPECT_TRUE(readFile(folder_.file(kNonAsciiName).c_str(), text_));
  EXPECT_EQ(text_, "text");
}

TEST_F(WholeFile, ThatIsMissingIsNotRead) {
  EXPECT_FALSE(readFile(path_.c_str(), text_));
  EXPECT_FALSE(test::exists(path_));
}

TEST_F(WholeFile, IsNoFolder) { EXPECT_FALSE(readFile(folder_.path().c_str(), text_)); }

TEST_F(WholeFile, NeedsAPath) { EXPECT_FALSE(readFile("", text_)); }

TEST_F(WholeFile, IsClosedAfterwards) {
  test::writeBytes(path_, "text");
  readFile(path_.c_str(), text_);
  truncateFile(path_.c_str());
  const std::size_t handles = test::handleCount();
  for (int i = 0; i < 10; ++i) {
    readFile(path_.c_str(), text_);
    readFile(folder_.path().c_str(), text_);
    truncateFile(path_.c_str());
  }
  EXPECT_EQ(test::handleCount(), handles);
}

TEST_F(WholeFile, IsEmptied) {
  test::writeBytes(path_, "text");
  EXPECT_TRUE(truncateFile(path_.c_str()));
  EXPECT_EQ(test::readBytes(path_), "");
}

TEST_F(WholeFile, IsMadeByEmptyingWhereItIsMissing) {
  EXPECT_TRUE(truncateFile(path_.c_str()));
  EXPECT_EQ(test::readBytes(path_), "");
}

TEST_F(WholeFile, IsEmptiedUnderANonAsciiName) {
  test::writeBytes(folder_.file(kNonAsciiName), "text");
  EXPECT_TRUE(truncateFile(folder_.file(kNonAsciiName).c_str()));
  EXPECT_EQ(test::readBytes(folder_.file(kNonAsciiName)), "");
}

TEST_F(WholeFile, InAMissingFolderIsNotMade) {
  EXPECT_FALSE(truncateFile(folder_.file("missing/a.txt").c_str()));
  EXPECT_FALSE(test::exists(folder_.file("missing")));
}

TEST_F(WholeFile, FolderIsNotEmptied) {
  EXPECT_FALSE(truncateFile(folder_.path().c_str()));
  EXPECT_TRUE(test::exists(folder_.path()));
}

}  // namespace
}  // namespace tolvex::platform
