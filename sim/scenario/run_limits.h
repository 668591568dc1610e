// When a run is to end by itself.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tolvex::sim {

/// Whatever is reached first.
struct RunLimits {
  std::optional<std::chrono::milliseconds> time;
  std::optional<std::int64_t> jobs;      // finished
  std::optional<std::int64_t> requests;  // answered

  bool hasCounts() const { return jobs || requests; }
};

/// Reads limits such as "30s", "500ms", "2m", "1job", "3jobs", "20requests", and several with
/// commas between them, each kind once. Times go up to a day, counts up to 1000000000; all are
/// whole numbers from 1 on. Nothing for anything else.
std::optional<RunLimits> parseRunLimits(std::string_view text);

}  // namespace tolvex::sim
