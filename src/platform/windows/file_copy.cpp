#include "platform/file_copy.h"

#include <windows.h>

namespace tolvex::platform {
namespace {

class File {
 public:
  File(const char* path, DWORD access, DWORD creation)
      : handle_(CreateFileA(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, creation,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~File() { close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  // Not a device such as CON or NUL, and not a pipe.
  bool isOrdinary() const {
    return handle_ != INVALID_HANDLE_VALUE && GetFileType(handle_) == FILE_TYPE_DISK;
  }

  bool isSameAs(const File& other) const {
    BY_HANDLE_FILE_INFORMATION mine = {};
    BY_HANDLE_FILE_INFORMATION others = {};
    return GetFileInformationByHandle(handle_, &mine) != FALSE &&
           GetFileInformationByHandle(other.handle_, &others) != FALSE &&
           mine.dwVolumeSerialNumber == others.dwVolumeSerialNumber &&
           mine.nFileIndexHigh == others.nFileIndexHigh &&
           mine.nFileIndexLow == others.nFileIndexLow;
  }

  bool read(char* data, DWORD size, DWORD& count) const {
    return ReadFile(handle_, data, size, &count, nullptr) != FALSE;
  }

  bool writeAll(const char* data, DWORD size) const {
    DWORD written = 0;
    return WriteFile(handle_, data, size, &written, nullptr) != FALSE && written == size;
  }

  bool close() {
    const bool good = handle_ == INVALID_HANDLE_VALUE || CloseHandle(handle_) != FALSE;
    handle_ = INVALID_HANDLE_VALUE;
    return good;
  }

 private:
  HANDLE handle_;
};

bool copyContents(const File& source, const File& target) {
  char chunk[1024];
  DWORD count = 0;
  while (source.read(chunk, sizeof(chunk), count)) {
    if (count == 0) return true;
    if (!target.writeAll(chunk, count)) return false;
  }
  return false;
}

// Asks for no access, so that a target that may not be written can be compared as well.
bool isSameFile(const File& source, const char* target) {
  const File there(target, 0, OPEN_EXISTING);
  return there.isOrdinary() && there.isSameAs(source);
}

}  // namespace

std::int32_t fileSize(const char* path) {
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  if (GetFileAttributesExA(path, GetFileExInfoStandard, &data) == FALSE) return 0;
  if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return 0;
  if (data.nFileSizeHigh != 0 || data.nFileSizeLow > static_cast<DWORD>(MAXLONG)) return 0;
  return static_cast<std::int32_t>(data.nFileSizeLow);
}

bool copyFile(const char* source, const char* target) {
  const File from(source, GENERIC_READ, OPEN_EXISTING);
  if (!from.isOrdinary()) return false;
  if (isSameFile(from, target)) return true;
  File to(target, GENERIC_WRITE, CREATE_ALWAYS);
  if (!to.isOrdinary()) return false;
  const bool copied = copyContents(from, to);
  return to.close() && copied;
}

}  // namespace tolvex::platform
