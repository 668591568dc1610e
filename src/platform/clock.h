// The wall clock, in the time zone of the machine.
#pragma once

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

}  // namespace tolvex::platform
