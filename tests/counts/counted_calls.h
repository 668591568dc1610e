// The calls that are counted: one of each family, with what it has to cost.
#pragma once

#include <cstddef>
#include <vector>

#include "counts/till.h"

namespace tolvex::test {

// What a call takes from the heap.
struct HeapUse {
  std::size_t allocations;
  std::size_t bytes;    // of all of them together
  std::size_t largest;  // bytes
};

struct CountedCall {
  const char* what;
  // Not counted; null for nothing.
  void (*prepare)(const Exports& library);
  int (*run)(const Exports& library);
  int result;

  // What a warm call costs, once the library is connected and its log is open.
  std::size_t exchanges;  // each is one send, one wait and one receive
  std::size_t records;    // of a log at its defaults; each is one write
  HeapUse heap;

  std::size_t recordsWith(LogKeeps keeps) const;
};

// The lines of a print job that is counted.
constexpr std::size_t kLinesOfTheJob = 100;

const std::vector<CountedCall>& countedCalls();

// Makes each call a few times, so that all of them are warm.
void warmUp(const Exports& library);

}  // namespace tolvex::test
