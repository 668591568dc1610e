// Files that the host names in its own character set.
#include <gtest/gtest.h>

#include "platform/ansi_texts.h"
#include "platform/file_copy.h"
#include "support/temporary_folder.h"

namespace tolvex::platform {
namespace {

class AnsiPath : public testing::TestWithParam<test::AnsiText> {
 protected:
  // The text's last word, so that nothing in it is special in a path.
  test::AnsiText inFolder(const std::string& ending) const {
    const test::AnsiText& text = GetParam();
    const std::string ansi = text.ansi.substr(text.ansi.find('\n') + 1);
    const std::string utf8 = text.utf8.substr(text.utf8.find('\n') + 1);
    return {folder_.file(ansi + ending), folder_.file(utf8 + ending)};
  }

  const test::TemporaryFolder folder_;
  const test::AnsiText source_ = inFolder(".bmp");
  const test::AnsiText target_ = inFolder(".copy");
};

TEST_P(AnsiPath, NamesTheSourceOfACopy) {
  test::writeBytes(test::pathOf(source_), "image");
  EXPECT_TRUE(copyFile(source_.ansi.c_str(), folder_.file("copy").c_str()));
  EXPECT_EQ(test::readBytes(folder_.file("copy")), "image");
}

TEST_P(AnsiPath, NamesTheTargetOfACopy) {
  test::writeBytes(folder_.file("source"), "image");
  EXPECT_TRUE(copyFile(folder_.file("source").c_str(), target_.ansi.c_str()));
  EXPECT_EQ(test::readBytes(test::pathOf(target_)), "image");
}

TEST_P(AnsiPath, NamesAFileThatIsMeasured) {
  test::writeBytes(test::pathOf(source_), "image");
  EXPECT_EQ(fileSize(source_.ansi.c_str()), 5);
}

TEST_P(AnsiPath, OfTheSourceAndTheTargetMayBeTheSame) {
  test::writeBytes(test::pathOf(source_), "image");
  EXPECT_TRUE(copyFile(source_.ansi.c_str(), source_.ansi.c_str()));
  EXPECT_EQ(test::readBytes(test::pathOf(source_)), "image");
}

INSTANTIATE_TEST_SUITE_P(Gbk, AnsiPath, testing::Values(test::kGbk));
INSTANTIATE_TEST_SUITE_P(Cp1251, AnsiPath, testing::Values(test::kCp1251));
INSTANTIATE_TEST_SUITE_P(Latin1, AnsiPath, testing::Values(test::kLatin1));

}  // namespace
}  // namespace tolvex::platform
