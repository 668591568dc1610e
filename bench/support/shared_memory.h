// Memory that a process shares with those that it makes.
#pragma once

#include <sys/mman.h>

#include <cerrno>
#include <cstddef>
#include <system_error>

namespace bench {

// As many objects one behind another, all zeros, which has to be how they begin. Only what is written takes
// memory. Stays until munmap, or the end of the process. Throws std::system_error.
template <typename Shared>
Shared* shareMemory(std::size_t count = 1) {
  void* const memory = mmap(nullptr, sizeof(Shared) * count, PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (memory == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
  return static_cast<Shared*>(memory);
}

}  // namespace bench
