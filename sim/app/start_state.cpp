#include "app/start_state.h"

#include <nlohmann/json.hpp>

#include "control/control_error.h"
#include "control/patches.h"

namespace tolvex::sim {

namespace {

void apply(const std::string& patch, Simulation& simulation, TimePoint now) {
  try {
    Plan plan;
    planState(simulation, parseJson(patch), now, plan);
    plan.carryOut();
  } catch (const ControlError&) {
    // It was told when the patch was applied for the first time.
  }
}

}  // namespace

ScaleConfig StartState::scale() const {
  ScaleConfig config;
  setSettling(config, options_.settling);
  return config;
}

void StartState::restore(Simulation& simulation, TimePoint now) const {
  simulation.devices.restore(scale(), options_.load);
  simulation.faults.clear();
  simulation.traffic.restart();
  if (!initial_.empty()) apply(initial_, simulation, now);
}

}  // namespace tolvex::sim
