#include "scenario/call_refusal.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "scenario/refusal.h"

namespace tolvex::sim {
namespace {

const char* const kScenario = R"({"initial": {"scale": {}}, "steps": [
    {"repeat": 3, "steps": [{"on": "job", "set": {"drawer": {}}}]},
    {"call": [{"method": "DELETE", "path": "/api/faults/7"}]}]})";

// Tries the scenario on an API that gives this answer to the call at this place.
std::string trial(const std::string& place, const ApiAnswer& answer) {
  try {
    tryCalls(parseScenario(kScenario),
             [&](const ApiCall& call) { return call.place == place ? answer : ApiAnswer{}; });
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return "taken";
}

TEST(ScenarioTrial, CarriesOutEachCallOnceInOrder) {
  std::vector<std::string> places;
  tryCalls(parseScenario(kScenario), [&](const ApiCall& call) {
    places.push_back(call.place);
    return ApiAnswer{};
  });
  EXPECT_EQ(places,
            std::vector<std::string>({"/initial", "/steps/0/steps/0/set", "/steps/1/call/0"}));
}

TEST(ScenarioTrial, RefusesAWrongCallWithThePlaceOfItsValue) {
  EXPECT_EQ(
      trial(
          "/steps/0/steps/0/set",
          {400,
           R"({"error": {"place": "/drawer/open", "what": "in /drawer: open is 5, but is true or false",
                            "remedy": "Send true."}})"}),
      "/steps/0/steps/0/set/drawer/open: open is 5, but is true or false. Send true.");
  EXPECT_EQ(trial("/initial", {400, R"({"error": {"what": "it is bad", "remedy": "Mend it."}})"}),
            "/initial: it is bad. Mend it.");
  EXPECT_EQ(
      trial("/steps/1/call/0", {405, "<html>"}),
      "/steps/1/call/0: DELETE /api/faults/7 was answered with status 405. See the description "
      "of the API.");
}

TEST(ScenarioTrial, LeavesToTheRunWhatMayWorkThere) {
  EXPECT_EQ(trial("/steps/1/call/0", {404, "{}"}), "taken");
  EXPECT_EQ(trial("/steps/1/call/0", {409, "{}"}), "taken");
  EXPECT_NE(trial("/initial", {404, "{}"}), "taken");
}

}  // namespace
}  // namespace tolvex::sim
