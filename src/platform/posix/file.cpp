#include "platform/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <new>

namespace tolvex::platform {
namespace {

constexpr mode_t kPermissions = 0666;  // less what the user's umask takes away

int openFile(const char* path, int flags) {
  int file;
  do {
    file = ::open(path, flags | O_CLOEXEC, kPermissions);
  } while (file < 0 && errno == EINTR);
  return file;
}

// The length of a file whose last line has no end; 0 where it has one, and of an empty file.
off_t lengthWithoutLineEnd(int file) {
  const off_t length = lseek(file, 0, SEEK_END);
  char last = '\n';
  return length > 0 && pread(file, &last, 1, length - 1) == 1 && last != '\n' ? length : 0;
}

bool readAll(int file, std::string& contents) {
  char block[4096];
  for (;;) {
    const ssize_t count = ::read(file, block, sizeof(block));
    if (count > 0) {
      contents.append(block, static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
      return count == 0;
    }
  }
}

}  // namespace

const char* const kLineEnd = "\n";

AppendFile::~AppendFile() { close(); }

bool AppendFile::open(const char* path) {
  close();
  handle_ = openFile(path, O_WRONLY | O_CREAT | O_APPEND);
  return isOpen();
}

bool AppendFile::isOpen() const { return handle_ != kNone; }

std::size_t AppendFile::write(const char* data, std::size_t size) {
  ssize_t count;
  do {
    count = ::write(static_cast<int>(handle_), data, size);
  } while (count < 0 && errno == EINTR);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

std::int64_t AppendFile::size() const {
  struct stat status = {};
  return fstat(static_cast<int>(handle_), &status) == 0 ? status.st_size : -1;
}

bool AppendFile::isGone() const {
  struct stat status = {};
  return fstat(static_cast<int>(handle_), &status) == 0 && status.st_nlink == 0;
}

void AppendFile::close() {
  if (isOpen()) ::close(static_cast<int>(handle_));
  handle_ = kNone;
}

bool endsInsideLine(const char* path) {
  const int file = openFile(path, O_RDONLY);
  if (file < 0) return false;
  const off_t length = lengthWithoutLineEnd(file);
  bool isTorn = length > 0;
  if (isTorn) {
    const timespec aWhile = {0, 10000000};
    nanosleep(&aWhile, nullptr);
    isTorn = lengthWithoutLineEnd(file) == length;
  }
  ::close(file);
  return isTorn;
}

bool truncateFile(const char* path) {
  const int file = openFile(path, O_WRONLY | O_CREAT | O_TRUNC);
  if (file < 0) return false;
  ::close(file);
  return true;
}

bool readFile(const char* path, std::string& contents) {
  const int file = openFile(path, O_RDONLY);
  if (file < 0) return false;
  contents.clear();
  bool good = false;
  try {
    good = readAll(file, contents);
  } catch (const std::bad_alloc&) {
    ::close(file);
    throw;
  }
  ::close(file);
  return good;
}

}  // namespace tolvex::platform
