// Where the pictures come from that clients name.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "paper/bitmap.h"

namespace tolvex::sim {

/// Gives the picture of a file name as clients write it, in UTF-8; nothing if there is none.
using PictureLoader = std::function<std::optional<Bitmap>(const std::string& fileName)>;

}  // namespace tolvex::sim
