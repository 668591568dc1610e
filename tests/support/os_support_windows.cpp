#include <io.h>
#include <windows.h>

#include "support/os_support.h"
// after it
#include <psapi.h>

#include <cstdint>
#include <utility>

#include "support/temporary_folder.h"

namespace tolvex::test {

const std::string kLineEnd = "\r\n";
const std::size_t kHandlesOfLocks = 3;

unsigned long processId() { return GetCurrentProcessId(); }

void becomeOrdinaryUser() {}

ReadOnlyFile::ReadOnlyFile(std::string path)
    : path_(std::move(path)),
      handle_(CreateFileA(path_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                          nullptr)) {}

ReadOnlyFile::~ReadOnlyFile() { CloseHandle(handle_); }

bool makeDiskOfItsOwn(const std::string&, std::size_t) { return false; }

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

namespace {

std::string emptied(const std::string& folder) {
  removeTree(folder);
  makeFolder(folder);
  return folder;
}

}  // namespace

std::string emptyDefaultLogFolder(const std::string&) { return emptied("c:\\Corvane\\Log\\"); }

std::string emptyLibraryFolder(const std::string&) { return emptied("c:/VARN/Log/"); }

}  // namespace tolvex::test
