// Counts what the whole process takes from the heap.
#pragma once

namespace bench {

// The allocations (malloc, calloc, realloc, and with them operator new) so far, of every library in
// the process.
long allocations();

}  // namespace bench
