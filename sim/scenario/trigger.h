// What a step of a scenario waits for.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "base/half.h"
#include "scenario/event.h"

namespace tolvex::sim {

/// First the event, if there is one, then the time. Neither: the step acts at once.
struct Trigger {
  std::optional<Event::Kind> event;
  /// Which events count: those with these properties, any where there is none (or an empty text).
  std::optional<Half> half;
  std::string command;
  std::optional<std::int64_t> result;
  std::string printer;
  /// How many of them it takes.
  int count = 1;
  std::chrono::milliseconds after{0};

  bool waits() const { return event || after.count() > 0; }
  bool counts(const Event& happened) const;
};

/// What is waited for, for people: "2 requests getweight on the weighing port".
std::string describe(const Trigger& trigger);

}  // namespace tolvex::sim
