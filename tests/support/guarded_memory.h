// Memory of which nobody can go beyond the ends.
#pragma once

#include <cstddef>

namespace tolvex::test {

// Memory between two pages that nobody may touch: who reads or writes beyond it ends the program.
class GuardedMemory {
 public:
  explicit GuardedMemory(std::size_t leastSize);
  ~GuardedMemory();
  GuardedMemory(const GuardedMemory&) = delete;
  GuardedMemory& operator=(const GuardedMemory&) = delete;

  char* begin() const { return begin_; }
  char* end() const { return begin_ + size_; }
  std::size_t size() const { return size_; }

 private:
  static constexpr std::size_t kPage = 4096;
  static std::size_t wholePages(std::size_t size) { return (size + kPage - 1) / kPage * kPage; }

  char* begin_;
  std::size_t size_;
};

}  // namespace tolvex::test
