// Times as the log writes them: local ones, without a zone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tolvex::ctl {

// Milliseconds since 1970 as a wall clock counts them, so that times can be compared and subtracted.
using LogTime = std::int64_t;

// A time of the calendar; nullopt for one that does not exist (month 13, 30 February, 24:00).
std::optional<LogTime> logTime(unsigned year, unsigned month, unsigned day, unsigned hour,
                               unsigned minute, unsigned second, unsigned millisecond);

// What the wall clock shows now.
LogTime currentLogTime();

// "2024-03-05T14:07:09.042", with the separator between date and time as given.
std::string logTimeText(LogTime time, char separator);

// Reads what people type: "2026-01-01", "2026-01-01 08:00", "2026-01-01T08:00:30.5", "08:00" (today),
// and how long ago: "90s", "10m", "2h", "3d". Nullopt for anything else.
std::optional<LogTime> parseLogTime(std::string_view text, LogTime now);

}  // namespace tolvex::ctl
