// Everything at once.
#include "control/patches.h"
#include "control/route.h"
#include "control/views.h"

namespace tolvex::sim {

namespace {

using Answer = std::optional<HttpResponse>;

Answer listPaths(Call&) {
  Json paths = Json::array();
  for (const Route& route : allRoutes()) {
    paths.push_back({{"method", route.method}, {"path", route.path}, {"what", route.what}});
  }
  return jsonResponse({{"paths", paths}});
}

Answer getOpenApi(Call& call) {
  HttpResponse response;
  response.body = call.openApi;
  return response;
}

Answer getState(Call& call) { return jsonResponse(stateView(call.simulation, call.now)); }

Answer patchState(Call& call) {
  Plan plan;
  planState(call.simulation, call.body, call.now, plan);
  plan.carryOut();
  return getState(call);
}

// The patch is checked before anything is lost, on a simulation like the one that there will be.
Answer reset(Call& call) {
  Simulation fresh;
  if (call.simulation.restoreOther) call.simulation.restoreOther(fresh, call.now);
  Plan check;
  planState(fresh, call.body, call.now, check);
  call.simulation.reset(call.now);
  return patchState(call);
}

// Viewers come here with a WebSocket, which the server sees to.
Answer live(Call&) {
  throw ControlError(426, "this is the live channel", "Open it with a WebSocket.");
}

}  // namespace

const RouteTable& stateRoutes() {
  constexpr double kMost = 1e15;
  static const RouteTable table = {
      {"GET", "/api", "these paths", Body::None, {}, listPaths},
      {"GET", "/api/openapi.json", "their description in OpenAPI 3.1", Body::None, {}, getOpenApi},
      {"GET", "/api/state", "the whole state", Body::None, {}, getState},
      {"PATCH", "/api/state", "changes any part of the state", Body::Required, {}, patchState},
      {"POST",
       "/api/reset",
       "goes back to the state at the start, and applies a patch to it",
       Body::Optional,
       {},
       reset},
      {"GET",
       "/api/live",
       "the live channel, a WebSocket",
       Body::None,
       {numberField("exchanges_after", 0, kMost), numberField("jobs_after", 0, kMost)},
       live},
  };
  return table;
}

}  // namespace tolvex::sim
