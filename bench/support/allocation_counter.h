// Counts what the whole process takes from the heap.
#pragma once

#include <cstddef>

namespace bench {

// What malloc, calloc, realloc, and with them operator new, were asked for, by every library in the
// process. The size of a calloc is the product.
struct Allocations {
  long count;
  std::size_t bytes;
  std::size_t largest;
};

// Counts from zero, until the second one tells. In between nothing is counted.
void startCountingAllocations();
Allocations countedAllocations();

}  // namespace bench
