#include <windows.h>

#include <stdexcept>

#include "support/guarded_memory.h"

namespace tolvex::test {

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

}  // namespace tolvex::test
