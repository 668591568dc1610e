// What goes wrong on the wire.
#include "control/route.h"
#include "control/rule_members.h"
#include "control/views.h"

namespace tolvex::sim {

namespace {

using Answer = std::optional<HttpResponse>;

Answer getFaults(Call& call) {
  return jsonResponse({{"faults", rulesView(call.simulation.faults)}});
}

Answer addFault(Call& call) {
  FaultBoard& faults = call.simulation.faults;
  const FaultRule rule = readRule(call.body);
  if (faults.add(rule) == 0) {
    throw badRequest("there are " + std::to_string(faults.rules().size()) + " rules already",
                     "Switch off those that are no longer needed: DELETE /api/faults.");
  }
  return jsonResponse(ruleView(faults.rules().back()), 201);
}

Answer removeFaults(Call& call) {
  call.simulation.faults.clear();
  return getFaults(call);
}

Answer removeFault(Call& call) {
  if (!call.simulation.faults.remove(numberIn(call, "fault"))) {
    throw unknownNumber("fault", call.names.at(0), "GET /api/faults lists those that there are.");
  }
  return getFaults(call);
}

}  // namespace

const RouteTable& faultRoutes() {
  static const RouteTable table = {
      {"GET", "/api/faults", "the faults of the wire", Body::None, {}, getFaults},
      {"POST", "/api/faults", "switches a fault on", Body::Required, {}, addFault},
      {"DELETE", "/api/faults", "switches all faults off", Body::None, {}, removeFaults},
      {"DELETE", "/api/faults/{id}", "switches a fault off", Body::None, {}, removeFault},
  };
  return table;
}

}  // namespace tolvex::sim
