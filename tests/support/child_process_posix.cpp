#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <thread>

#include "support/child_process.h"

extern char** environ;

namespace tolvex::test {

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  pid_t id = 0;
  if (posix_spawn(&id, program.c_str(), nullptr, nullptr, pointers.data(), environ) != 0) {
    throw std::runtime_error("cannot start " + program);
  }
  handle_ = id;
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept : handle_(other.handle_) {
  other.handle_ = 0;
}

ChildProcess::~ChildProcess() {
  if (handle_ == 0) return;
  kill(static_cast<pid_t>(handle_), SIGKILL);
  waitpid(static_cast<pid_t>(handle_), nullptr, 0);
}

bool ChildProcess::endsUntil(std::chrono::steady_clock::time_point limit, bool& well) {
  int state = 0;
  while (waitpid(static_cast<pid_t>(handle_), &state, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > limit) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  handle_ = 0;
  well = WIFEXITED(state) && WEXITSTATUS(state) == 0;
  return true;
}

std::string ownProgram() { return std::filesystem::read_symlink("/proc/self/exe").string(); }

}  // namespace tolvex::test
