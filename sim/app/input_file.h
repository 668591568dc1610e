// Files that are read as a whole.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace tolvex::sim {

/// Reads a file. Throws std::runtime_error, whose text is the reason ("there is no such file in
/// /home/till"), for one that is missing, can not be read, has more than `mostBytes` or is none:
/// folders, and devices, which never end.
std::string readInputFile(const std::filesystem::path& path, std::size_t mostBytes);

}  // namespace tolvex::sim
