// What a warm call takes from the heap: how often, how much, and the largest piece.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "counts/counted_calls.h"
#include "support/scarce_memory.h"

namespace tolvex::test {

static bool operator==(const HeapUse& a, const HeapUse& b) {
  return a.allocations == b.allocations && a.bytes == b.bytes && a.largest == b.largest;
}

static void PrintTo(const HeapUse& use, std::ostream* out) {
  *out << use.allocations << " allocations of " << use.bytes << " bytes, the largest of "
       << use.largest;
}

namespace {

constexpr int kCallsWatched = 3;

HeapUse heapUseOf(const CountedCall& call, const Exports& library) {
  if (call.prepare != nullptr) call.prepare(library);
  const ScarceMemory watched;
  EXPECT_EQ(call.run(library), call.result);
  return {watched.allocations(), watched.bytes(), watched.largest()};
}

TEST(AWarmCall, TakesFromTheHeapWhatTheTableSays) {
  Till till;
  for (const LogKeeps keeps : kLogSettings) {
    till.loadAfresh(keeps);
    warmUp(till.exports());
    for (const CountedCall& call : countedCalls()) {
      SCOPED_TRACE(std::string(call.what) + ", " + nameOf(keeps));
      for (int count = 0; count < kCallsWatched; ++count) {
        EXPECT_EQ(heapUseOf(call, till.exports()), call.heap);
      }
    }
  }
}

}  // namespace
}  // namespace tolvex::test
