#include "support/allocation_counter.h"

#include <atomic>

namespace {

// Where nothing is counted, what is measured costs a look at this and no more.
std::atomic<bool> counting{false};
std::atomic<long> count{0};
std::atomic<std::size_t> bytes{0};
std::atomic<std::size_t> largest{0};

void note(std::size_t size) {
  if (!counting.load(std::memory_order_relaxed)) return;
  count.fetch_add(1, std::memory_order_relaxed);
  bytes.fetch_add(size, std::memory_order_relaxed);
  std::size_t soFar = largest.load(std::memory_order_relaxed);
  while (size > soFar && !largest.compare_exchange_weak(soFar, size)) {
  }
}

}  // namespace

// The program's own malloc comes before that of the C library, for the shared libraries as well.
#define TOLVEX_VISIBLE __attribute__((visibility("default")))

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t members, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);

TOLVEX_VISIBLE void* malloc(std::size_t size) noexcept {
  note(size);
  return __libc_malloc(size);
}

TOLVEX_VISIBLE void* calloc(std::size_t members, std::size_t size) noexcept {
  note(members * size);
  return __libc_calloc(members, size);
}

TOLVEX_VISIBLE void* realloc(void* block, std::size_t size) noexcept {
  note(size);
  return __libc_realloc(block, size);
}

TOLVEX_VISIBLE void free(void* block) noexcept { __libc_free(block); }
}

namespace bench {

void startCountingAllocations() {
  count = 0;
  bytes = 0;
  largest = 0;
  counting = true;
}

Allocations countedAllocations() {
  counting = false;
  return {count.load(), bytes.load(), largest.load()};
}

}  // namespace bench
