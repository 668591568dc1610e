#include "log/fakes.h"

#include "platform/debug_output.h"

namespace tolvex::test {

platform::LocalTime clockTime = {2024, 3, 5, 14, 7, 9, 42};
std::int64_t intervalTime = 5000;
std::vector<std::string> debuggerTexts;

}  // namespace tolvex::test

namespace tolvex::platform {

LocalTime localTime() { return test::clockTime; }

std::int64_t coarseMilliseconds() { return test::intervalTime; }

void debugOutput(const char* text) { test::debuggerTexts.emplace_back(text); }

}  // namespace tolvex::platform
