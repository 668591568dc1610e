// The built simulator, in a process of its own.
#pragma once

#include <sys/types.h>

#include <string>

namespace bench::scale {

class Simulator {
 public:
  // Returns when it is ready. Its output leads nowhere from then on. Throws std::runtime_error.
  Simulator(const std::string& path, const std::string& address);
  ~Simulator();
  Simulator(const Simulator&) = delete;
  Simulator& operator=(const Simulator&) = delete;

  pid_t process() const { return process_; }

 private:
  pid_t process_ = -1;
};

}  // namespace bench::scale
