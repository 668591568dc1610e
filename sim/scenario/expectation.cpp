#include "scenario/expectation.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <numeric>

#include "base/list.h"
#include "base/printable.h"
#include "scenario/json_value.h"

namespace tolvex::sim {

namespace {

using nlohmann::json;

constexpr std::size_t kMaxValueBytes = 200;

std::int64_t countOf(const std::map<std::string, std::int64_t>& counts, const std::string& key) {
  if (key.empty()) {
    return std::accumulate(counts.begin(), counts.end(), std::int64_t{0},
                           [](std::int64_t sum, const auto& entry) { return sum + entry.second; });
  }
  const auto found = counts.find(key);
  return found == counts.end() ? 0 : found->second;
}

std::int64_t countOf(const CountExpectation& expected, const Tally& tally) {
  switch (expected.subject) {
    case CountExpectation::Subject::Jobs:
      return countOf(tally.jobs, expected.key);
    case CountExpectation::Subject::Requests:
      return countOf(tally.requests, expected.key);
    case CountExpectation::Subject::Results:
      return countOf(tally.results, expected.key);
    case CountExpectation::Subject::Connections:
      return countOf(tally.connections, expected.key);
    case CountExpectation::Subject::UnknownCommands:
      break;
  }
  return tally.unknownCommands;
}

std::string boundsOf(const CountExpectation& expected) {
  if (!expected.most) return "at least " + std::to_string(expected.least);
  if (*expected.most == expected.least) return std::to_string(expected.least);
  if (expected.least == 0) return "at most " + std::to_string(*expected.most);
  return std::to_string(expected.least) + " to " + std::to_string(*expected.most);
}

std::string inWords(const json* value) {
  if (value == nullptr) return "nothing";
  return printable(value->dump(-1, ' ', false, json::error_handler_t::replace), kMaxValueBytes);
}

// The member of an object, or the element of a list that has this name; null if there is none.
const json* find(const json& value, const std::string& name) {
  if (value.is_object()) {
    const auto found = value.find(name);
    return found == value.end() ? nullptr : &*found;
  }
  if (!value.is_array()) return nullptr;
  const auto found = std::find_if(value.begin(), value.end(), [&](const json& element) {
    return element.is_object() && element.value("name", json()) == name;
  });
  return found == value.end() ? nullptr : &*found;
}

// What find() finds.
std::string namesIn(const json& value) {
  std::string names;
  for (const auto& [key, member] : value.items()) {
    if (value.is_object()) addToList(names, key);
    if (value.is_array() && member.is_object() && member.contains("name")) {
      addToList(names, member["name"].get<std::string>());
    }
  }
  return names;
}

void checkShape(const JsonValue& expected, const json& actual) {
  if (expected.json().is_null() || actual.is_null()) return;
  if (expected.isObject() && actual.is_structured()) {
    expected.forEachMember([&](const std::string& name, const JsonValue& member) {
      const json* found = find(actual, name);
      if (found != nullptr) return checkShape(member, *found);
      const std::string names = namesIn(actual);
      member.refuse("the state has no such member",
                    names.empty() ? "Write a list: [...]." : "Members are: " + names + ".");
    });
  } else if (std::string_view(expected.json().type_name()) != actual.type_name()) {
    expected.refuse(inWords(&expected.json()) + " is no " + actual.type_name(),
                    "Write one, like " + inWords(&actual) + ".");
  }
}

void compare(const JsonValue& expected, const json* actual, std::vector<std::string>& differences) {
  if (expected.isObject() && actual != nullptr && actual->is_structured()) {
    expected.forEachMember([&](const std::string& name, const JsonValue& member) {
      compare(member, find(*actual, name), differences);
    });
  } else if (actual == nullptr || expected.json() != *actual) {
    differences.push_back(expected.place() + ": " + inWords(actual) + " instead of " +
                          inWords(&expected.json()));
  }
}

}  // namespace

void checkExpectedState(const Expectations& expectations,
                        const std::function<std::string()>& state) {
  if (expectations.state.empty()) return;
  const json expected = readJson(expectations.state);
  checkShape(JsonValue(expected, kStatePlace), readJson(state()));
}

std::vector<std::string> unmetCounts(const std::vector<CountExpectation>& counts,
                                     const Tally& tally) {
  std::vector<std::string> unmet;
  for (const CountExpectation& expected : counts) {
    const std::int64_t count = countOf(expected, tally);
    if (count >= expected.least && (!expected.most || count <= *expected.most)) continue;
    unmet.push_back(expected.place + ": " + std::to_string(count) + " instead of " +
                    boundsOf(expected));
  }
  return unmet;
}

std::vector<std::string> differencesOf(std::string_view expected, std::string_view actual,
                                       const std::string& place) {
  const json expectedState = readJson(expected);
  const json actualState = readJson(actual);
  std::vector<std::string> differences;
  compare(JsonValue(expectedState, place), &actualState, differences);
  return differences;
}

}  // namespace tolvex::sim
