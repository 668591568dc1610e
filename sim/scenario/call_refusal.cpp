#include "scenario/call_refusal.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "scenario/refusal.h"

namespace tolvex::sim {

namespace {

using nlohmann::json;

constexpr int kNotFound = 404;
constexpr int kRefusedByDevice = 409;

struct Reason {
  std::string place;
  std::string what;
  std::string remedy;
};

std::string textOf(const json& error, const char* member) {
  const auto found = error.find(member);
  return found != error.end() && found->is_string() ? found->get<std::string>() : "";
}

// The API names the object in the text, too; here the whole place stands before it.
std::string withoutPlace(const std::string& what, const std::string& place) {
  const std::string prefix = "in " + place.substr(0, place.rfind('/')) + ": ";
  return place.empty() || what.rfind(prefix, 0) != 0 ? what : what.substr(prefix.size());
}

Reason reasonOf(const ApiCall& call, const ApiAnswer& answer) {
  const json body = json::parse(answer.body, nullptr, false);
  const json error = body.is_object() ? body.value("error", json::object()) : json::object();
  if (!error.is_object() || !error.contains("what")) {
    return {call.place,
            call.method + " " + call.path + " was answered with status " +
                std::to_string(answer.status),
            "See the description of the API."};
  }
  const std::string place = textOf(error, "place");
  return {call.place + place, withoutPlace(textOf(error, "what"), place), textOf(error, "remedy")};
}

// Jobs and faults that a call names come into being in the course of the run.
bool mayWorkLater(const ApiCall& call, const ApiAnswer& answer) {
  if (answer.status == kRefusedByDevice) return true;
  const bool isNumbered =
      call.path.rfind("/api/jobs/", 0) == 0 || call.path.rfind("/api/faults/", 0) == 0;
  return answer.status == kNotFound && isNumbered;
}

void tryCall(const ApiCall& wanted, const CallApi& call) {
  const ApiAnswer answer = call(wanted);
  if (!isRefused(answer) || mayWorkLater(wanted, answer)) return;
  const Reason reason = reasonOf(wanted, answer);
  throw Refusal(reason.place, reason.what, reason.remedy);
}

void tryCalls(const std::vector<Step>& steps, const CallApi& call) {
  for (const Step& step : steps) {
    for (const ApiCall& wanted : step.calls) tryCall(wanted, call);
    tryCalls(step.steps, call);
  }
}

}  // namespace

bool isRefused(const ApiAnswer& answer) { return answer.status >= 400; }

std::string refusalText(const ApiCall& call, const ApiAnswer& answer) {
  const Reason reason = reasonOf(call, answer);
  return Refusal(reason.place, reason.what, reason.remedy).what();
}

void tryCalls(const Scenario& scenario, const CallApi& call) {
  if (scenario.initial) tryCall(*scenario.initial, call);
  tryCalls(scenario.steps, call);
}

}  // namespace tolvex::sim
