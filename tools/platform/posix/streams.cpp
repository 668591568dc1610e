#include "platform/streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace tolvex::ctl::platform {
namespace {

constexpr std::size_t kCapturePiece = 65536;
constexpr int kFirstPrivate = 3;

bool writeAll(int file, const std::string& text) {
  std::size_t done = 0;
  while (done < text.size()) {
    const ssize_t count = ::write(file, text.data() + done, text.size() - done);
    if (count < 0 && errno != EINTR) return false;
    if (count > 0) done += static_cast<std::size_t>(count);
  }
  return true;
}

// A file without a name, or /dev/null where there is no room for one.
int captureFile() {
  const char* folder = std::getenv("TMPDIR");
  std::string path = folder != nullptr && folder[0] == '/' ? folder : "/tmp";
  path += "/tolvexctl-XXXXXX";
  const int file = ::mkstemp(path.data());
  if (file < 0) return ::open("/dev/null", O_RDWR);
  ::unlink(path.c_str());
  return file;
}

class PosixStreams : public Streams {
 public:
  PosixStreams()
      : output_(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, kFirstPrivate)),
        error_(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, kFirstPrivate)) {
    const int file = captureFile();
    capture_ = ::fcntl(file, F_DUPFD_CLOEXEC, kFirstPrivate);
    ::dup2(file, STDOUT_FILENO);
    ::dup2(file, STDERR_FILENO);
    if (file >= kFirstPrivate) ::close(file);
  }

  bool output(const std::string& text) override { return writeAll(output_, text); }
  void error(const std::string& text) override { writeAll(error_, text); }
  bool outputIsTerminal() override { return ::isatty(output_) == 1; }

  std::string captured(std::size_t offset) override {
    std::string text(kCapturePiece, '\0');
    const ssize_t count = ::pread(capture_, text.data(), text.size(), static_cast<off_t>(offset));
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return text;
  }

 private:
  int output_;
  int error_;
  int capture_ = -1;
};

}  // namespace

// Never destroyed: a thread that nobody waits for may still write when the process ends.
Streams& standardStreams() {
  static Streams* const streams = new PosixStreams;
  return *streams;
}

std::string readStandardInput(std::size_t most) {
  std::string text;
  char piece[65536];
  while (text.size() <= most) {
    const ssize_t count = ::read(STDIN_FILENO, piece, sizeof(piece));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    text.append(piece, static_cast<std::size_t>(count));
  }
  return text;
}

}  // namespace tolvex::ctl::platform
