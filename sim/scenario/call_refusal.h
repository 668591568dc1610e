// Calls that the API refuses.
#pragma once

#include <string>

#include "scenario/api_call.h"
#include "scenario/scenario.h"

namespace tolvex::sim {

bool isRefused(const ApiAnswer& answer);

/// "/steps/2/set/scale/load_kg: load_kg is 2000, but a load is from -1000 to 1000 kg. Send ...".
std::string refusalText(const ApiCall& call, const ApiAnswer& answer);

/// Tries all calls of a scenario, in order and without waiting, on an API whose devices nobody
/// uses. Throws Refusal for one that is wrong in itself. What may only be refused because nothing
/// has been printed or weighed there is left for the run to find out.
void tryCalls(const Scenario& scenario, const CallApi& call);

}  // namespace tolvex::sim
