// The wall clock, in the time zone of the machine, and a clock for short intervals.
#pragma once

#include <cstdint>

namespace tolvex::platform {

struct LocalTime {
  unsigned year;         // four digits
  unsigned month;        // 1 to 12
  unsigned day;          // 1 to 31
  unsigned hour;         // 0 to 23
  unsigned minute;       // 0 to 59
  unsigned second;       // 0 to 60
  unsigned millisecond;  // 0 to 999
};

// Reads the current local time. Never fails; any thread may call it.
LocalTime localTime();

// Milliseconds of a clock that only goes forward, in steps of up to 16. Costs next to nothing.
std::int64_t coarseMilliseconds();

}  // namespace tolvex::platform
