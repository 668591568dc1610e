#include "support/heap_watch.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

constexpr std::size_t kPlenty = std::numeric_limits<std::size_t>::max();
constexpr std::size_t kHeader = alignof(std::max_align_t);  // holds the size of the block behind it

struct {
  std::size_t allocations = 0;
  std::size_t bytes = 0;
  std::size_t inUse = 0;
  std::size_t inUseAtStart = 0;
  std::size_t peak = 0;
  std::size_t left = kPlenty;  // allocations that succeed before one fails
} heap;

bool mayAllocate() {
  if (heap.left == kPlenty) return true;
  if (heap.left-- > 0) return true;
  heap.left = kPlenty;
  return false;
}

void* allocate(std::size_t size) {
  static_assert(kHeader >= sizeof(std::size_t));
  if (!mayAllocate() || size > kPlenty - kHeader) throw std::bad_alloc();
  char* const block = static_cast<char*>(std::malloc(kHeader + size));
  if (block == nullptr) throw std::bad_alloc();
  *reinterpret_cast<std::size_t*>(block) = size;
  ++heap.allocations;
  heap.bytes += size;
  heap.inUse += size;
  heap.peak = std::max(heap.peak, heap.inUse);
  return block + kHeader;
}

void release(void* memory) noexcept {
  if (memory == nullptr) return;
  char* const block = static_cast<char*>(memory) - kHeader;
  heap.inUse -= *reinterpret_cast<std::size_t*>(block);
  std::free(block);
}

}  // namespace

// All of them: a sanitizer has some of its own for those that are left out.
void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* memory) noexcept { release(memory); }
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept {
  return operator new(size, nothrow);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept { release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { release(memory); }

namespace tolvex::test {

HeapWatch::HeapWatch() {
  heap.allocations = 0;
  heap.bytes = 0;
  heap.inUseAtStart = heap.inUse;
  heap.peak = heap.inUse;
}

std::size_t HeapWatch::allocations() const { return heap.allocations; }
std::size_t HeapWatch::bytes() const { return heap.bytes; }
std::size_t HeapWatch::peak() const { return heap.peak - heap.inUseAtStart; }

Scarcity::Scarcity(std::size_t allocations) { heap.left = allocations; }
Scarcity::~Scarcity() { heap.left = kPlenty; }

}  // namespace tolvex::test
