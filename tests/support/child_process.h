// Programs that a test starts and waits for.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace tolvex::test {

// A program that runs; it writes where this one writes. Ended by force when this object goes.
class ChildProcess {
 public:
  // Throws std::runtime_error when it cannot be started. Arguments have no quotes in them.
  ChildProcess(const std::string& program, const std::vector<std::string>& arguments);
  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(ChildProcess&&) = delete;
  ~ChildProcess();

  // Waits for its end; false when the time is over. The program's exit code is 0 or it failed.
  bool endsUntil(std::chrono::steady_clock::time_point limit, bool& well);

 private:
  std::intptr_t handle_;  // of the system; 0 when it has ended
};

// The path of the program that runs.
std::string ownProgram();

}  // namespace tolvex::test
