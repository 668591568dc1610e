// Which records of the log somebody wants to see.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "logs/log_record.h"

namespace tolvex::ctl {

struct LogFilter {
  // By level, 1 to 7; nothing chosen lets all through, and what has no level.
  std::array<bool, 8> levels{};
  std::vector<std::string> modules;  // whatever the case; none lets all through
  std::optional<LogTime> since;
  std::optional<LogTime> until;
  std::string text;  // which the record has to contain; ASCII letters in any case

  bool passes(const LogRecord& record) const;
};

// Adds the levels that a word names to those chosen: numbers ("5"), ranges ("5-7"), letters ("W"),
// "failures" (5 and 7), "trace" (6), "traffic" (2), or several with commas. Returns false for
// anything else, with nothing added.
bool addLevels(std::string_view words, std::array<bool, 8>& levels);

}  // namespace tolvex::ctl
