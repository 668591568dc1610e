// What an application may expect, as the documentation tells it: docs/faults.md, docs/integration.md,
// docs/protocol.md and exports.h. Nothing of the library is asked.
#pragma once

#include <deque>

#include "torture/network/faults.h"

namespace tolvex::test {

constexpr unsigned kMostOfAReply = 2048;
constexpr std::size_t kGuard = 64;
constexpr char kFilling = '#';
constexpr int kLastErrorBefore = 7777;  // which the service has answered before

// What one exchange hears.
struct Heard {
  bool came = false;
  std::string text;  // up to its first NUL
  Answer meaning;
};

// What becomes of the connection.
enum class After {
  kStays,
  kAnew,           // the next request finds out in time and goes out on a new connection
  kAnewAfterLoss,  // the next one is lost first, code 4
  kAnewPerhapsAfterLoss,
  kMute,  // each further call fails with code 4 until the service closes
};

struct Course {
  Heard heard;
  std::vector<std::string> rest;  // of the reply: answers what is sent next
  After after = After::kStays;
  bool arrives = true;       // the request
  unsigned connections = 0;  // that the service accepts in all, until all is well again
};

// How the faulty exchange goes.
Course courseOf(const Fault& fault, const Answer& answer);

struct Expected {
  int result = 0;
  int lastError = 0;
  std::string buffer;    // with the guard behind it
  std::size_t sent = 0;  // of the call's requests, from the first on
  std::size_t lost = 0;  // of these, at the end
};

Expected expectedOf(const Call& call, const Course& course);

// The code that a reply stands for.
int codeOf(const Heard& heard);

// The buffer as it is before a call.
std::string freshBuffer(unsigned size);

}  // namespace tolvex::test
