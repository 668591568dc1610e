#include "support/os_support.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dirent.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <cstdint>
#include <cstdlib>
#include <utility>

#include "support/temporary_folder.h"

namespace tolvex::test {

#ifdef _WIN32

const std::string kLineEnd = "\r\n";

unsigned long processId() { return GetCurrentProcessId(); }

void becomeOrdinaryUser() {}

ReadOnlyFile::ReadOnlyFile(std::string path)
    : path_(std::move(path)),
      handle_(CreateFileA(path_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                          nullptr)) {}

ReadOnlyFile::~ReadOnlyFile() { CloseHandle(handle_); }

bool appendsAreWhole() {
  return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") == nullptr;
}

// Asked handle by handle: Wine has no number for the whole process.
std::size_t handleCount() {
  constexpr std::uintptr_t kHighest = 0x8000;
  std::size_t count = 0;
  for (std::uintptr_t handle = 4; handle <= kHighest; handle += 4) {
    DWORD flags;
    if (GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != FALSE) ++count;
  }
  return count;
}

namespace {

std::string emptied(const std::string& folder) {
  removeTree(folder);
  makeFolder(folder);
  return folder;
}

}  // namespace

std::string emptyDefaultLogFolder(const std::string&) { return emptied("c:\\Corvane\\Log\\"); }

std::string emptyLibraryFolder(const std::string&) { return emptied("c:/VARN/Log/"); }

#else

const std::string kLineEnd = "\n";

unsigned long processId() { return static_cast<unsigned long>(getpid()); }

void becomeOrdinaryUser() {
  constexpr unsigned kNobody = 65534;
  if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) std::abort();
}

ReadOnlyFile::ReadOnlyFile(std::string path) : path_(std::move(path)) {
  chmod(path_.c_str(), 0444);
}

ReadOnlyFile::~ReadOnlyFile() { chmod(path_.c_str(), 0666); }

bool appendsAreWhole() { return true; }

std::size_t handleCount() {
  std::size_t count = 0;
  DIR* const folder = opendir("/proc/self/fd");
  while (readdir(folder) != nullptr) ++count;
  closedir(folder);
  return count;
}

namespace {

std::string madeBelow(const std::string& parent, const char* name) {
  setenv("XDG_STATE_HOME", parent.substr(0, parent.size() - 1).c_str(), 1);
  std::string folder = parent + name;
  makeFolder(folder);
  return folder;
}

}  // namespace

std::string emptyDefaultLogFolder(const std::string& parent) {
  return madeBelow(parent, "corvane/log/");
}

std::string emptyLibraryFolder(const std::string& parent) { return madeBelow(parent, "varn/log/"); }

#endif

}  // namespace tolvex::test
