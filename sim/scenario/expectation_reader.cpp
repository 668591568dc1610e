#include "scenario/expectation_reader.h"

#include <algorithm>
#include <vector>

#include "base/integer.h"
#include "scenario/names.h"

namespace tolvex::sim {

namespace {

using Subject = CountExpectation::Subject;

constexpr long long kMaxCount = 1'000'000'000;

void checkKey(Subject subject, const std::string& key, const JsonValue& value) {
  switch (subject) {
    case Subject::Jobs:
      checkPrinter(key, value);
      break;
    case Subject::Connections:
      checkPort(key, value);
      break;
    case Subject::Results:
      if (!parseInteger(key)) {
        value.refuse("\"" + key + "\" is no result code", "Write digits, as in \"2006\".");
      }
      break;
    case Subject::Requests:
    case Subject::UnknownCommands:
      break;
  }
}

// A number, or {"min": 1, "max": 3}.
CountExpectation readCount(Subject subject, const std::string& key, const JsonValue& value) {
  CountExpectation expected;
  expected.place = value.place();
  expected.subject = subject;
  expected.key = key;
  if (!value.isObject()) {
    expected.least = value.integer(0, kMaxCount);
    expected.most = expected.least;
    return expected;
  }
  value.allow({"min", "max"});
  if (const auto least = value.find("min")) expected.least = least->integer(0, kMaxCount);
  if (const auto most = value.find("max")) expected.most = most->integer(expected.least, kMaxCount);
  if (value.json().empty()) value.refuse("it expects nothing", "Write \"min\", \"max\" or both.");
  return expected;
}

bool isBounds(const JsonValue& value) { return value.find("min") || value.find("max"); }

// One count for all of a kind, or an object of counts by name.
void readCounts(Subject subject, const JsonValue& value, std::vector<CountExpectation>& counts) {
  if (!value.isObject() || isBounds(value)) {
    counts.push_back(readCount(subject, "", value));
    return;
  }
  value.forEachMember([&](const std::string& key, const JsonValue& count) {
    checkKey(subject, key, count);
    counts.push_back(readCount(subject, key, count));
  });
}

}  // namespace

Expectations readExpectations(const JsonValue& value) {
  value.allow({"jobs", "requests", "results", "connections", "unknown_commands", "steps", "state"});
  Expectations expectations;
  auto& counts = expectations.counts;
  if (const auto jobs = value.find("jobs")) readCounts(Subject::Jobs, *jobs, counts);
  if (const auto requests = value.find("requests")) {
    readCounts(Subject::Requests, *requests, counts);
  }
  if (const auto results = value.find("results")) readCounts(Subject::Results, *results, counts);
  if (const auto made = value.find("connections")) readCounts(Subject::Connections, *made, counts);
  if (const auto unknown = value.find("unknown_commands")) {
    counts.push_back(readCount(Subject::UnknownCommands, "", *unknown));
  }
  if (const auto steps = value.find("steps")) {
    if (steps->text() != "all") steps->refuse("only all steps can be expected", "Write \"all\".");
    expectations.allSteps = true;
  }
  if (const auto state = value.find("state")) {
    state->requireObject();
    expectations.state = state->json().dump();
  }
  return expectations;
}

}  // namespace tolvex::sim
