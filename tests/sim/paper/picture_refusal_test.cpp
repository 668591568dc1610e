#include "paper/picture_refusal.h"

#include <gtest/gtest.h>

#include "paper/image_file.h"
#include "samples.h"

namespace tolvex::sim {
namespace {

// A BMP file of 2 x 1 pixels of 8 bits, whose pixels are written in the way of this number.
std::string bmp(char compression) {
  std::string file(
      "BM\x42\0\0\0\0\0\0\0\x3E\0\0\0"                              // size, offset of the pixels
      "\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x08\0\0\0\0\0\0\0\0\0"  // 2 x 1, 8 bits
      "\0\0\0\0\0\0\0\0\x02\0\0\0\0\0\0\0"                          // 2 colours
      "\0\0\0\0\xFF\xFF\xFF\0"                                      // black, white
      "\0\x01\0\0",
      66);
  file[30] = compression;
  return file;
}

std::string refusalOf(const std::string& file) {
  EXPECT_FALSE(decodeImage(file));
  return whyNotDecoded(file);
}

TEST(WhyNotDecoded, NamesTheFormatsThatAreTaken) {
  for (const char* file : {"", "B", "GIF89a", "P5 1 1 255\n", "II*"}) {
    EXPECT_EQ(refusalOf(file), "it is no BMP, PNG or JPEG file") << file;
  }
}

TEST(WhyNotDecoded, SaysHowToSaveACompressedBmp) {
  EXPECT_TRUE(decodeImage(bmp(0)));
  for (const char compression : {'\x01', '\x02', '\x04', '\x05'}) {
    EXPECT_EQ(refusalOf(bmp(compression)), "the BMP file is compressed; save it uncompressed");
  }
}

TEST(WhyNotDecoded, TellsDamage) {
  const std::string png = encodePng(picture({"#."}));
  EXPECT_EQ(refusalOf(png.substr(0, png.size() - 10)), "the file is damaged");
  EXPECT_EQ(refusalOf("BM"), "the file is damaged, or of a kind that is not supported");
  EXPECT_EQ(refusalOf(bmp(0).substr(0, 64)), "the file is damaged");
  EXPECT_EQ(refusalOf("\xFF\xD8\xFF"), "the file is damaged");
}

TEST(WhyNotDecoded, TellsTheSizeOfLargePictures) {
  EXPECT_EQ(refusalOf(encodePng(Bitmap(8193, 1))),
            "it has 8193 x 1 pixels; 8192 on a side and 16777216 in all are allowed");
  EXPECT_EQ(refusalOf(encodePng(Bitmap(1, 9000))),
            "it has 1 x 9000 pixels; 8192 on a side and 16777216 in all are allowed");
  EXPECT_EQ(refusalOf(encodePng(Bitmap(4097, 4097))),
            "it has 4097 x 4097 pixels; 8192 on a side and 16777216 in all are allowed");
}

}  // namespace
}  // namespace tolvex::sim
