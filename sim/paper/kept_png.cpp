#include "paper/kept_png.h"

#include "paper/image_file.h"

namespace tolvex::sim {

const std::string& KeptPng::of(const Bitmap& bitmap) const {
  if (file_->empty()) *file_ = encodePng(bitmap);
  return *file_;
}

}  // namespace tolvex::sim
