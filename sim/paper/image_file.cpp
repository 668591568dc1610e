#include "paper/image_file.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "paper/image_codec.h"

namespace tolvex::sim {

namespace {

constexpr int kWhiteShade = 255;
constexpr int kMiddle = 128;
// Lossy files leave specks of almost white around what is black.
constexpr int kAlmost = 16;

// Floyd and Steinberg's diffusion: what a dot is too dark or too light, its neighbours make good.
// What is black or white stays so and passes nothing on, so that logos keep their edges.
class Dithering {
 public:
  explicit Dithering(const GreyImage& image)
      : image_(image), errors_(rowSize()), errorsBelow_(rowSize()) {}

  Bitmap run() {
    Bitmap bitmap(image_.width, image_.height);
    for (int y = 0; y < image_.height; ++y) {
      for (int x = 0; x < image_.width; ++x) bitmap.set(x, y, isDark(x, y));
      errors_.swap(errorsBelow_);
      std::fill(errorsBelow_.begin(), errorsBelow_.end(), 0);
    }
    return bitmap;
  }

 private:
  // One more on either side, so that errors at the edges need no care.
  std::size_t rowSize() const { return static_cast<std::size_t>(image_.width) + 2; }

  bool isDark(int x, int y) {
    const auto column = static_cast<std::size_t>(x);
    const int shade =
        image_
            .shades[static_cast<std::size_t>(y) * static_cast<std::size_t>(image_.width) + column];
    if (shade <= kAlmost) return true;
    if (shade >= kWhiteShade - kAlmost) return false;
    const std::size_t here = column + 1;
    const int wanted = shade + errors_[here] / 16;
    const bool dark = wanted < kMiddle;
    const int error = wanted - (dark ? 0 : kWhiteShade);
    errors_[here + 1] += error * 7;
    errorsBelow_[here - 1] += error * 3;
    errorsBelow_[here] += error * 5;
    errorsBelow_[here + 1] += error;
    return dark;
  }

  const GreyImage& image_;
  std::vector<int> errors_;  // in sixteenths
  std::vector<int> errorsBelow_;
};

}  // namespace

std::optional<Bitmap> decodeImage(std::string_view bytes) {
  const auto image = decodeGrey(bytes, kMaxImageSide, kMaxImagePixels);
  if (!image) return std::nullopt;
  return Dithering(*image).run();
}

std::string encodePng(const Bitmap& bitmap) {
  GreyImage image{bitmap.width(), bitmap.height(), {}};
  image.shades.reserve(static_cast<std::size_t>(bitmap.width()) *
                       static_cast<std::size_t>(bitmap.height()));
  for (int y = 0; y < bitmap.height(); ++y) {
    for (int x = 0; x < bitmap.width(); ++x) {
      image.shades.push_back(bitmap.isDark(x, y) ? 0 : kWhiteShade);
    }
  }
  return encodeGreyPng(image);
}

}  // namespace tolvex::sim
