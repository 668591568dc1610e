#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "platform/debug_output.h"

namespace tolvex::platform {
namespace {

constexpr DWORD kPrinted = 0x40010006;  // how the system hands a text to a debugger

std::vector<std::string> seen;

LONG CALLBACK noteText(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  if (record.ExceptionCode != kPrinted) return EXCEPTION_CONTINUE_SEARCH;
  // The length counts the terminator in.
  seen.emplace_back(reinterpret_cast<const char*>(record.ExceptionInformation[1]),
                    record.ExceptionInformation[0] - 1);
  return EXCEPTION_CONTINUE_EXECUTION;
}

TEST(DebugOutput, ReachesTheDebuggerAsItIs) {
  void* const handler = AddVectoredExceptionHandler(1, noteText);
  debugOutput("a record");
  debugOutput("");
  RemoveVectoredExceptionHandler(handler);
  EXPECT_EQ(seen, (std::vector<std::string>{"a record", ""}));
}

}  // namespace
}  // namespace tolvex::platform
