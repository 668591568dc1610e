#include "support/allocation_counter.h"

#include <atomic>
#include <cstddef>

namespace {

std::atomic<long> count{0};

}  // namespace

// The program's own malloc comes before that of the C library, for the shared libraries as well.
#define TOLVEX_VISIBLE __attribute__((visibility("default")))

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t members, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);

TOLVEX_VISIBLE void* malloc(std::size_t size) noexcept {
  count.fetch_add(1, std::memory_order_relaxed);
  return __libc_malloc(size);
}

TOLVEX_VISIBLE void* calloc(std::size_t members, std::size_t size) noexcept {
  count.fetch_add(1, std::memory_order_relaxed);
  return __libc_calloc(members, size);
}

TOLVEX_VISIBLE void* realloc(void* block, std::size_t size) noexcept {
  count.fetch_add(1, std::memory_order_relaxed);
  return __libc_realloc(block, size);
}

TOLVEX_VISIBLE void free(void* block) noexcept { __libc_free(block); }
}

namespace bench {

long allocations() { return count.load(std::memory_order_relaxed); }

}  // namespace bench
