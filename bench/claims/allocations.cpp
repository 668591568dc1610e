// What a warm call takes from the heap.
#include <stdexcept>

#include "claims/claims.h"
#include "claims/warm_call.h"
#include "support/allocation_counter.h"

namespace bench {
namespace {

// Over as many calls as the setting says, with the log at its defaults.
Allocations counted(const Setting& setting) {
  const StateFolder state;
  const WarmCall warm(setting, kWeightReply);
  startCountingAllocations();
  for (std::size_t call = 0; call < setting.pairs; ++call) warm.call();
  const Allocations allocations = countedAllocations();

  // Whether the library's own are counted at all: a long line that is queued needs memory.
  const std::string line(100000, 'x');
  const Library library = loadLibrary(setting.library);
  startCountingAllocations();
  library.printTextByPaperWidth(line.c_str(), 24, 80);
  if (countedAllocations().largest < line.size()) {
    throw std::runtime_error("the library's allocations are not seen");
  }
  return allocations;
}

Figure exact(double value) { return {value, value, value, {}}; }

Figure withAll(Figure figure, const Allocations& allocations, std::size_t calls) {
  figure.details["calls"] = static_cast<double>(calls);
  figure.details["allocations"] = static_cast<double>(allocations.count);
  figure.details["bytes"] = static_cast<double>(allocations.bytes);
  figure.details["largest_bytes"] = static_cast<double>(allocations.largest);
  return figure;
}

}  // namespace

Figure allocationCount(const Setting& setting) {
  const Allocations all = counted(setting);
  const double each = static_cast<double>(all.count) / static_cast<double>(setting.pairs);
  return withAll(exact(each), all, setting.pairs);
}

Figure largestAllocation(const Setting& setting) {
  const Allocations all = counted(setting);
  return withAll(exact(static_cast<double>(all.largest)), all, setting.pairs);
}

}  // namespace bench
