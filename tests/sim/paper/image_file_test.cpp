#include "paper/image_file.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "paper/stb.h"
#include "samples.h"

namespace tolvex::sim {
namespace {

const Rows kFlagOfThree = {"##.#.",  //
                           "#...#",  //
                           ".#.##"};

void appendTo(void* file, void* bytes, int count) {
  static_cast<std::string*>(file)->append(static_cast<const char*>(bytes),
                                          static_cast<std::size_t>(count));
}

// Samples row by row, `channels` to a pixel, as a file of some format.
struct Samples {
  int width;
  int height;
  int channels;
  std::vector<unsigned char> values;
};

std::string pngOf(const Samples& samples) {
  std::string file;
  stbi_write_png_to_func(appendTo, &file, samples.width, samples.height, samples.channels,
                         samples.values.data(), samples.width * samples.channels);
  return file;
}

std::string jpegOf(const Samples& samples) {
  std::string file;
  stbi_write_jpg_to_func(appendTo, &file, samples.width, samples.height, samples.channels,
                         samples.values.data(), 90);
  return file;
}

std::string bmpOf(const Samples& samples) {
  std::string file;
  stbi_write_bmp_to_func(appendTo, &file, samples.width, samples.height, samples.channels,
                         samples.values.data());
  return file;
}

Samples samplesOf(const Rows& rows) {
  Samples samples{static_cast<int>(rows.front().size()), static_cast<int>(rows.size()), 1, {}};
  for (const std::string& row : rows) {
    for (const char dot : row) samples.values.push_back(dot == '#' ? 0 : 255);
  }
  return samples;
}

Samples plain(int width, int height, unsigned char shade) {
  const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  return {width, height, 1, std::vector<unsigned char>(count, shade)};
}

std::optional<Rows> decoded(const std::string& file) {
  const auto bitmap = decodeImage(file);
  if (!bitmap) return std::nullopt;
  return rowsOf(*bitmap);
}

int darkDotsOf(const Bitmap& bitmap) {
  int count = 0;
  for (int y = 0; y < bitmap.height(); ++y) {
    for (int x = 0; x < bitmap.width(); ++x) count += bitmap.isDark(x, y) ? 1 : 0;
  }
  return count;
}

std::string bigEndian(std::uint32_t value) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U}) bytes += static_cast<char>(value >> shift);
  return bytes;
}

// A PNG file that says that it is of this size.
std::string pngThatClaims(std::uint32_t width, std::uint32_t height) {
  std::string file = encodePng(picture(kFlagOfThree));
  return file.replace(16, 8, bigEndian(width) + bigEndian(height));
}

TEST(DecodeImage, ReadsPng) { EXPECT_EQ(decoded(pngOf(samplesOf(kFlagOfThree))), kFlagOfThree); }

TEST(DecodeImage, ReadsBmp) { EXPECT_EQ(decoded(bmpOf(samplesOf(kFlagOfThree))), kFlagOfThree); }

TEST(DecodeImage, ReadsBmpOfOneBitPerPixelFromTheBottomUp) {
  const std::string file(
      "BM\x46\0\0\0\0\0\0\0\x3E\0\0\0"                              // size, offset of the pixels
      "\x28\0\0\0\x05\0\0\0\x02\0\0\0\x01\0\x01\0\0\0\0\0\0\0\0\0"  // 5 x 2, 1 bit
      "\0\0\0\0\0\0\0\0\x02\0\0\0\0\0\0\0"                          // 2 colours
      "\0\0\0\0\xFF\xFF\xFF\0"                                      // black, white
      "\x70\0\0\0\x20\0\0\0",
      70);
  EXPECT_EQ(decoded(file), (Rows{"##.##", "#...#"}));
}

TEST(DecodeImage, ReadsJpeg) {
  // Blocks of eight dots, so that nothing is lost.
  Rows rows;
  for (int y = 0; y < 16; ++y) rows.push_back(y < 8 ? "########........" : "................");
  EXPECT_EQ(decoded(jpegOf(samplesOf(rows))), rows);
}

TEST(DecodeImage, WeighsColoursByBrightness) {
  const std::vector<unsigned char> colours = {0, 0, 0, 255, 255, 255, 255, 255, 0, 0, 0, 40};
  EXPECT_EQ(decoded(pngOf({4, 1, 3, colours})), (Rows{"#..#"}));
}

