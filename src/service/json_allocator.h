// Memory for requests and replies, for the files of this folder only.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>

namespace tolvex {

// The heap, with exhaustion told by std::bad_alloc: the JSON library does not look whether it got
// the memory it asked for. As much of it as the library's memory pools use.
class ThrowingAllocator {
 public:
  static constexpr bool kNeedFree = true;

  void* Malloc(std::size_t size) { return size == 0 ? nullptr : checked(std::malloc(size)); }

  static void Free(void* block) { std::free(block); }

 private:
  static void* checked(void* block) {
    if (block == nullptr) throw std::bad_alloc();
    return block;
  }
};

}  // namespace tolvex
