// Stand-ins for the clock and the debugger, linked in place of the platform's.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/clock.h"

namespace tolvex::test {

// What the clock shows; 2024-03-05 14:07:09.042 until a test says otherwise.
extern platform::LocalTime clockTime;
// The clock for intervals, in milliseconds. Stands still as well.
extern std::int64_t intervalTime;
constexpr char kClockStamp[] = "2024-03-05 14:07:09 Ms:042 ";

// What was shown to the debugger. The logger's lock guards it: read it when no thread logs.
extern std::vector<std::string> debuggerTexts;

}  // namespace tolvex::test
