#include "paper/image_codec.h"

#include <cstddef>
#include <limits>
#include <memory>

#include "paper/picture_check.h"
#include "paper/stb.h"

namespace tolvex::sim {

namespace {

constexpr int kShadeAndAlpha = 2;
constexpr int kWhite = 255;

struct FreePixels {
  void operator()(stbi_uc* pixels) const { stbi_image_free(pixels); }
};
using Pixels = std::unique_ptr<stbi_uc, FreePixels>;

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
  if (!isSoundPicture(bytes)) return std::nullopt;
  const auto* file = reinterpret_cast<const stbi_uc*>(bytes.data());
  const int size = static_cast<int>(bytes.size());
  int width = 0;
  int height = 0;
  int channels = 0;
  if (stbi_info_from_memory(file, size, &width, &height, &channels) == 0) return std::nullopt;
  if (width < 1 || height < 1 || width > maxSide || height > maxSide) return std::nullopt;
  if (static_cast<long long>(width) * height > maxPixels) return std::nullopt;
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
