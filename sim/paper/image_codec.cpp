#include "paper/image_codec.h"

#include <cstddef>
#include <limits>
#include <memory>

#include "paper/stb.h"

namespace tolvex::sim {

namespace {

constexpr int kShadeAndAlpha = 2;
constexpr int kWhite = 255;

struct FreePixels {
  void operator()(stbi_uc* pixels) const { stbi_image_free(pixels); }
};
using Pixels = std::unique_ptr<stbi_uc, FreePixels>;

// The decoder makes up what is missing at the end of some files. A scan of a JPEG file is
// followed by the marker for the end of the picture.
bool isWholeJpeg(std::string_view bytes) {
  const std::size_t end = bytes.rfind("\xFF\xD9");
  const std::size_t scan = bytes.rfind("\xFF\xDA");
  return end != std::string_view::npos && scan != std::string_view::npos && scan < end;
}

// A number of a BMP file, 0 beyond its end.
unsigned long long littleEndian(std::string_view bytes, std::size_t offset, std::size_t size) {
  unsigned long long value = 0;
  for (std::size_t i = size; i-- > 0;) {
    const std::size_t place = offset + i;
    value = (value << 8U) | (place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0U);
  }
  return value;
}

// A BMP file holds rows of whole double words from the offset that it names on.
bool isWholeBmp(std::string_view bytes, int width, int height) {
  constexpr std::size_t kOldHeaderSize = 12;
  const bool isOld = littleEndian(bytes, 14, 4) == kOldHeaderSize;
  const unsigned long long bitsPerPixel = littleEndian(bytes, isOld ? 24 : 28, 2);
  const unsigned long long rowSize =
      (static_cast<unsigned long long>(width) * bitsPerPixel + 31) / 32 * 4;
  const unsigned long long start = littleEndian(bytes, 10, 4);
  return start + rowSize * static_cast<unsigned long long>(height) <= bytes.size();
}

// Its last chunk is a name and a check sum of four bytes each.
bool isWholePng(std::string_view bytes) {
  const std::size_t end = bytes.rfind("IEND");
  return end != std::string_view::npos && bytes.size() - end >= 8;
}

bool isWhole(std::string_view bytes, int width, int height) {
  if (bytes.substr(0, 2) == "\xFF\xD8") return isWholeJpeg(bytes);
  if (bytes.substr(0, 2) == "BM") return isWholeBmp(bytes, width, height);
  return isWholePng(bytes);
}

unsigned char overWhite(int shade, int alpha) {
  return static_cast<unsigned char>((shade * alpha + kWhite * (kWhite - alpha)) / kWhite);
}

GreyImage greyOf(const Pixels& pixels, int width, int height) {
  GreyImage image{width, height, {}};
  const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  image.shades.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const stbi_uc* pixel = pixels.get() + i * kShadeAndAlpha;
    image.shades.push_back(overWhite(pixel[0], pixel[1]));
  }
  return image;
}

void appendTo(void* file, void* bytes, int count) {
  static_cast<std::string*>(file)->append(static_cast<const char*>(bytes),
                                          static_cast<std::size_t>(count));
}

}  // namespace

std::optional<GreyImage> decodeGrey(std::string_view bytes, int maxSide, long long maxPixels) {
  if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) return std::nullopt;
  const auto* file = reinterpret_cast<const stbi_uc*>(bytes.data());
  const int size = static_cast<int>(bytes.size());
  int width = 0;
  int height = 0;
  int channels = 0;
  if (stbi_info_from_memory(file, size, &width, &height, &channels) == 0) return std::nullopt;
  if (width < 1 || height < 1 || width > maxSide || height > maxSide) return std::nullopt;
  if (static_cast<long long>(width) * height > maxPixels) return std::nullopt;
  if (!isWhole(bytes, width, height)) return std::nullopt;
  const Pixels pixels(
      stbi_load_from_memory(file, size, &width, &height, &channels, kShadeAndAlpha));
  if (!pixels) return std::nullopt;
  return greyOf(pixels, width, height);
}

std::string encodeGreyPng(const GreyImage& image) {
  std::string file;
  stbi_write_png_to_func(appendTo, &file, image.width, image.height, 1, image.shades.data(),
                         image.width);
  return file;
}

}  // namespace tolvex::sim
