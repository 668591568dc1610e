#include <sys/mman.h>

#include <stdexcept>

#include "support/guarded_memory.h"

namespace tolvex::test {

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

}  // namespace tolvex::test
