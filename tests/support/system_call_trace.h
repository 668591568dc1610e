// The system calls that a process makes, counted by the system's own means for debuggers.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tolvex::test {

// How often each was called, by its name; those that have none here are "#" and their number.
using TracedPart = std::map<std::string, std::size_t>;
using TracedParts = std::vector<TracedPart>;

// Does the work in a process of its own, a copy of this one with the calling thread alone, and returns
// what was called in each part of it. Throws std::runtime_error where the system does not let a process
// be traced, and where the work did not come to its end; what it threw is told on standard error.
TracedParts traceSystemCalls(const std::function<void()>& work);

// Around a part, by the work.
void beginTracedPart();
void endTracedPart();

}  // namespace tolvex::test
