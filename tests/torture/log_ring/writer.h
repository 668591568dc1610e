// The application that fills the log, as a process of its own.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "support/child.h"

namespace tolvex::test {

// The process itself: makes as many calls as each line of its standard input says ("calls 100"), and
// answers "done" with the numbers of all calls and of their bytes in the log. Returns its exit code.
int writeAsTold(unsigned writer, bool isOrdinaryUser);

// Such a process, seen from the one that started it. Throws std::runtime_error when it ends or does
// not answer.
class Writer {
 public:
  // Each has a number of its own, which its calls tell.
  explicit Writer(bool isOrdinaryUser = false);

  unsigned number() const { return number_; }
  unsigned calls() const { return calls_; }       // made so far
  std::uint64_t bytes() const { return bytes_; }  // that they have in the log

  void make(unsigned calls) {
    begin(calls);
    finish();
  }
  void begin(unsigned calls);
  // Waits until the calls that were begun are made.
  void finish();

  // Lets it make calls until it is killed, and waits for the first one.
  void makeCallsWithoutEnd();
  void kill();

  static std::string program;  // what this process was started as

 private:
  std::string answer();

  static unsigned latestNumber;
  unsigned number_;
  unsigned calls_ = 0;
  std::uint64_t bytes_ = 0;
  std::unique_ptr<Child> child_;
};

}  // namespace tolvex::test
