#include "platform/file.h"

#include <windows.h>

#include <algorithm>
#include <new>

#include "platform/windows/wide_text.h"

namespace tolvex::platform {
namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;

HANDLE openFile(const char* path, DWORD access, DWORD creation) {
  return CreateFileW(wideText(path).c_str(), access, kShared, nullptr, creation,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The length of a file whose last line has no end; 0 where it has one, and of an empty file.
LONGLONG lengthWithoutLineEnd(HANDLE file) {
  LARGE_INTEGER length = {};
  if (GetFileSizeEx(file, &length) == FALSE || length.QuadPart == 0) return 0;
  LARGE_INTEGER at;
  at.QuadPart = length.QuadPart - 1;
  char last = '\n';
  DWORD count = 0;
  const bool isRead = SetFilePointerEx(file, at, nullptr, FILE_BEGIN) != FALSE &&
                      ReadFile(file, &last, 1, &count, nullptr) != FALSE;
  return isRead && count == 1 && last != '\n' ? length.QuadPart : 0;
}

HANDLE asHandle(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

}  // namespace

const char* const kLineEnd = "\r\n";

AppendFile::~AppendFile() { close(); }

bool AppendFile::open(const char* path) {
  close();
  // FILE_APPEND_DATA without FILE_WRITE_DATA: the system itself puts each write at the end.
  handle_ = reinterpret_cast<std::intptr_t>(
      openFile(path, FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE, OPEN_ALWAYS));
  return isOpen();
}

bool AppendFile::isOpen() const { return handle_ != kNone; }

std::size_t AppendFile::write(const char* data, std::size_t size) {
  DWORD written = 0;
  const DWORD length = static_cast<DWORD>(std::min<std::size_t>(size, MAXLONG));
  if (WriteFile(asHandle(handle_), data, length, &written, nullptr) == FALSE) return 0;
  return written;
}

std::int64_t AppendFile::size() const {
  LARGE_INTEGER size;
  return GetFileSizeEx(asHandle(handle_), &size) != FALSE ? size.QuadPart : -1;
}

// A file that was opened without FILE_SHARE_DELETE cannot be deleted before it is closed.
bool AppendFile::isGone() const { return false; }

void AppendFile::close() {
  if (isOpen()) CloseHandle(asHandle(handle_));
  handle_ = kNone;
}

bool endsInsideLine(const char* path) {
  const HANDLE file = openFile(path, GENERIC_READ, OPEN_EXISTING);
  if (file == INVALID_HANDLE_VALUE) return false;
  const LONGLONG length = lengthWithoutLineEnd(file);
  bool isTorn = length > 0;
  if (isTorn) {
    Sleep(10);
    isTorn = lengthWithoutLineEnd(file) == length;
  }
  CloseHandle(file);
  return isTorn;
}

bool truncateFile(const char* path) {
  const HANDLE file = openFile(path, GENERIC_WRITE, CREATE_ALWAYS);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseHandle(file);
  return true;
}

bool readFile(const char* path, std::string& contents) {
  const HANDLE file = openFile(path, GENERIC_READ, OPEN_EXISTING);
  if (file == INVALID_HANDLE_VALUE) return false;
  contents.clear();
  bool good = true;
  try {
    char block[4096];
    DWORD count = 0;
    while ((good = ReadFile(file, block, sizeof(block), &count, nullptr) != FALSE) && count > 0) {
      contents.append(block, count);
    }
  } catch (const std::bad_alloc&) {
    CloseHandle(file);
    throw;
  }
  CloseHandle(file);
  return good;
}

}  // namespace tolvex::platform
