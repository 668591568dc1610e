#include "app/picture_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "paper/image_file.h"
#include "sim/paper/samples.h"

namespace tolvex::sim {
namespace {

namespace fs = std::filesystem;

const Rows kFlag = {"##.#.",  //
                    "#...#"};

class LoadPicture : public testing::Test {
 protected:
  LoadPicture() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  ~LoadPicture() override {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }

  // The UTF-8 path of the file that holds the bytes.
  std::string write(const std::string& name, const std::string& bytes) const {
    const auto path = folder_ / fs::u8path(name);
    std::ofstream(path, std::ios::binary) << bytes;
    return path.u8string();
  }

  std::optional<Bitmap> load(const std::string& path) {
    return loadPicture(path, [this](const std::string& text) { warnings_.push_back(text); });
  }

  // What is said of a path that gives no picture.
  std::string refusalOf(const std::string& path) {
    warnings_.clear();
    EXPECT_FALSE(load(path));
    return warnings_.size() == 1 ? warnings_[0] : std::to_string(warnings_.size()) + " warnings";
  }

  fs::path folder_ =
      fs::current_path() / (std::string("picture_files_test.") +
                            testing::UnitTest::GetInstance()->current_test_info()->name());
  std::vector<std::string> warnings_;
};

TEST_F(LoadPicture, DecodesTheFile) {
  const auto bitmap = load(write("flag.png", encodePng(picture(kFlag))));
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(rowsOf(*bitmap), kFlag);
  EXPECT_EQ(warnings_, std::vector<std::string>{});
}

TEST_F(LoadPicture, TakesPathsInUtf8) {
  EXPECT_TRUE(load(write("K\u00F6ln \u4EF7\u683C.png", encodePng(picture(kFlag)))));
}

TEST_F(LoadPicture, TakesPathsFromTheWorkingFolder) {
  write("flag.png", encodePng(picture(kFlag)));
  EXPECT_TRUE(load((folder_.filename() / "flag.png").u8string()));
}

TEST_F(LoadPicture, SaysThatAFileIsMissing) {
  const std::string path = (folder_ / "missing.png").u8string();
  EXPECT_EQ(refusalOf(path), "cannot print " + path + ": there is no such file");
  const std::string here = fs::current_path().u8string();
  EXPECT_EQ(refusalOf("no/missing.png"),
            "cannot print no/missing.png: there is no such file in " + here);
}

TEST_F(LoadPicture, SaysThatItIsAFolder) {
  EXPECT_EQ(refusalOf(folder_.u8string()),
            "cannot print " + folder_.u8string() + ": it is a folder");
}

TEST_F(LoadPicture, SaysWhatTheDecoderDoesNotTake) {
  const std::string empty = write("empty.png", "");
  EXPECT_EQ(refusalOf(empty), "cannot print " + empty + ": it is no BMP, PNG or JPEG file");
  const std::string gif = write("logo.gif", "GIF89a");
  EXPECT_EQ(refusalOf(gif), "cannot print " + gif + ": it is no BMP, PNG or JPEG file");
}

TEST_F(LoadPicture, RefusesPathsThatAreNone) {
  EXPECT_EQ(refusalOf(""), "cannot print : the name of the file is empty");
  const std::string path = write("flag.png", encodePng(picture(kFlag)));
  EXPECT_EQ(refusalOf(path + std::string("\0.bmp", 5)),
            "cannot print " + path + "\\x00.bmp: its name contains a zero byte");
  EXPECT_EQ(refusalOf("\xFF\xC3.png").rfind("cannot print \\xff\\xc3.png: ", 0), 0U);
  EXPECT_EQ(refusalOf(std::string(100'000, 'x'))
                .rfind("cannot print " + std::string(400, 'x') + "... (100000 bytes): ", 0),
            0U);
}

TEST_F(LoadPicture, ReadsFilesUpToItsLimit) {
  const std::string path = write("flag.png", encodePng(picture(kFlag)));
  fs::resize_file(fs::u8path(path), static_cast<std::uintmax_t>(kMaxPictureFile));
  EXPECT_TRUE(load(path));
  fs::resize_file(fs::u8path(path), static_cast<std::uintmax_t>(kMaxPictureFile) + 1);
  EXPECT_EQ(refusalOf(path), "cannot print " + path + ": the file has more than 64 MiB");
}

}  // namespace
}  // namespace tolvex::sim
