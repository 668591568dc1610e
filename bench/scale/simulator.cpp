#include "scale/simulator.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <string>

namespace bench::scale {
namespace {

[[noreturn]] void becomeSimulator(const std::string& path, const std::string& address, int output) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);  // it goes with whoever measures, however that ends
  dup2(output, STDOUT_FILENO);
  execl(path.c_str(), path.c_str(), "--address", address.c_str(), "--no-web", "--quiet", "--load",
        "1.25", "--settling", "0", static_cast<char*>(nullptr));
  _exit(127);
}

// Whether the simulator says that it is ready before its output ends.
bool isReady(int output) {
  std::string said;
  char block[512];
  for (;;) {
    const ssize_t count = read(output, block, sizeof(block));
    if (count <= 0) return false;
    said.append(block, static_cast<std::size_t>(count));
    if (said.find("zelkad-sim: ready\n") != std::string::npos) return true;
  }
}

}  // namespace

Simulator::Simulator(const std::string& path, const std::string& address) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  std::fflush(stdout);
  process_ = fork();
  if (process_ == 0) becomeSimulator(path, address, ends[1]);
  close(ends[1]);
  const bool ready = process_ > 0 && isReady(ends[0]);
  close(ends[0]);
  if (!ready) throw std::runtime_error(path + " does not start");
}

// With --quiet it says no more than "stopped", which nobody reads: a closed pipe would end it.
Simulator::~Simulator() {
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
}

}  // namespace bench::scale
