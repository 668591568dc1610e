#include "child.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <system_error>

namespace bench::scale {
namespace {

void writeAll(int file, const std::string& text) {
  for (std::size_t done = 0; done < text.size();) {
    const ssize_t count = write(file, text.data() + done, text.size() - done);
    if (count <= 0 && errno != EINTR) _exit(1);
    if (count > 0) done += static_cast<std::size_t>(count);
  }
}

std::string readAll(int file) {
  std::string text;
  char block[65536];
  for (;;) {
    const ssize_t count = read(file, block, sizeof(block));
    if (count > 0) {
      text.append(block, static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
      return text;
    }
  }
}

[[noreturn]] void beChild(int output, const std::function<nlohmann::json()>& work) {
  nlohmann::json answer;
  try {
    silenceStandardOutput();
    answer["result"] = work();
  } catch (const std::exception& failure) {
    answer["failure"] = failure.what();
  }
  writeAll(output, answer.dump());
  _exit(0);
}

}  // namespace

void silenceStandardOutput() {
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere < 0) throw std::system_error(errno, std::generic_category(), "/dev/null");
  dup2(nowhere, STDOUT_FILENO);
  close(nowhere);
}

nlohmann::json inFreshProcess(const std::function<nlohmann::json()>& work) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  std::fflush(stdout);
  const pid_t process = fork();
  if (process < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (process == 0) {
    close(ends[0]);
    beChild(ends[1], work);
  }
  close(ends[1]);
  const std::string text = readAll(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(process, &status, 0);
  if (status != 0 || text.empty()) {
    throw std::runtime_error("a process ended with status " + std::to_string(status));
  }
  nlohmann::json answer = nlohmann::json::parse(text);
  if (answer.contains("failure")) throw std::runtime_error(answer["failure"].get<std::string>());
  return answer["result"];
}

}  // namespace bench::scale
