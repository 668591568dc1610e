#include "support/fresh_process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <exception>
#include <stdexcept>

namespace bench {
namespace {

std::string readAll(int input) {
  std::string text;
  char block[65536];
  for (;;) {
    const ssize_t count = read(input, block, sizeof(block));
    if (count > 0) {
      text.append(block, static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
      return text;
    }
  }
}

[[noreturn]] void beFreshProcess(int output, const std::function<void(int output)>& work) {
  try {
    work(output);
    _exit(0);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  _exit(1);
}

}  // namespace

std::string toldByFreshProcess(const std::function<void(int output)>& work) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  std::fflush(stdout);  // lest both write what is kept back
  const int process = fork();
  if (process < 0) throw std::runtime_error("no further process");
  if (process == 0) {
    close(ends[0]);
    beFreshProcess(ends[1], work);
  }
  close(ends[1]);
  std::string told = readAll(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(process, &status, 0);
  if (status != 0) throw std::runtime_error("a fresh process failed");
  return told;
}

void writeAll(int output, const char* bytes, std::size_t size) {
  for (std::size_t done = 0; done < size;) {
    const ssize_t count = write(output, bytes + done, size - done);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) throw std::runtime_error("cannot tell the figures");
    done += static_cast<std::size_t>(count);
  }
}

}  // namespace bench
