// What can be set at once.
#include <nlohmann/json.hpp>

#include "base/list.h"
#include "control/control_error.h"
#include "control/field.h"
#include "control/patches.h"
#include "control/printer_lookup.h"
#include "control/rule_members.h"

namespace tolvex::sim {

namespace {

void planPrinters(Printers& printers, const Json& patch, Plan& plan) {
  checkObject(patch, "the list of printers", namesOf(printers));
  for (const auto& [name, member] : patch.items()) {
    within(name, [&, &name = name, &member = member] {
      planPrinter(printerNamed(printers, name), member, plan);
    });
  }
}

void planFaults(FaultBoard& faults, const Json& patch, Plan& plan) {
  plan.add([&faults, rules = readRules(patch)] {
    faults.clear();
    for (const FaultRule& rule : rules) faults.add(rule);
  });
}

// Plans with the member, if it is there.
template <typename Make>
void planMember(const Json& patch, const char* name, Make make) {
  const auto found = patch.find(name);
  if (found != patch.end()) within(name, [&] { make(*found); });
}

}  // namespace

void planState(Simulation& simulation, const Json& patch, TimePoint now, Plan& plan) {
  Devices& devices = simulation.devices;
  checkObject(patch, "a state", {"scale", "printers", "drawer", "faults"});
  planMember(patch, "scale", [&](const Json& json) { planScale(devices.scale, json, now, plan); });
  planMember(patch, "printers",
             [&](const Json& json) { planPrinters(devices.printers, json, plan); });
  planMember(patch, "drawer", [&](const Json& json) { planDrawer(devices.drawer, json, plan); });
  planMember(patch, "faults", [&](const Json& json) { planFaults(simulation.faults, json, plan); });
}

}  // namespace tolvex::sim
