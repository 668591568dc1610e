// A recording that is being made.
#pragma once

#include <fstream>
#include <functional>
#include <string>

#include "recording/recording.h"

namespace tolvex::sim {

/// Writes a recording line by line, so that it is there up to the last exchange however the program
/// ends. Not thread-safe.
class Recorder {
 public:
  /// Begins the file anew. `path` is UTF-8. Throws std::runtime_error with the reason, and what can
  /// be done, if that is not possible.
  explicit Recorder(const std::string& path);

  /// False, also later on, if the exchange could not be written; then the recording ends before it.
  bool add(const RecordedExchange& exchange);

 private:
  bool write(const std::string& line);

  std::ofstream file_;
};

}  // namespace tolvex::sim
