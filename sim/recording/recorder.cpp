#include "recording/recorder.h"

#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "base/version.h"

namespace tolvex::sim {

namespace fs = std::filesystem;

Recorder::Recorder(const std::string& path) {
  errno = 0;
  file_.open(fs::u8path(path), std::ios::binary | std::ios::trunc);
  if (write(recordingHeader(version()))) return;
  throw std::runtime_error("cannot write the recording " + path + ": " +
                           std::generic_category().message(errno == 0 ? EIO : errno) +
                           ". Choose another file with --record.");
}

bool Recorder::add(const RecordedExchange& exchange) { return write(recordingLine(exchange)); }

bool Recorder::write(const std::string& line) {
  return static_cast<bool>(file_ << line << '\n' << std::flush);
}

}  // namespace tolvex::sim
