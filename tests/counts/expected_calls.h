// What the system is asked for in a warm call, by the names that its functions have.
#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>

#include "counts/counted_calls.h"

namespace tolvex::test {

using CallCounts = std::map<std::string, std::size_t>;

struct NamesOfCalls {
  const char* send;
  const char* wait;
  const char* receive;
  const char* write;  // of a record
  const char* look;   // at the log's file: whether it was deleted, and what others added to it
};

// A send, a wait and a receive for each exchange, a write for each record, and nothing else.
CallCounts expectedCalls(const NamesOfCalls& names, const CountedCall& call, LogKeeps keeps);

// The looks at the log's file, which come by the clock and by what was written, and not by the call.
// Counts from its making on.
class LooksAtTheFile {
 public:
  LooksAtTheFile(const Till& till, const char* nameOfTheCall);

  // The calls without the looks among them, which are counted here.
  CallCounts leftOutOf(CallCounts calls);

  std::size_t count() const { return count_; }
  // So many may have been made by now: one in 100 ms where the file can be deleted, and one for 64 KiB
  // of records, beside the one that was due at the start.
  std::size_t allowed() const;

 private:
  using Clock = std::chrono::steady_clock;

  const Till& till_;
  const char* name_;
  Clock::time_point start_ = Clock::now();
  std::size_t bytesAtStart_;
  std::size_t count_ = 0;
};

}  // namespace tolvex::test
