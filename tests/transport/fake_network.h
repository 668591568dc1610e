// A socket library that does what a test tells it, linked in place of the platform's.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "platform/socket.h"

namespace tolvex::test {

constexpr int kErrorStays = -1;  // a call that succeeds may leave the last error as it was

// The outcome of one call.
struct Outcome {
  int result;
  int error = kErrorStays;
};

struct WaitOutcome {
  platform::net::Readiness readiness;
  int error = kErrorStays;
};

constexpr platform::net::Readiness kReady = {1, true, false};
constexpr platform::net::Readiness kExceptional = {1, false, true};
constexpr platform::net::Readiness kTimeOut = {0, false, false};
constexpr platform::net::Readiness kWaitFailed = {-1, false, false};

// Outcomes are used up one by one; without one, a call succeeds: a connect is made, a wait ends
// ready, a send takes everything, a receive brings "reply".
struct FakeNetwork {
  std::deque<Outcome> creates;      // -1 fails
  std::deque<Outcome> nonBlocking;  // -1 fails
  std::deque<Outcome> connects;
  std::deque<WaitOutcome> waits;
  std::deque<Outcome> pendingErrors;  // -1: the pending error cannot be read
  std::deque<Outcome> sends;
  std::deque<Outcome> receives;
  std::uint32_t lookedUp = 0x0A000001;  // 10.0.0.1; kNoAddress: no such name
  int lookUpError = kErrorStays;

  int lastError = 0;
  // What was called, such as "send 1 hello". Sockets are numbered from 1.
  std::vector<std::string> calls;
};

extern FakeNetwork network;

// How often a call, such as "startUp", was made.
int countOf(const std::string& call);

}  // namespace tolvex::test
