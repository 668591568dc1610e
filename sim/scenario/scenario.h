// A scenario: what happens to the devices while a program is tested, and what is expected of it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/api_call.h"
#include "scenario/expectation.h"
#include "scenario/trigger.h"

namespace tolvex::sim {

/// A step waits for its trigger, carries out its calls in their order, and makes way for the next
/// one. A block has steps of its own instead, which it goes through `repeat` times.
struct Step {
  std::string place;  // in the file
  Trigger trigger;
  std::vector<ApiCall> calls;
  std::string log;          // empty: nothing
  std::optional<int> exit;  // ends the simulator with this exit status
  int repeat = 1;
  std::vector<Step> steps;
};

struct Scenario {
  /// Carried out before the ports are open.
  std::optional<ApiCall> initial;
  std::vector<Step> steps;
  Expectations expectations;
};

/// Largest file that is read, in bytes.
constexpr std::size_t kMaxScenarioBytes = std::size_t{1} << 20U;
/// How deep blocks may lie in each other.
constexpr int kMaxBlockDepth = 8;

/// Reads a scenario; what its calls mean is for the API to say. Throws Refusal.
Scenario parseScenario(std::string_view text);

}  // namespace tolvex::sim
