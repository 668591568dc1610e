// A disk in memory that fills up, linked in place of the platform's files.
#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace tolvex::test {

struct FakeDisk {
  std::map<std::string, std::string> files;
  std::size_t room = static_cast<std::size_t>(-1);  // bytes that can still be written
  int writes = 0;                                   // writes so far
  int questions = 0;                                // for the size of a file, so far
  bool sizesKnown = true;
  bool canBeEmptied = true;
};

extern FakeDisk disk;

}  // namespace tolvex::test
