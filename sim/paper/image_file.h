// Reading and writing picture files.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "paper/bitmap.h"

namespace tolvex::sim {

/// Largest side of a picture that is decoded, in pixels.
constexpr int kMaxImageSide = 8192;

/// Decodes a BMP, PNG or JPEG file, one dot for each pixel. What is transparent is white; shades
/// between black and white are dithered. Nothing for any other bytes, and for pictures with a side
/// of more than kMaxImageSide.
std::optional<Bitmap> decodeImage(std::string_view bytes);

/// Reads and decodes the file. `path` is UTF-8 on every system.
std::optional<Bitmap> readImage(const std::string& path);

/// The picture as a PNG file.
std::string encodePng(const Bitmap& bitmap);

}  // namespace tolvex::sim
