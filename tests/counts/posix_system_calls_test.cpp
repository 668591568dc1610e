// What a warm call asks of the system, as the system sees it: also what no import shows.
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

#include "counts/counted_calls.h"
#include "counts/expected_calls.h"
#include "support/system_call_trace.h"

namespace tolvex::test {
namespace {

constexpr int kCallsTraced = 5;
constexpr NamesOfCalls kSystemCalls = {"sendto", "poll", "recvfrom", "write", "fstat"};

// In the traced process: each call of the table so many times, each in a part of its own.
void makeTheCalls(const Exports& library) {
  warmUp(library);
  for (const CountedCall& call : countedCalls()) {
    for (int count = 0; count < kCallsTraced; ++count) {
      if (call.prepare != nullptr) call.prepare(library);
      beginTracedPart();
      const int result = call.run(library);
      endTracedPart();
      if (result != call.result) throw std::runtime_error(std::string(call.what) + " failed");
    }
  }
}

// Some machines have no clock that can be read without the system.
bool clockIsOfTheSystem() {
  const TracedParts parts = traceSystemCalls([] {
    timespec now = {};
    beginTracedPart();
    clock_gettime(CLOCK_REALTIME, &now);
    clock_gettime(CLOCK_MONOTONIC, &now);
    endTracedPart();
  });
  return parts.at(0) != TracedPart();
}

TEST(AWarmCall, MakesTheSystemCallsThatTheTableSays) {
  const bool leaveOutTheClock = clockIsOfTheSystem();
  Till till;
  for (const LogKeeps keeps : kLogSettings) {
    till.loadAfresh(keeps);
    LooksAtTheFile looks(till, kSystemCalls.look);
    TracedParts parts = traceSystemCalls([&] { makeTheCalls(till.exports()); });
    ASSERT_EQ(parts.size(), countedCalls().size() * kCallsTraced);
    auto part = parts.begin();
    for (const CountedCall& call : countedCalls()) {
      SCOPED_TRACE(std::string(call.what) + ", " + nameOf(keeps));
      for (int count = 0; count < kCallsTraced; ++count) {
        if (leaveOutTheClock) part->erase("clock_gettime");
        EXPECT_EQ(looks.leftOutOf(*part++), expectedCalls(kSystemCalls, call, keeps));
      }
    }
    EXPECT_LE(looks.count(), looks.allowed()) << kSystemCalls.look << ", " << nameOf(keeps);
  }
}

// The trace itself: what no import of the library shows, and a part in which nothing is called.
TEST(TheTrace, SeesEverySystemCallOfAPart) {
  const TracedParts parts = traceSystemCalls([] {
    beginTracedPart();
    endTracedPart();
    beginTracedPart();
    syscall(SYS_getppid);
    syscall(SYS_getppid);
    endTracedPart();
  });
  const std::string getppid = "#" + std::to_string(SYS_getppid);
  EXPECT_EQ(parts, (TracedParts{{}, {{getppid, 2}}}));
}

TEST(TheTrace, TellsWhatStoppedTheWork) {
  EXPECT_THROW(traceSystemCalls([] { throw std::runtime_error("deliberately"); }),
               std::runtime_error);
}

}  // namespace
}  // namespace tolvex::test
