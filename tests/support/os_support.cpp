#include "support/os_support.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dirent.h>
#include <stdlib.h>
#include <unistd.h>
#endif

#include <cstdint>

#include "support/temporary_folder.h"

namespace tolvex::test {

#ifdef _WIN32

const std::string kLineEnd = "\r\n";

unsigned long processId() { return GetCurrentProcessId(); }

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
