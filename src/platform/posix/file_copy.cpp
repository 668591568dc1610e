#include "platform/file_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <limits>

namespace tolvex::platform {
namespace {

constexpr mode_t kCopyPermissions = 0666;  // less what the user's umask takes away

class File {
 public:
  // Waits for nobody at the other end of a pipe or a device.
  File(const char* path, int flags) {
    do {
      file_ = ::open(path, flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, kCopyPermissions);
    } while (file_ < 0 && errno == EINTR);
    isOrdinary_ = file_ >= 0 && fstat(file_, &status_) == 0 && S_ISREG(status_.st_mode);
  }
  ~File() { close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  bool isOrdinary() const { return isOrdinary_; }

  bool isAt(const char* path) const {
    struct stat other = {};
    return stat(path, &other) == 0 && other.st_dev == status_.st_dev &&
           other.st_ino == status_.st_ino;
  }

  ssize_t read(char* data, std::size_t size) const {
    ssize_t count;
    do {
      count = ::read(file_, data, size);
    } while (count < 0 && errno == EINTR);
    return count;
  }

  bool writeAll(const char* data, std::size_t size) const {
    while (size > 0) {
      const ssize_t count = ::write(file_, data, size);
      if (count > 0) {
        data += count;
        size -= static_cast<std::size_t>(count);
      } else if (count == 0 || errno != EINTR) {
        return false;
      }
    }
    return true;
  }

  // Some file systems tell only now that a write has failed. An interrupted close has closed.
  bool close() {
    const bool good = file_ < 0 || ::close(file_) == 0 || errno == EINTR;
    file_ = -1;
    return good;
  }

 private:
  int file_;
  bool isOrdinary_;
  struct stat status_ = {};
};

bool copyContents(const File& source, const File& target) {
  char chunk[1024];
  ssize_t count;
  while ((count = source.read(chunk, sizeof(chunk))) > 0) {
    if (!target.writeAll(chunk, static_cast<std::size_t>(count))) return false;
  }
  return count == 0;
}

}  // namespace

std::int32_t fileSize(const char* path) {
  struct stat status = {};
  if (stat(path, &status) != 0 || !S_ISREG(status.st_mode)) return 0;
  if (status.st_size > std::numeric_limits<std::int32_t>::max()) return 0;
  return static_cast<std::int32_t>(status.st_size);
}

bool copyFile(const char* source, const char* target) {
  const File from(source, O_RDONLY);
  if (!from.isOrdinary()) return false;
  if (from.isAt(target)) return true;
  File to(target, O_WRONLY | O_CREAT | O_TRUNC);
  if (!to.isOrdinary()) return false;
  const bool copied = copyContents(from, to);
  return to.close() && copied;
}

}  // namespace tolvex::platform
