// Scenarios, tried before the run.
#pragma once

#include "scenario/scenario.h"

namespace tolvex::sim {

class StartState;

/// Tries the calls of a scenario in order, on devices that nobody uses, and adds its initial state
/// to `start`. Throws Refusal for a call that is wrong in itself, and for an expected state that no
/// run can end with.
void tryScenario(const Scenario& scenario, StartState& start);

}  // namespace tolvex::sim
