// The table: each call with each fault that can be played with it.
#pragma once

#include <cstdint>

#include "torture/network/faults.h"

namespace tolvex::test {

struct Pair {
  const Call* call;
  Fault fault;
  std::string name() const { return call->fullName() + " / " + fault.name; }
};

// Each so many-th case of the order that the seed gives, of those with the text in their names.
std::vector<Pair> chosenTable(std::uint32_t seed, std::size_t share, const std::string& only);

// Cases that wait for a second and more, or the others. Some of the former go to a process, and all
// these processes run at the same time: how many there are.
std::vector<Pair> thoseThatWait(const std::vector<Pair>& pairs, bool wait);
std::size_t partsOf(const std::vector<Pair>& slow);

}  // namespace tolvex::test
