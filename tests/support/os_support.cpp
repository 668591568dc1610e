#include "support/os_support.h"

#ifdef _WIN32
#include <io.h>
#include <windows.h>
// after it
#include <psapi.h>
#else
#include <dirent.h>
#include <dlfcn.h>
#include <malloc.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "support/temporary_folder.h"

namespace tolvex::test {
namespace {

constexpr std::size_t kPage = 4096;

std::size_t wholePages(std::size_t size) { return (size + kPage - 1) / kPage * kPage; }

}  // namespace

#ifdef _WIN32

const std::string kLineEnd = "\r\n";
const std::size_t kHandlesOfLocks = 3;

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

void setEnvironment(const char* name, const char* value) { SetEnvironmentVariableA(name, value); }

std::FILE* secondStandardOutput() { return _fdopen(_dup(_fileno(stdout)), "w"); }

namespace {

std::size_t inUse(HANDLE heap) {
  std::size_t bytes = 0;
  PROCESS_HEAP_ENTRY entry = {};
  HeapLock(heap);
  while (HeapWalk(heap, &entry) != FALSE) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
  }
  HeapUnlock(heap);
  return bytes;
}

}  // namespace

MemoryUse memoryUse() {
  HANDLE heaps[64];
  const DWORD count = GetProcessHeaps(64, heaps);
  MemoryUse use = {0, 0};
  for (DWORD i = 0; i < count && i < 64; ++i) use.heap += inUse(heaps[i]);
  PROCESS_MEMORY_COUNTERS_EX counters = {};
  K32GetProcessMemoryInfo(GetCurrentProcess(),
                          reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters), sizeof(counters));
  use.resident = counters.PrivateUsage;
  return use;
}

void countMemoryExactly(char**) {}

GuardedMemory::GuardedMemory(std::size_t leastSize) : size_(wholePages(leastSize)) {
  auto* const whole = static_cast<char*>(
      VirtualAlloc(nullptr, size_ + 2 * kPage, MEM_RESERVE | MEM_COMMIT, PAGE_NOACCESS));
  DWORD before = 0;
  if (whole == nullptr || VirtualProtect(whole + kPage, size_, PAGE_READWRITE, &before) == FALSE) {
    throw std::runtime_error("no guarded memory");
  }
  begin_ = whole + kPage;
}

GuardedMemory::~GuardedMemory() { VirtualFree(begin_ - kPage, 0, MEM_RELEASE); }

SharedLibrary::SharedLibrary(const std::string& path) : handle_(LoadLibraryA(path.c_str())) {
  if (handle_ == nullptr) throw std::runtime_error("cannot load " + path);
}

SharedLibrary::~SharedLibrary() { FreeLibrary(static_cast<HMODULE>(handle_)); }

SharedLibrary::Address SharedLibrary::address(const char* name) const {
  const FARPROC found = GetProcAddress(static_cast<HMODULE>(handle_), name);
  if (found == nullptr) throw std::runtime_error(std::string("no function ") + name);
  return reinterpret_cast<Address>(found);
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
const std::size_t kHandlesOfLocks = 0;

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

MemoryUse memoryUse() {
  const struct mallinfo2 heap = mallinfo2();
  std::size_t whole = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> whole >> resident;
  return {heap.uordblks + heap.hblkhd, resident * static_cast<std::size_t>(getpagesize())};
}

// The blocks that each thread keeps at hand count as used, a few more with every size that was ever
// freed: they are done without.
void countMemoryExactly(char** arguments) {
  constexpr char kTunables[] = "GLIBC_TUNABLES";
  if (getenv(kTunables) != nullptr) return;
  setenv(kTunables, "glibc.malloc.tcache_count=0", 1);
  execv("/proc/self/exe", arguments);
}

GuardedMemory::GuardedMemory(std::size_t leastSize) : size_(wholePages(leastSize)) {
  void* const whole =
      mmap(nullptr, size_ + 2 * kPage, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (whole == MAP_FAILED) throw std::runtime_error("no guarded memory");
  begin_ = static_cast<char*>(whole) + kPage;
  if (mprotect(begin_, size_, PROT_READ | PROT_WRITE) != 0) {
    throw std::runtime_error("no guarded memory");
  }
}

GuardedMemory::~GuardedMemory() { munmap(begin_ - kPage, size_ + 2 * kPage); }

SharedLibrary::SharedLibrary(const std::string& path) : handle_(dlopen(path.c_str(), RTLD_NOW)) {
  if (handle_ == nullptr) throw std::runtime_error("cannot load " + path);
}

SharedLibrary::~SharedLibrary() { dlclose(handle_); }

SharedLibrary::Address SharedLibrary::address(const char* name) const {
  void* const found = dlsym(handle_, name);
  if (found == nullptr) throw std::runtime_error(std::string("no function ") + name);
  return reinterpret_cast<Address>(found);
}

void setEnvironment(const char* name, const char* value) { setenv(name, value, 1); }

std::FILE* secondStandardOutput() { return fdopen(dup(STDOUT_FILENO), "w"); }

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
