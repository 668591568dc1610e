#include "support/own_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

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

void OwnOutput::tell(const std::string& text) const {
  for (std::size_t told = 0; told < text.size();) {
    const ssize_t count = write(output_, text.data() + told, text.size() - told);
    if (count <= 0) throw std::runtime_error("cannot tell the figures");
    told += static_cast<std::size_t>(count);
  }
}

}  // namespace bench
