#include "control/route.h"

#include "base/decimal.h"

namespace tolvex::sim {

namespace {

// A place deep in a body says more than a name that may stand there several times.
std::string whatOf(const ControlError& error) {
  const std::size_t end = error.place().rfind('/');
  const std::string parent = end == std::string::npos ? "" : error.place().substr(0, end);
  return (parent.empty() ? "" : "in " + parent + ": ") + error.what();
}

}  // namespace

const RouteTable& allRoutes() {
  static const RouteTable table = [] {
    RouteTable all;
    for (const RouteTable* part : {&stateRoutes(), &deviceRoutes(), &faultRoutes(), &jobRoutes(),
                                   &trafficRoutes(), &waitRoutes()}) {
      all.insert(all.end(), part->begin(), part->end());
    }
    return all;
  }();
  return table;
}

HttpResponse jsonResponse(const Json& json, int status) {
  HttpResponse response;
  response.status = status;
  response.body = textOf(json) + "\n";
  return response;
}

Json errorBody(const ControlError& error) {
  Json body = {{"error", {{"what", whatOf(error)}, {"remedy", error.remedy()}}}};
  if (!error.place().empty()) body["error"]["place"] = error.place();
  if (error.result()) {
    body["result"] = static_cast<int>(*error.result());
    body["text"] = message(*error.result());
  }
  return body;
}

HttpResponse errorResponse(const ControlError& error) {
  return jsonResponse(errorBody(error), error.status());
}

double numberOr(const Call& call, const std::string& name, double otherwise) {
  const auto found = call.query.find(name);
  return found == call.query.end() ? otherwise : found->second.get<double>();
}

std::string textOr(const Call& call, const std::string& name, const std::string& otherwise) {
  const auto found = call.query.find(name);
  return found == call.query.end() ? otherwise : found->second.get<std::string>();
}

Field numberField(const std::string& name, double least, double most) {
  return {name, FieldType::Whole, "10", least, most};
}

std::uint64_t numberIn(const Call& call, const std::string& what) {
  const std::string& text = call.names.at(0);
  const bool isNumber = text.find_first_not_of("0123456789") == std::string::npos;
  const auto number = isNumber ? parseDecimal(text) : std::nullopt;
  if (number) return static_cast<std::uint64_t>(*number);
  throw unknownNumber(what, text, "Send a number of digits only, at most 15.");
}

ControlError unknownNumber(const std::string& what, const std::string& number,
                           const std::string& remedy) {
  return ControlError(404, "there is no " + what + " " + shown(number), remedy);
}

}  // namespace tolvex::sim
