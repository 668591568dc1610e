// PNG files of pictures that are drawn again and again.
#pragma once

#include <memory>
#include <string>

#include "paper/bitmap.h"

namespace tolvex::sim {

/// The PNG file of one picture that does not change any more. Copies share it. Not thread-safe.
class KeptPng {
 public:
  /// The file of the picture, which has at least one dot: encoded when it is first asked for, and
  /// then the same one. It stays until it is forgotten.
  const std::string& of(const Bitmap& bitmap) const;

  /// Gives the memory back. The next call of of() encodes again.
  void forget() { std::string().swap(*file_); }

 private:
  std::shared_ptr<std::string> file_ = std::make_shared<std::string>();
};

}  // namespace tolvex::sim
