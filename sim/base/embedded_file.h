// Files of the sources that the program carries within itself: the page and the description of the
// API. Which ones, sim/CMakeLists.txt says.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tolvex::sim {

/// Both texts are static.
struct EmbeddedFile {
  /// The path below sim/: "web/index.html".
  std::string_view name;
  std::string_view bytes;
};

const std::vector<EmbeddedFile>& embeddedFiles();

/// Null when there is no file of that name.
inline const EmbeddedFile* findEmbeddedFile(std::string_view name) {
  for (const EmbeddedFile& file : embeddedFiles()) {
    if (file.name == name) return &file;
  }
  return nullptr;
}

}  // namespace tolvex::sim
