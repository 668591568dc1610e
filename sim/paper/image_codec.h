// The codec of picture files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvex::sim {

/// Shades row by row from the top left, 0 black to 255 white.
struct GreyImage {
  int width;
  int height;
  std::vector<unsigned char> shades;
};

/// Decodes an uncompressed BMP, a PNG or a JPEG file over white. Nothing for any other bytes, and
/// for pictures of more than `maxSide` pixels on a side or `maxPixels` in all.
std::optional<GreyImage> decodeGrey(std::string_view bytes, int maxSide, long long maxPixels);

/// The picture, which has at least one pixel, as a PNG file.
std::string encodeGreyPng(const GreyImage& image);

}  // namespace tolvex::sim
