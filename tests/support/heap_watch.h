// What a test program takes by operator new: counted, and made to fail at will.
#pragma once

#include <cstddef>
#include <new>

namespace tolvex::test {

// Counts from its making on. One object at a time, in a program of one thread. The program that
// links this has operators new and delete of its own.
class HeapWatch {
 public:
  HeapWatch();
  HeapWatch(const HeapWatch&) = delete;
  HeapWatch& operator=(const HeapWatch&) = delete;

  std::size_t allocations() const;
  std::size_t bytes() const;  // of all allocations together, freed or not
  std::size_t peak() const;   // the most bytes at one time, beyond those at the start
};

// Lets one allocation fail, after this many others. One and no more: throwing takes memory, too.
class Scarcity {
 public:
  explicit Scarcity(std::size_t allocations);
  ~Scarcity();
  Scarcity(const Scarcity&) = delete;
  Scarcity& operator=(const Scarcity&) = delete;
};

// Lets the allocations of a call fail, one after the other, until it needs no more of them.
// afterFailure() runs after each call that failed. Returns how many did.
template <typename Call, typename AfterFailure>
std::size_t failEachAllocation(Call call, AfterFailure afterFailure) {
  for (std::size_t allowed = 0;; ++allowed) {
    try {
      const Scarcity scarcity(allowed);
      call();
      return allowed;
    } catch (const std::bad_alloc&) {
      afterFailure();
    }
  }
}

}  // namespace tolvex::test
