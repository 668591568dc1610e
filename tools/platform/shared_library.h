// Libraries that are loaded while the program runs.
#pragma once

#include <string>

namespace tolvex::ctl::platform {

/// What a loaded library is known by. It stays loaded until the process ends.
using LibraryHandle = void*;

/// Which of the two kinds of library the system loads.
extern const bool kOnWindows;

/// The names that the product's library goes by on this system, the first before the others.
extern const char* const kLibraryNames[];
extern const int kLibraryNameCount;

/// Loads the library at a path in UTF-8; a name without a folder is searched for as the system does
/// it. Gives null and the system's own words when that fails.
LibraryHandle loadLibrary(const std::string& path, std::string& problem);

/// The address of an exported function, null when there is none of this name.
void* findFunction(LibraryHandle library, const char* name);

/// Where the library came from, in UTF-8; empty when the system does not tell. `function` is one of
/// its functions.
std::string libraryPath(LibraryHandle library, void* function);

}  // namespace tolvex::ctl::platform
