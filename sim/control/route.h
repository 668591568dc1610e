// What the table of the API is made of.
#pragma once

#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "control/control_error.h"
#include "control/field.h"
#include "control/job_diary.h"
#include "control/simulation.h"
#include "net/web.h"

namespace tolvex::sim {

class PaperCache;
class WaitingRoom;

/// One request with all that its handler works on. The references outlive the call.
struct Call {
  Simulation& simulation;
  const JobDiary& diary;
  WaitingRoom& waitingRoom;
  PaperCache& papers;
  std::string_view openApi;
  TimePoint now;
  /// What stands in the path where the route has names in braces, in their order.
  std::vector<std::string> names;
  /// The parameters that are there, checked.
  std::map<std::string, Json> query;
  /// An empty object if there is none.
  Json body;
  /// For handlers that answer later.
  std::function<void(HttpResponse)> respond;
  /// Empty when nobody knows.
  std::function<bool()> clientLeft;
};

enum class Body { None, Optional, Required };

/// One row of the table.
struct Route {
  std::string method;
  /// With names in braces for what differs: "/api/printers/{name}".
  std::string path;
  /// One line for people.
  std::string what;
  Body body;
  /// The parameters that the query may have.
  std::vector<Field> query;
  /// The answer; nothing if it comes later. Throws ControlError.
  std::optional<HttpResponse> (*handle)(Call& call);
};

using RouteTable = std::vector<Route>;

/// The parts of the table. They are static.
const RouteTable& stateRoutes();
const RouteTable& deviceRoutes();
const RouteTable& faultRoutes();
const RouteTable& jobRoutes();
const RouteTable& trafficRoutes();
const RouteTable& waitRoutes();

/// The whole of it.
const RouteTable& allRoutes();

/// JSON as an answer.
HttpResponse jsonResponse(const Json& json, int status = 200);
Json errorBody(const ControlError& error);
HttpResponse errorResponse(const ControlError& error);

/// The value of a parameter, or another one if it is not there.
double numberOr(const Call& call, const std::string& name, double otherwise);
std::string textOr(const Call& call, const std::string& name, const std::string& otherwise);

/// A parameter that is a number of a job or an exchange, or how many of them.
Field numberField(const std::string& name, double least, double most);

/// The number in the path; 404 if it is none. `what` it counts: "job".
std::uint64_t numberIn(const Call& call, const std::string& what);

/// There is no such thing, because it never was or is no longer kept.
ControlError unknownNumber(const std::string& what, const std::string& number,
                           const std::string& remedy);

}  // namespace tolvex::sim
