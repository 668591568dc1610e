// Calls whose reply tells which request it answers.
#pragma once

#include <cstdint>
#include <string>

namespace tolvex::test {

enum class Outcome {
  kOwn,       // the reply to this call
  kAnothers,  // a reply, but that to another call
  kFailed,    // no reply, or an unreadable one, and a result that says so
};

const char* textOf(Outcome outcome);

// The service's reply to this request, with the number of the call that it came from.
std::string numberedReply(const std::string& request, std::uint64_t number);
// That to a raw command.
std::string rawReply(std::uint64_t number);

// The weight that stands in the reply to a call, as records and tare texts show it.
std::string weightOf(std::uint64_t number);
constexpr std::uint64_t kWeights = 1000000;  // calls with different weights
// The result code in the reply to a call whose verdict does not matter.
int codeOf(std::uint64_t number);

struct NumberedCall {
  const char* name;
  bool weighing;  // the connection that it takes
  Outcome (*run)(std::uint64_t number);
};

constexpr unsigned kNumberedCalls = 17;
const NumberedCall& numberedCall(unsigned index);

// A raw command with its wait for the reply, in milliseconds.
constexpr unsigned kLongWait = 20000;
Outcome rawCall(bool weighing, std::uint64_t number, unsigned wait);

}  // namespace tolvex::test