TEST(DecodeImage, TakesWhatIsTransparentForWhite) {
  const std::vector<unsigned char> colours = {0, 0, 0, 255, 0,   0,   0,   0,
                                              0, 0, 0, 8,   255, 255, 255, 0};
  EXPECT_EQ(decoded(pngOf({4, 1, 4, colours})), (Rows{"#..."}));
  EXPECT_EQ(decoded(pngOf({2, 1, 2, {0, 255, 0, 0}})), (Rows{"#."}));
}

TEST(DecodeImage, DithersShadesInProportion) {
  for (const int shade : {64, 128, 192}) {
    const auto bitmap = decodeImage(pngOf(plain(64, 64, static_cast<unsigned char>(shade))));
    ASSERT_TRUE(bitmap);
    const double expected = 64 * 64 * (255 - shade) / 255.0;
    EXPECT_NEAR(darkDotsOf(*bitmap), expected, 64) << shade;
  }
}

TEST(DecodeImage, SpreadsTheDotsOfAShadeEvenly) {
  const auto bitmap = decodeImage(pngOf(plain(32, 32, 128)));
  ASSERT_TRUE(bitmap);
  for (int y = 0; y < 32; y += 8) {
    for (int x = 0; x < 32; x += 8) {
      int dark = 0;
      for (int i = 0; i < 64; ++i) dark += bitmap->isDark(x + i % 8, y + i / 8) ? 1 : 0;
      EXPECT_NEAR(dark, 32, 6) << x << "," << y;
    }
  }
}

TEST(DecodeImage, KeepsBlackAndWhiteCleanBesideShades) {
  // A white and a black half with a column of grey between them, as smoothed edges have.
  Samples samples = plain(9, 8, 255);
  for (std::size_t i = 0; i < samples.values.size(); ++i) {
    if (i % 9 == 4) samples.values[i] = 100;
    if (i % 9 > 4) samples.values[i] = 0;
  }
  const auto rows = decoded(pngOf(samples));
  ASSERT_TRUE(rows);
  for (const std::string& row : *rows) {
    EXPECT_EQ(row.substr(0, 4) + row.substr(5), "....####");
  }
}

TEST(DecodeImage, TakesAlmostBlackAndAlmostWhiteForPure) {
  const auto darkDotsAt = [](unsigned char shade) {
    return darkDotsOf(*decodeImage(pngOf(plain(64, 64, shade))));
  };
  EXPECT_EQ(darkDotsAt(16), 64 * 64);
  EXPECT_LT(darkDotsAt(17), 64 * 64);
  EXPECT_GT(darkDotsAt(238), 0);
  EXPECT_EQ(darkDotsAt(239), 0);
}

TEST(DecodeImage, RefusesWhatIsNoPicture) {
  for (const std::string& file :
       {std::string(), std::string("B"), std::string("BM"), std::string("not a picture at all"),
        std::string(1000, '\0'), std::string(1000, '\xFF'),
        std::string("GIF89a\1\0\1\0\0\0\0;", 14), std::string("P5 1 1 255\n\0", 12)}) {
    EXPECT_FALSE(decodeImage(file)) << file.size();
  }
}

TEST(DecodeImage, RefusesTruncatedFiles) {
  const Samples samples = samplesOf(Rows(20, "#..##.#.#.##...#.##."));
  for (const std::string& file : {pngOf(samples), bmpOf(samples), jpegOf(samples)}) {
    ASSERT_TRUE(decodeImage(file));
    for (std::size_t size = 0; size < file.size(); ++size) {
      EXPECT_FALSE(decodeImage(file.substr(0, size))) << size << " of " << file.size();
    }
  }
}

TEST(DecodeImage, SurvivesDamagedFiles) {
  const Samples samples = samplesOf(Rows(20, "#..##.#.#.##...#.##."));
  for (const std::string& file : {pngOf(samples), bmpOf(samples), jpegOf(samples)}) {
    for (std::size_t place = 0; place < file.size(); ++place) {
      for (const char value : {'\0', '\x7F', '\xFF'}) {
        std::string damaged = file;
        damaged[place] = value;
        const auto bitmap = decodeImage(damaged);
        if (bitmap) {
          EXPECT_LE(bitmap->width(), kMaxImageSide);
          EXPECT_LE(bitmap->height(), kMaxImageSide);
        }
      }
    }
  }
}

