// The state as viewers of the live channel get it.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "control/simulation.h"

namespace tolvex::sim {

/// Composes the message {"type":"state",...} once for all viewers who ask at about the same time.
class StateText {
 public:
  /// So long a message serves. Short of what a person sees.
  static constexpr std::chrono::milliseconds kLife{25};

  StateText(const Simulation& simulation, std::function<TimePoint()> clock)
      : simulation_(simulation), clock_(std::move(clock)) {}

  /// The message. As long as the state is the same, this is the same object.
  std::shared_ptr<const std::string> message();

 private:
  const Simulation& simulation_;
  std::function<TimePoint()> clock_;
  std::shared_ptr<const std::string> message_;
  TimePoint composedAt_;
  std::uint64_t epoch_ = 0;
};

}  // namespace tolvex::sim
