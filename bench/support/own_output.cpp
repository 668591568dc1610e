#include "support/own_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

#include "support/fresh_process.h"

namespace bench {

OwnOutput::OwnOutput() {
  std::fflush(stdout);
  output_ = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (output_ < 0 || nowhere < 0 || dup2(nowhere, STDOUT_FILENO) < 0) {
    throw std::runtime_error("cannot set the standard output aside");
  }
  close(nowhere);
}

OwnOutput::~OwnOutput() { close(output_); }

void OwnOutput::tell(const std::string& text) const { writeAll(output_, text.data(), text.size()); }

}  // namespace bench