// A JPEG file with a table of so many codes, 255 to 510, before those that it uses.
std::string jpegWithCodes(int count) {
  std::string table(1, '\0');      // its name
  table += std::string(14, '\0');  // no codes of up to 14 bits
  table += '\xFF';                 // 255 of 15 bits
  table += static_cast<char>(count - 255);
  table += std::string(static_cast<std::size_t>(count), '\0');
  const std::size_t size = table.size() + 2;
  const std::string segment = std::string("\xFF\xC4") + static_cast<char>(size / 256) +
                              static_cast<char>(size % 256) + table;
  std::string file = jpegOf(plain(8, 8, 255));
  return file.insert(file.find("\xFF\xC4"), segment);
}

TEST(DecodeImage, RefusesJpegWithMoreCodesThanATableHolds) {
  EXPECT_TRUE(decodeImage(jpegWithCodes(256)));
  EXPECT_FALSE(decodeImage(jpegWithCodes(257)));
  EXPECT_FALSE(decodeImage(jpegWithCodes(510)));
}

TEST(DecodeImage, TakesPicturesUpToItsLimits) {
  EXPECT_TRUE(decodeImage(pngOf(plain(kMaxImageSide, 1, 255))));
  EXPECT_TRUE(decodeImage(pngOf(plain(1, kMaxImageSide, 255))));
  EXPECT_FALSE(decodeImage(pngOf(plain(kMaxImageSide + 1, 1, 255))));
  EXPECT_FALSE(decodeImage(pngOf(plain(1, kMaxImageSide + 1, 255))));
}

TEST(DecodeImage, RefusesClaimsOfHugeSizes) {
  EXPECT_FALSE(decodeImage(pngThatClaims(0, 0)));
  EXPECT_FALSE(decodeImage(pngThatClaims(0x7FFFFFFF, 0x7FFFFFFF)));
  EXPECT_FALSE(decodeImage(pngThatClaims(0xFFFFFFFF, 1)));
  EXPECT_FALSE(decodeImage(pngThatClaims(kMaxImageSide, kMaxImageSide)));
}

// Bits of a deflate stream, the lowest of each byte first.
class BitWriter {
 public:
  void add(std::uint32_t bits, int count) {
    for (int i = 0; i < count; ++i) {
      if (used_ % 8 == 0) bytes_ += '\0';
      const unsigned bit = (bits >> static_cast<unsigned>(i)) & 1U;
      bytes_.back() = static_cast<char>(static_cast<unsigned char>(bytes_.back()) |
                                        (bit << static_cast<unsigned>(used_ % 8)));
      ++used_;
    }
  }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
  int used_ = 0;
};

TEST(DecodeImage, RefusesAFileThatUnpacksToManyTimesThePicture) {
  constexpr int kCopies = 1'200'000;  // of 258 bytes: 310 MB
  BitWriter stream;
  stream.add(0x0178, 16);  // zlib's header
  stream.add(0b011, 3);    // the last block, with the fixed codes
  stream.add(0x0C, 8);     // a zero: 00110000, the highest bit first
  for (int i = 0; i < kCopies; ++i) stream.add(0b00000'10100011, 13);  // 258 bytes from one before
  stream.add(0, 7);                                                    // the end
  stream.add(0, 32);
  const std::string header = bigEndian(1) + bigEndian(1) + std::string("\x08\0\0\0\0", 5);
  const auto chunk = [](const std::string& type, const std::string& data) {
    return bigEndian(static_cast<std::uint32_t>(data.size())) + type + data + bigEndian(0);
  };
  EXPECT_FALSE(decodeImage("\x89PNG\r\n\x1A\n" + chunk("IHDR", header) +
                           chunk("IDAT", stream.bytes()) + chunk("IEND", "")));
}

TEST(EncodePng, IsReadBackAsItWas) {
  EXPECT_EQ(decoded(encodePng(picture(kFlagOfThree))), kFlagOfThree);
  EXPECT_EQ(decoded(encodePng(picture({"#"}))), Rows{"#"});
  EXPECT_EQ(encodePng(picture(kFlagOfThree)).substr(0, 8), "\x89PNG\r\n\x1A\n");
}

}  // namespace
}  // namespace tolvex::sim
