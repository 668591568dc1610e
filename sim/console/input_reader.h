// Standard input, read on a thread of its own.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace tolvex::sim {

/// Hands over the lines of standard input as they come. The thread that reads can not be woken, so
/// it is never joined: after the destructor it may stay blocked until the process ends, and does
/// nothing any more if it wakes up.
class InputReader {
 public:
  /// Starts reading. `onLine` is called on the reading thread, for each line without its end;
  /// nothing tells the end of the input. It must not block.
  explicit InputReader(std::function<void(std::string line)> onLine);

  /// Waits for a call of `onLine` that is under way; there is none afterwards.
  ~InputReader();
  InputReader(const InputReader&) = delete;
  InputReader& operator=(const InputReader&) = delete;

 private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
  std::thread thread_;
};

}  // namespace tolvex::sim
