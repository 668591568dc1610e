#include <cmath>
#include <utility>

#include "scenario/expectation_reader.h"
#include "scenario/json_value.h"
#include "scenario/names.h"
#include "scenario/scenario.h"

namespace tolvex::sim {

namespace {

constexpr double kLongestWaitSeconds = 86'400;
constexpr long long kMaxEvents = 1'000'000;
constexpr long long kMaxRounds = 1'000'000;
constexpr const char* kWaitPath = "/api/wait";
constexpr int kMaxExitStatus = 125;  // shells use those above for themselves

Event::Kind readEvent(const JsonValue& on) {
  const std::string event = on.text();
  if (event == "request") return Event::Kind::Request;
  if (event == "job") return Event::Kind::Job;
  if (event == "connection") return Event::Kind::Connection;
  on.refuse("\"" + event + "\" is no event", "Events are request, job and connection.");
}

// Only members that belong to the event, lest a step silently waits for something else.
void checkTriggerMembers(const JsonValue& step, std::optional<Event::Kind> event) {
  const auto refuseWithout = [&](const char* member, bool belongs, const char* remedy) {
    const auto value = step.find(member);
    if (value && !belongs) value->refuse("this belongs to another trigger", remedy);
  };
  const bool isRequest = event == Event::Kind::Request;
  refuseWithout("command", isRequest, "Add \"on\": \"request\", or leave it out.");
  refuseWithout("result", isRequest, "Add \"on\": \"request\", or leave it out.");
  refuseWithout("port", isRequest || event == Event::Kind::Connection,
                "Add \"on\": \"request\" or \"connection\", or leave it out.");
  refuseWithout("printer", event == Event::Kind::Job, "Add \"on\": \"job\", or leave it out.");
  refuseWithout("count", event.has_value(), "Add \"on\", or leave it out.");
}

Trigger readTrigger(const JsonValue& step) {
  Trigger trigger;
  if (const auto on = step.find("on")) trigger.event = readEvent(*on);
  checkTriggerMembers(step, trigger.event);
  if (const auto command = step.find("command")) trigger.command = command->text();
  if (const auto result = step.find("result"))
    trigger.result = result->integer(INT32_MIN, INT32_MAX);
  if (const auto port = step.find("port")) trigger.half = checkPort(port->text(), *port);
  if (const auto printer = step.find("printer")) {
    trigger.printer = printer->text();
    checkPrinter(trigger.printer, *printer);
  }
  if (const auto count = step.find("count")) {
    trigger.count = static_cast<int>(count->integer(1, kMaxEvents));
  }
  if (const auto after = step.find("after_s")) {
    trigger.after =
        std::chrono::milliseconds(std::llround(after->number(0, kLongestWaitSeconds) * 1000));
  }
  return trigger;
}

ApiCall readState(const JsonValue& state) {
  state.requireObject();
  return {"PATCH", "/api/state", state.json().dump(), state.place()};
}

ApiCall readCall(const JsonValue& value) {
  value.allow({"method", "path", "body"});
  const auto method = value.find("method");
  const auto path = value.find("path");
  if (!method || !path) {
    value.refuse("it names no method or no path",
                 R"(Write {"method": "POST", "path": "/api/printers/Ticket/tear"}.)");
  }
  if (path->text().substr(0, path->text().find('?')) == kWaitPath) {
    path->refuse("a step can not wait in a call",
                 "Leave the call out, and give the next step a trigger (\"on\" or \"after_s\").");
  }
  const auto body = value.find("body");
  return {method->text(), path->text(), body ? body->json().dump() : "", value.place()};
}

void readActions(const JsonValue& value, Step& step) {
  if (const auto state = value.find("set")) step.calls.push_back(readState(*state));
  if (const auto calls = value.find("call")) {
    calls->forEachElement([&](const JsonValue& call) { step.calls.push_back(readCall(call)); });
  }
  if (const auto log = value.find("log")) step.log = log->text();
  if (const auto exit = value.find("exit")) {
    step.exit = static_cast<int>(exit->integer(0, kMaxExitStatus));
  }
}

bool waits(const std::vector<Step>& steps) {
  for (const Step& step : steps) {
    if (step.trigger.waits() || waits(step.steps)) return true;
  }
  return false;
}

std::vector<Step> readSteps(const JsonValue& value, int depth);

Step readBlock(const JsonValue& value, int depth) {
  value.allow({"repeat", "steps"});
  Step block;
  block.place = value.place();
  if (const auto repeat = value.find("repeat")) {
    block.repeat = static_cast<int>(repeat->integer(1, kMaxRounds));
  }
  if (depth >= kMaxBlockDepth) {
    value.refuse("blocks lie too deep in each other",
                 "Use at most " + std::to_string(kMaxBlockDepth) + " levels.");
  }
  const auto steps = value.find("steps");
  if (!steps) value.refuse("there is nothing to repeat", "Add \"steps\": [...].");
  block.steps = readSteps(*steps, depth + 1);
  if (!waits(block.steps)) {
    value.refuse("none of its steps waits for anything",
                 "Give one of them a trigger (\"on\" or \"after_s\").");
  }
  return block;
}

Step readStep(const JsonValue& value, int depth) {
  value.requireObject();
  if (value.find("steps") || value.find("repeat")) return readBlock(value, depth);
  value.allow({"on", "command", "result", "port", "printer", "count", "after_s", "set", "call",
               "log", "exit", "repeat", "steps"});
  Step step;
  step.place = value.place();
  step.trigger = readTrigger(value);
  readActions(value, step);
  return step;
}

std::vector<Step> readSteps(const JsonValue& value, int depth) {
  std::vector<Step> steps;
  value.forEachElement(
      [&](const JsonValue& element) { steps.push_back(readStep(element, depth)); });
  return steps;
}

}  // namespace

Scenario parseScenario(std::string_view text) {
  const nlohmann::json document = readJson(text);
  const JsonValue root(document, "");
  root.allow({"initial", "steps", "expect"});
  Scenario scenario;
  if (const auto initial = root.find("initial")) scenario.initial = readState(*initial);
  if (const auto steps = root.find("steps")) scenario.steps = readSteps(*steps, 0);
  if (const auto expect = root.find("expect")) {
    scenario.expectations = readExpectations(*expect);
  }
  return scenario;
}

}  // namespace tolvex::sim
