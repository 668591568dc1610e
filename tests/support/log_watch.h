// Watches the library's log from inside a test.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tolvex {

// Makes the process's logger ("DLL"), in a folder of its own, where there is none yet, and puts the
// thresholds of the modules back to the default.
class LogWatch {
 public:
  LogWatch();

  // What was logged since this object was made: each record whole, but for its time stamp, which is
  // checked and taken off. A record without a proper one comes whole, and so equals nothing that a
  // test expects.
  std::vector<std::string> records() const;

 private:
  std::size_t start_;
};

}  // namespace tolvex
