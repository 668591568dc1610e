#include "app/trial.h"

#include <chrono>
#include <functional>

#include "app/api_call.h"
#include "app/start_state.h"
#include "control/api.h"
#include "control/simulation.h"
#include "scenario/call_refusal.h"

namespace tolvex::sim {

namespace {

// Time does not pass in a trial.
Api::World standstill() {
  Api::World world;
  world.after = [](std::chrono::milliseconds, const std::function<void()>&) {};
  return world;
}

// Carries calls out on a simulation of its own, which a call may reset to the same start.
class Trial {
 public:
  explicit Trial(const StartState& start) : api_(simulation_, standstill()) {
    simulation_.restore = [this, &start](TimePoint now) { start.restore(simulation_, now); };
    simulation_.restoreOther = [&start](Simulation& other, TimePoint now) {
      start.restore(other, now);
    };
    start.restore(simulation_, Clock::now());
  }

  // Without the faults of earlier calls: in the run, requests will have used them up.
  ApiAnswer call(const ApiCall& call) {
    simulation_.faults.clear();
    return callApi(api_, call);
  }

 private:
  Simulation simulation_;
  Api api_;
};

}  // namespace

void tryScenario(const Scenario& scenario, StartState& start) {
  Trial trial(start);
  if (scenario.initial) start.setInitial(scenario.initial->body);
  tryCalls(scenario, [&trial](const ApiCall& call) { return trial.call(call); });
  checkExpectedState(scenario.expectations, [&trial] {
    return trial.call({"GET", "/api/state", "", ""}).body;
  });
}

}  // namespace tolvex::sim
