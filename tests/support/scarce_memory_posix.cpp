// The program's own functions of the heap: the loader prefers them to the system's, for each
// library of the process.
#include <dlfcn.h>
#include <errno.h>
#include <stdlib.h>

#include "support/scarce_memory.h"
#include "support/scarce_memory_account.h"

namespace {

using tolvex::test::account::gone;
using tolvex::test::account::made;
using tolvex::test::account::mayAllocate;

// The system's function of this name, looked up at the first use.
template <typename Function>
Function* systems(const char* name, Function*& kept) {
  if (kept == nullptr) kept = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
  return kept;
}

template <typename Call>
void* allocated(size_t bytes, Call call) {
  if (!mayAllocate(bytes)) {
    errno = ENOMEM;
    return nullptr;
  }
  void* const block = call();
  made(block);
  return block;
}

}  // namespace

#pragma GCC visibility push(default)
extern "C" {

void* malloc(size_t size) {
  static void* (*real)(size_t) = nullptr;
  return allocated(size, [&] { return systems("malloc", real)(size); });
}

void* calloc(size_t count, size_t size) {
  static void* (*real)(size_t, size_t) = nullptr;
  return allocated(count * size, [&] { return systems("calloc", real)(count, size); });
}

void* realloc(void* block, size_t size) {
  static void* (*real)(void*, size_t) = nullptr;
  return allocated(size, [&] {
    gone(block);
    return systems("realloc", real)(block, size);
  });
}

void* aligned_alloc(size_t alignment, size_t size) {
  static void* (*real)(size_t, size_t) = nullptr;
  return allocated(size, [&] { return systems("aligned_alloc", real)(alignment, size); });
}

void* memalign(size_t alignment, size_t size) {
  static void* (*real)(size_t, size_t) = nullptr;
  return allocated(size, [&] { return systems("memalign", real)(alignment, size); });
}

int posix_memalign(void** block, size_t alignment, size_t size) {
  *block = aligned_alloc(alignment, size);
  return *block != nullptr ? 0 : ENOMEM;
}

void free(void* block) {
  static void (*real)(void*) = nullptr;
  gone(block);
  systems("free", real)(block);
}
}
#pragma GCC visibility pop

namespace tolvex::test {

void haveScarceMemory(LoadedLibrary&) {}

}  // namespace tolvex::test
