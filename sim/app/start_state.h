// What the simulator begins with, and goes back to.
#pragma once

#include <string>
#include <utility>

#include "app/options.h"
#include "base/clock.h"
#include "devices/scale_config.h"

namespace tolvex::sim {

struct Simulation;

/// The state that the options and the scenario's "initial" describe.
class StartState {
 public:
  /// The options must live as long.
  explicit StartState(const Options& options) : options_(options) {}

  /// The scenario's part, in JSON as PATCH /api/state takes it. What is refused of it is left out
  /// here: that is for whoever applies it first to tell.
  void setInitial(std::string patch) { initial_ = std::move(patch); }

  /// The scale without a scenario.
  ScaleConfig scale() const;

  /// Brings the devices, faults, jobs and traffic of any simulation there.
  void restore(Simulation& simulation, TimePoint now) const;

 private:
  const Options& options_;
  std::string initial_;  // empty: none
};

}  // namespace tolvex::sim
