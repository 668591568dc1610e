// The pages and sources that the tests of the documentation read.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace tolvex::test {

// A file of the project, by its path in it.
inline std::filesystem::path source(const char* path) {
  return std::filesystem::path(TOLVEX_SOURCE_FOLDER) / path;
}

inline std::string textOf(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

}  // namespace tolvex::test
