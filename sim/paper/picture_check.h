// A look at picture files before the decoder takes them.
#pragma once

#include <string_view>

namespace tolvex::sim {

/// True for what begins as a BMP, PNG or JPEG file does.
bool hasKnownFormat(std::string_view bytes);

/// True for a BMP file whose pixels are packed, which the decoder does not take.
bool isCompressedBmp(std::string_view bytes);

/// True for a BMP, PNG or JPEG file that is there to its end and, if it is a JPEG file, has no code
/// tables larger than the format allows. The decoder makes up what is missing at the end of some
/// files, and writes large tables over other memory of its own.
bool isSoundPicture(std::string_view bytes);

}  // namespace tolvex::sim
