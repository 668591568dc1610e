#include "torture/scarce/runs.h"

#include <algorithm>

#include "support/scarce_calls.h"
#include "support/scarce_memory.h"

namespace tolvex::test {
namespace {

// A connection to each port and the log's file. The log closes that one with the record that fills it
// and opens another with the next record: in between there is one handle less.
constexpr std::size_t kHandlesInUse = 3;

}  // namespace

Held::Held() : blocks(blocksInUse()), handles(libraryHandles()) {}

Held Held::operator-(const Held& before) const {
  Held difference = *this;
  difference.blocks -= before.blocks;
  difference.handles -= before.handles;
  return difference;
}

std::string Held::moreThan(const Held& expected) const {
  if (blocks <= expected.blocks && handles <= std::max(expected.handles, kHandlesInUse)) {
    return {};
  }
  return std::to_string(blocks) + " blocks and " + std::to_string(handles) +
         " handles in use in the place of " + std::to_string(expected.blocks) + " and " +
         std::to_string(expected.handles);
}

std::string checkGood(const ExportCall& call, const Observation& good) {
  if (!good.afterwards.empty()) return good.afterwards;
  const std::string name = call.name;
  if (call.answers == Answers::kConstant || name == "getLastErrCode") return {};
  int expected = call.answers == Answers::kVerdict ? 240 : 0;
  if (call.answers == Answers::kConnection) expected = 1;
  return good.result == expected ? "" : "result " + std::to_string(good.result);
}

}  // namespace tolvex::test
