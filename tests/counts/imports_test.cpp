// What a warm call asks of the system, by the functions that the library imports.
#include <gtest/gtest.h>

#include <string>

#include "counts/counted_calls.h"
#include "counts/expected_calls.h"
#include "support/scarce_calls.h"

namespace tolvex::test {
namespace {

constexpr int kCallsCounted = 3;

#ifdef _WIN32
constexpr NamesOfCalls kImports = {"send", "select", "recv", "WriteFile", "GetFileSizeEx"};
#else
constexpr NamesOfCalls kImports = {"send", "poll", "recv", "write", "fstat"};
#endif

// From one character set to another: worked out, without the system.
bool isConversion(const std::string& import) {
  return import == "MultiByteToWideChar" || import == "WideCharToMultiByte";
}

CallCounts importsCalledBy(const CountedCall& call, const Exports& library) {
  if (call.prepare != nullptr) call.prepare(library);
  const ScarceCalls watched;
  EXPECT_EQ(call.run(library), call.result);
  CallCounts counts;
  for (const std::size_t index : watched.calls()) {
    const std::string name = scarceCalls()[index].name;
    if (!isConversion(name)) ++counts[name];
  }
  return counts;
}

// What the preparation of a call logs is not looked at.
std::size_t recordsOf(const CountedCall& call, const Till& till) {
  if (call.prepare != nullptr) call.prepare(till.exports());
  const std::size_t before = till.logSize().records;
  call.run(till.exports());
  return till.logSize().records - before;
}

TEST(AWarmCall, CallsOfTheImportsWhatTheTableSays) {
  Till till;
  for (const LogKeeps keeps : kLogSettings) {
    till.loadAfresh(keeps);
    warmUp(till.exports());
    LooksAtTheFile looks(till, kImports.look);
    for (const CountedCall& call : countedCalls()) {
      SCOPED_TRACE(std::string(call.what) + ", " + nameOf(keeps));
      for (int count = 0; count < kCallsCounted; ++count) {
        const CallCounts made = importsCalledBy(call, till.exports());
        EXPECT_EQ(looks.leftOutOf(made), expectedCalls(kImports, call, keeps));
      }
      EXPECT_EQ(recordsOf(call, till), call.recordsWith(keeps)) << "in the log's file";
    }
    EXPECT_LE(looks.count(), looks.allowed()) << kImports.look << ", " << nameOf(keeps);
  }
}

}  // namespace
}  // namespace tolvex::test
