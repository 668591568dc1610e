#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "support/os_child.h"

extern char** environ;

namespace tolvex::test::os {
namespace {

struct Pipe {
  Pipe() {
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  int ends[2];
};

std::vector<std::string> variables(const Environment& environment) {
  std::vector<std::string> texts;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string text = *variable;
    if (environment.count(text.substr(0, text.find('='))) == 0) texts.push_back(text);
  }
  for (const auto& [name, value] : environment) {
    if (value) texts.push_back(name + "=" + *value);
  }
  return texts;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> list;
  list.reserve(texts.size() + 1);
  for (std::string& text : texts) list.push_back(text.data());
  list.push_back(nullptr);
  return list;
}

int number(std::intptr_t stream) { return static_cast<int>(stream); }

}  // namespace

Process start(const std::vector<std::string>& command, const Environment& environment) {
  ::signal(SIGPIPE, SIG_IGN);
  const Pipe input;
  const Pipe output;
  const Pipe error;
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, input.ends[0], STDIN_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, output.ends[1], STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, error.ends[1], STDERR_FILENO);
  posix_spawnattr_t attributes;
  ::posix_spawnattr_init(&attributes);
  sigset_t defaults;
  ::sigemptyset(&defaults);
  ::sigaddset(&defaults, SIGPIPE);
  ::posix_spawnattr_setsigdefault(&attributes, &defaults);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  std::vector<std::string> words = command;
  std::vector<std::string> texts = variables(environment);
  pid_t pid = 0;
  const int problem = ::posix_spawn(&pid, words.front().c_str(), &actions, &attributes,
                                    pointers(words).data(), pointers(texts).data());
  ::posix_spawn_file_actions_destroy(&actions);
  ::posix_spawnattr_destroy(&attributes);
  ::close(input.ends[0]);
  ::close(output.ends[1]);
  ::close(error.ends[1]);
  if (problem != 0) throw std::runtime_error(words.front() + ": " + std::strerror(problem));
  return {pid, input.ends[1], output.ends[0], error.ends[0]};
}

std::size_t read(std::intptr_t stream, char* buffer, std::size_t size) {
  ssize_t count = 0;
  do {
    count = ::read(number(stream), buffer, size);
  } while (count < 0 && errno == EINTR);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool write(std::intptr_t stream, const std::string& text) {
  std::size_t done = 0;
  while (done < text.size()) {
    const ssize_t count = ::write(number(stream), text.data() + done, text.size() - done);
    if (count < 0 && errno != EINTR) return false;
    if (count > 0) done += static_cast<std::size_t>(count);
  }
  return true;
}

void close(std::intptr_t stream) { ::close(number(stream)); }

void kill(const Process& process) { ::kill(static_cast<pid_t>(process.process), SIGKILL); }

int wait(const Process& process) {
  int status = 0;
  while (::waitpid(static_cast<pid_t>(process.process), &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace tolvex::test::os
