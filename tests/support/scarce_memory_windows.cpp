// What stands in the table of imports in the place of the functions of the heap.
#include <stdlib.h>
#include <string.h>

#include <stdexcept>

#include "support/loaded_library.h"
#include "support/scarce_memory.h"
#include "support/scarce_memory_account.h"

namespace tolvex::test {
namespace {

using account::gone;
using account::made;
using account::mayAllocate;

template <typename Call>
auto allocated(size_t bytes, Call call) -> decltype(call()) {
  if (!mayAllocate(bytes)) {
    errno = ENOMEM;
    return nullptr;
  }
  auto* const block = call();
  made(block);
  return block;
}

void* scarceMalloc(size_t size) {
  return allocated(size, [&] { return malloc(size); });
}

void* scarceCalloc(size_t count, size_t size) {
  return allocated(count * size, [&] { return calloc(count, size); });
}

void* scarceRealloc(void* block, size_t size) {
  return allocated(size, [&] {
    gone(block);
    return realloc(block, size);
  });
}

char* scarceStrdup(const char* text) {
  return allocated(strlen(text) + 1, [&] { return _strdup(text); });
}

void countedFree(void* block) {
  gone(block);
  free(block);
}

}  // namespace

void haveScarceMemory(LoadedLibrary& library) {
  const struct {
    const char* name;
    void* function;
  } functions[] = {{"malloc", reinterpret_cast<void*>(scarceMalloc)},
                   {"calloc", reinterpret_cast<void*>(scarceCalloc)},
                   {"realloc", reinterpret_cast<void*>(scarceRealloc)},
                   {"_strdup", reinterpret_cast<void*>(scarceStrdup)},
                   {"free", reinterpret_cast<void*>(countedFree)}};
  for (const auto& function : functions) {
    if (library.replace(function.name, function.function) == nullptr) {
      throw std::runtime_error(std::string("the library does not import ") + function.name);
    }
  }
}

}  // namespace tolvex::test
