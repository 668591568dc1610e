// Pictures from the disk.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "paper/bitmap.h"

namespace tolvex::sim {

/// Largest file that is read, in bytes.
constexpr std::size_t kMaxPictureFile = std::size_t{64} << 20U;

/// Reads and decodes a picture file. `path` is UTF-8 on every system; a relative one counts from
/// the folder that the program works in. Nothing for what is no regular file, can not be read, is
/// too large, or is no picture that decodeImage() takes; then `warn` is told why, in one line such
/// as "cannot print logo.gif: it is no BMP, PNG or JPEG file".
std::optional<Bitmap> loadPicture(const std::string& path,
                                  const std::function<void(const std::string& text)>& warn);

}  // namespace tolvex::sim
