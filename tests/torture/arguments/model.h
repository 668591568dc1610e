// What each export has to do with its arguments, as the header says it.
#pragma once

#include <string>
#include <vector>

namespace tolvex::test {

enum class Kind { kText, kBuffer, kInt, kUnsigned };

// One argument of a call. Numbers are kept as the int that they are to the service.
struct Value {
  Kind kind = Kind::kInt;
  bool isNull = false;
  std::string text;
  bool terminated = true;
  std::size_t room = 0;  // of a buffer
  int number = 0;
};

struct Expected {
  int result = 0;
  bool anyResult = false;
  std::vector<std::string> requests;
  bool writes = false;  // whether the buffer is written, and then what stands at its begin
  std::string written;
};

// The service's reply to everything.
extern const std::string kReplyToAll;
extern const std::string kPrinters;  // the printer list in it
extern const std::string kLevel;     // the log level in it

// What the call has to do. What it queues is expected of the job that follows: see expectedJob().
// Throws std::out_of_range for an export that is not known here.
Expected expectedOf(const std::string& exportName, const std::vector<Value>& values);

// BeginPrint(0) after it.
Expected expectedJob();

}  // namespace tolvex::test
