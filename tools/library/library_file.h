// What the file of a library tells about itself.
#pragma once

#include <string>

namespace tolvex::ctl {

/// Why the file at the path (UTF-8) can not be a library for this program, as "it is a 32-bit (x86)
/// Windows library, but this program needs x64"; empty when nothing speaks against it.
std::string unfitness(const std::string& path);

/// The version that the library writes at the head of its log, empty when the file holds none.
std::string versionInFile(const std::string& path);

}  // namespace tolvex::ctl
