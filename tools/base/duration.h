#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace tolvex::ctl {

/// Reads a duration: a whole number of milliseconds ("500"), or with a unit "500ms", "5s", "2m".
/// From 1 ms to a day; nothing for any other text.
std::optional<std::chrono::milliseconds> parseDuration(std::string_view text);

/// In words: "500 ms", "5 s", "1.5 s".
std::string toText(std::chrono::milliseconds duration);

}  // namespace tolvex::ctl
