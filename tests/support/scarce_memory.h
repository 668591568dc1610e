// Memory that runs out for one thread when a test says so, and an account of what that thread took.
#pragma once

#include <cstddef>

namespace tolvex::test {

class LoadedLibrary;

// Counts, and fails, what the calling thread allocates while an object exists: on POSIX systems by
// any library of the process, on Windows by the one that haveScarceMemory() was called for.
class ScarceMemory {
 public:
  static constexpr std::size_t kNever = 0;

  // Lets the allocation of this number fail, counted from 1, or that one and all after it.
  explicit ScarceMemory(std::size_t failing = kNever, bool fromThenOn = false);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;

  std::size_t allocations() const;  // those that failed included
  std::size_t bytes() const;        // of all of them together, freed or not
  std::size_t largest() const;      // the bytes of the largest one
  std::size_t failures() const;
};

// Blocks that were allocated beside a ScarceMemory and are not freed yet, whoever frees them.
std::size_t blocksInUse();

// To be called for each library that is loaded, before its first call.
void haveScarceMemory(LoadedLibrary& library);

}  // namespace tolvex::test
