#include "paper/picture_refusal.h"

#include "paper/image_file.h"
#include "paper/picture_check.h"
#include "paper/stb.h"

namespace tolvex::sim {

namespace {

struct Size {
  int width = 0;
  int height = 0;

  bool isAllowed() const {
    return width <= kMaxImageSide && height <= kMaxImageSide &&
           static_cast<long long>(width) * height <= kMaxImagePixels;
  }
};

// The size that a sound picture says it has; nothing in either direction if it can not be told.
Size sizeOf(std::string_view bytes) {
  Size size;
  int channels = 0;
  stbi_info_from_memory(reinterpret_cast<const stbi_uc*>(bytes.data()),
                        static_cast<int>(bytes.size()), &size.width, &size.height, &channels);
  return size;
}

std::string sideBySide(int width, int height) {
  return std::to_string(width) + " x " + std::to_string(height);
}

}  // namespace

std::string whyNotDecoded(std::string_view bytes) {
  if (!hasKnownFormat(bytes)) return "it is no BMP, PNG or JPEG file";
  if (isCompressedBmp(bytes)) return "the BMP file is compressed; save it uncompressed";
  if (!isSoundPicture(bytes)) return "the file is damaged";
  if (const Size size = sizeOf(bytes); !size.isAllowed()) {
    return "it has " + sideBySide(size.width, size.height) + " pixels; " +
           std::to_string(kMaxImageSide) + " on a side and " + std::to_string(kMaxImagePixels) +
           " in all are allowed";
  }
  return "the file is damaged, or of a kind that is not supported";
}

}  // namespace tolvex::sim
