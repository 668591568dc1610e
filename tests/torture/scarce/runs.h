// The commands of the program, and what they have in common.
#pragma once

#include <cstddef>
#include <string>

#include "torture/scarce/stage.h"

namespace tolvex::test {

// Whether a share has to be small, where a call takes milliseconds.
#ifdef _WIN32
constexpr bool kSmallShare = true;
#else
constexpr bool kSmallShare = false;
#endif

// Each says what it found wrong, and its figure as the last line. Returns the exit code.
int runMemory(const std::string& library, bool full);
int runSystemCalls(const std::string& library, bool full);

// What the library holds: memory, sockets and files.
struct Held {
  std::size_t blocks;
  std::size_t handles;

  Held();
  Held operator-(const Held& before) const;
  // Empty where it is no more than that, else what it is.
  std::string moreThan(const Held& expected) const;
};

// What is wrong with a call that nothing was in the way of; empty for nothing.
std::string checkGood(const ExportCall& call, const Observation& good);

}  // namespace tolvex::test
