// Why a picture file can not be printed.
#pragma once

#include <string>
#include <string_view>

namespace tolvex::sim {

/// Why decodeImage() gives nothing for these bytes, and what to do about it if that is known: part
/// of a sentence for people, as in "the BMP file is compressed; save it uncompressed".
std::string whyNotDecoded(std::string_view bytes);

}  // namespace tolvex::sim
