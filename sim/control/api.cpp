#include "control/api.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/decimal.h"
#include "base/list.h"
#include "control/control_error.h"
#include "control/route.h"
#include "control/simulation_feed.h"

namespace tolvex::sim {

namespace {

std::vector<std::string> partsOf(const std::string& path) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t end = 0; end != std::string::npos; begin = end + 1) {
    end = path.find('/', begin);
    parts.push_back(path.substr(begin, end == std::string::npos ? end : end - begin));
  }
  return parts;
}

bool isName(const std::string& part) { return !part.empty() && part.front() == '{'; }

// What stands in the path for the names of the route; nothing if the path is another one.
std::optional<std::vector<std::string>> namesIn(const std::vector<std::string>& parts,
                                                const Route& route) {
  const std::vector<std::string> pattern = partsOf(route.path);
  if (pattern.size() != parts.size()) return std::nullopt;
  std::vector<std::string> names;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (isName(pattern[i]) && !parts[i].empty()) {
      names.push_back(parts[i]);
    } else if (pattern[i] != parts[i]) {
      return std::nullopt;
    }
  }
  return names;
}

struct Found {
  const Route* route = nullptr;
  std::vector<std::string> names;
  std::string methods;  // that the path has
};

Found findRoute(const std::string& method, const std::string& path) {
  Found found;
  const std::vector<std::string> parts = partsOf(path);
  for (const Route& route : allRoutes()) {
    auto names = namesIn(parts, route);
    if (!names) continue;
    addToList(found.methods, route.method);
    if (route.method != method) continue;
    found.route = &route;
    found.names = std::move(*names);
  }
  return found;
}

HttpResponse noRoute(const HttpRequest& request, const std::string& methods) {
  if (methods.empty()) {
    return errorResponse(ControlError(404, "there is no path " + shown(request.path),
                                      "GET /api lists the paths that there are."));
  }
  HttpResponse response = errorResponse(
      ControlError(405, request.path + " can not be asked with " + shown(request.method),
                   "Use " + methods + "."));
  response.headers.emplace_back("Allow", methods);
  return response;
}

std::map<std::string, Json> readQuery(const Route& route, const HttpRequest& request) {
  std::map<std::string, Json> values;
  std::string known;
  for (const Field& field : route.query) addToList(known, field.name);
  for (const auto& [name, text] : request.query) {
    const auto field = std::find_if(route.query.begin(), route.query.end(),
                                    [&name = name](const Field& f) { return f.name == name; });
    if (field == route.query.end()) {
      throw badRequest(shown(name) + " is no parameter of " + route.method + " " + route.path,
                       known.empty() ? "It has none." : "Its parameters are " + known + ".");
    }
    values[name] = queryValue(*field, text);
  }
  return values;
}

Json readBody(const Route& route, const HttpRequest& request) {
  if (request.body.empty() && route.body != Body::Required) return Json::object();
  if (!request.body.empty() && request.contentType != "application/json") {
    throw ControlError(415, "the body is of the type " + shown(request.contentType),
                       "Send JSON, with the header Content-Type: application/json.");
  }
  Json body = parseJson(request.body);
  if (route.body == Body::None && body != Json::object()) {
    throw badRequest(route.method + " " + route.path + " takes no body", "Leave it out.");
  }
  return body;
}

std::uint64_t startOf(const HttpRequest& request, const std::string& name) {
  const auto found = request.query.find(name);
  const auto number = found == request.query.end() ? std::nullopt : parseDecimal(found->second);
  return number && *number > 0 ? static_cast<std::uint64_t>(*number) : 0;
}

// "after=3&limit=5" without escapes. Throws ControlError for a name that stands there twice.
std::map<std::string, std::string> queryOf(const std::string& text) {
  std::map<std::string, std::string> query;
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = std::min(text.find('&', begin), text.size());
    const std::string pair = text.substr(begin, end - begin);
    const std::size_t equals = std::min(pair.find('='), pair.size());
    const std::string name = pair.substr(0, equals);
    if (!query.emplace(name, pair.substr(std::min(equals + 1, pair.size()))).second) {
      throw badRequest(shown(name) + " stands more than once in the query",
                       "Send each parameter once.");
    }
    begin = end + 1;
  }
  return query;
}

}  // namespace

Api::Api(Simulation& simulation, World world)
    : simulation_(simulation),
      world_(std::move(world)),
      diary_(simulation, world_.wallTime),
      waitingRoom_(simulation, diary_, world_.now, world_.after),
      stateText_(std::make_shared<StateText>(simulation, world_.now)) {}

void Api::answer(const HttpRequest& request, std::function<void(HttpResponse)> respond) {
  Found found = findRoute(request.method, request.path);
  if (found.route == nullptr) return respond(noRoute(request, found.methods));
  std::optional<HttpResponse> response;
  try {
    Call call{simulation_,
              diary_,
              waitingRoom_,
              papers_,
              world_.openApi,
              world_.now(),
              std::move(found.names),
              readQuery(*found.route, request),
              readBody(*found.route, request),
              respond,
              request.clientLeft};
    response = found.route->handle(call);
  } catch (const ControlError& error) {
    response = errorResponse(error);
  }
  if (response) respond(std::move(*response));
}

std::unique_ptr<LiveFeed> Api::openFeed(const HttpRequest& request) {
  return std::make_unique<SimulationFeed>(
      simulation_, diary_, stateText_,
      SimulationFeed::Start{startOf(request, "exchanges_after"), startOf(request, "jobs_after")});
}

HttpResponse Api::call(const std::string& method, const std::string& path,
                       const std::string& body) {
  HttpRequest request;
  const std::size_t end = std::min(path.find('?'), path.size());
  request.method = method;
  request.path = path.substr(0, end);
  try {
    request.query = queryOf(path.substr(std::min(end + 1, path.size())));
  } catch (const ControlError& error) {
    return errorResponse(error);
  }
  request.contentType = "application/json";
  request.body = body;
  const auto left = std::make_shared<bool>(false);
  request.clientLeft = [left] { return *left; };
  std::optional<HttpResponse> response;
  answer(request, [&response, left](HttpResponse given) {
    if (!*left) response = std::move(given);
  });
  *left = true;
  if (response) return std::move(*response);
  return errorResponse(ControlError(408, "it has not happened yet", "Wait for it elsewhere."));
}

}  // namespace tolvex::sim
