// What the unit tests need of the operating system and the standard library does not offer.
#pragma once

#include <cstddef>
#include <string>

namespace tolvex::test {

// What a line of a log file ends in on this system.
extern const std::string kLineEnd;

unsigned long processId();

// The open files, sockets and the like of this process.
std::size_t handleCount();

// Makes the logger's default folder (under the given folder where the system lets a test say so),
// without any log file in it, and returns its path.
std::string emptyDefaultLogFolder(const std::string& parent);

// The same for the library's folder, with its log files and its image cache.
std::string emptyLibraryFolder(const std::string& parent);

}  // namespace tolvex::test
