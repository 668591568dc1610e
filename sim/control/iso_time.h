// Moments as programs exchange them.
#pragma once

#include <chrono>
#include <string>

namespace tolvex::sim {

/// ISO 8601 in UTC with milliseconds: "2026-11-21T11:47:01.123Z". From 1970 on.
std::string isoTime(std::chrono::system_clock::time_point time);

}  // namespace tolvex::sim
