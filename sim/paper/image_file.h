// Pictures as files, in memory.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "paper/bitmap.h"

namespace tolvex::sim {

/// Largest side of a picture that is decoded, in pixels.
constexpr int kMaxImageSide = 8192;

/// Most pixels of a picture that is decoded.
constexpr long long kMaxImagePixels = 16LL << 20U;

/// Decodes an uncompressed BMP, a PNG or a JPEG file, one dot for each pixel. What is transparent
/// is white; shades between black and white are dithered. Nothing for any other bytes, for broken
/// files, and for pictures beyond the limits above.
std::optional<Bitmap> decodeImage(std::string_view bytes);

/// The picture as a PNG file. It has at least one dot.
std::string encodePng(const Bitmap& bitmap);

}  // namespace tolvex::sim
