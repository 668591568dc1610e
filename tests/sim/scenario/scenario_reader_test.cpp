#include <gtest/gtest.h>

#include <string>

#include "scenario/refusal.h"
#include "scenario/scenario.h"

namespace tolvex::sim {
namespace {

std::string refusalOf(const std::string& text) {
  try {
    parseScenario(text);
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return "taken";
}

std::string refusalOfStep(const std::string& step) {
  return refusalOf(R"({"steps": [{"log": "first"}, )" + step + "]}");
}

TEST(ScenarioReader, TakesAnEmptyScenario) {
  const Scenario scenario = parseScenario("{}");
  EXPECT_FALSE(scenario.initial);
  EXPECT_TRUE(scenario.steps.empty());
  EXPECT_TRUE(scenario.expectations.counts.empty());
  EXPECT_FALSE(scenario.expectations.allSteps);
}

TEST(ScenarioReader, TakesTheInitialStateAsAPatch) {
  const auto initial = parseScenario(R"({"initial": {"scale": {"load_kg": 0.25}}})").initial;
  ASSERT_TRUE(initial);
  EXPECT_EQ(initial->method, "PATCH");
  EXPECT_EQ(initial->path, "/api/state");
  EXPECT_EQ(initial->body, R"({"scale":{"load_kg":0.25}})");
  EXPECT_EQ(initial->place, "/initial");
}

TEST(ScenarioReader, GivesEachCallItsPlace) {
  const auto steps = parseScenario(R"({"steps": [{"after_s": 1},
      {"set": {}, "call": [{"method": "POST", "path": "/api/reset"}]}]})")
                         .steps;
  ASSERT_EQ(steps.size(), 2U);
  ASSERT_EQ(steps[1].calls.size(), 2U);
  EXPECT_EQ(steps[1].calls[0].place, "/steps/1/set");
  EXPECT_EQ(steps[1].calls[1].place, "/steps/1/call/0");
}

TEST(ScenarioReader, RefusesWhatIsNoJsonWithItsLine) {
  EXPECT_EQ(refusalOf("{\"steps\": [\n  {\"log\" \"x\"}\n]}"),
            "line 2, column 12: this is no JSON (syntax error while parsing object separator - "
            "unexpected string literal; expected ':'). Mend it there or just before.");
  EXPECT_EQ(refusalOf(""),
            "line 1, column 1: this is no JSON (syntax error while parsing value - unexpected end "
            "of input; expected '[', '{', or a literal). Mend it there or just before.");
}

TEST(ScenarioReader, RefusesMembersThatStandTwice) {
  EXPECT_EQ(refusalOfStep(R"({"set": {"scale": {"load_kg": 1, "load_kg": 2}}})"),
            "/steps/1/set/scale/load_kg: \"load_kg\" stands twice in one object. Leave one of them "
            "out.");
  EXPECT_EQ(refusalOf(R"({"steps": [], "steps": []})"),
            "/steps: \"steps\" stands twice in one object. Leave one of them out.");
}

TEST(ScenarioReader, RefusesNumbersThatAreTooLarge) {
  const std::string refusal =
      ": the JSON has a number that is too large. Send numbers of less than 1e300.";
  EXPECT_EQ(refusalOfStep(R"({"after_s": 1e999})"), "/steps/1/after_s" + refusal);
  EXPECT_EQ(refusalOfStep(R"({"log": [[], [1, 2, 1e999]]})"), "/steps/1/log/1/2" + refusal);
}

TEST(ScenarioReader, RefusesDocumentsThatAreTooLarge) {
  EXPECT_EQ(refusalOf(std::string(1000, '[')),
            "the JSON is nested too deeply. Send no more than 100000 values on 64 levels.");
  std::string list = "[1";
  for (int i = 0; i < 100'000; ++i) list += ",1";
  EXPECT_EQ(refusalOf(list + "]"),
            "the JSON has too many values. Send no more than 100000 values on 64 levels.");
}

TEST(ScenarioReader, RefusesOtherMembers) {
  EXPECT_EQ(refusalOf(R"({"step": []})"),
            "/step: there is no such member. Members are: initial, steps, expect.");
  EXPECT_EQ(
      refusalOfStep(R"({"lg": "x"})"),
      "/steps/1/lg: there is no such member. Members are: on, command, result, port, printer, "
      "count, after_s, set, call, log, exit, repeat, steps.");
  EXPECT_EQ(refusalOf("[]"), "[] is no object. Write an object: {...}.");
}

TEST(ScenarioReader, RefusesInOneLine) {
  EXPECT_EQ(refusalOf(R"({"x\ny": 1})"),
            "/x\\x0ay: there is no such member. Members are: initial, steps, expect.");
  EXPECT_EQ(refusalOfStep(R"({"on": "x\ny"})"),
            "/steps/1/on: \"x\\x0ay\" is no event. Events are request, job and connection.");
}

TEST(ScenarioReader, RefusesTriggersThatAreNone) {
  EXPECT_EQ(refusalOfStep(R"({"on": "click"})"),
            "/steps/1/on: \"click\" is no event. Events are request, job and connection.");
  EXPECT_EQ(refusalOfStep(R"({"on": "job", "printer": "Tiket"})"),
            "/steps/1/printer: there is no printer \"Tiket\". Printers are: Label, Ticket, Third.");
  EXPECT_EQ(refusalOfStep(R"({"on": "connection", "port": "both"})"),
            "/steps/1/port: there is no port \"both\". Ports are weighing and printing.");
  EXPECT_EQ(refusalOfStep(R"({"on": "job", "count": 0})"),
            "/steps/1/count: 0 is not allowed here. Write a whole number from 1 to 1000000.");
  EXPECT_EQ(refusalOfStep(R"({"after_s": "1"})"),
            "/steps/1/after_s: \"1\" is not allowed here. Write a number from 0.0 to 86400.0.");
  EXPECT_EQ(refusalOfStep(R"({"after_s": -0.5})"),
            "/steps/1/after_s: -0.5 is not allowed here. Write a number from 0.0 to 86400.0.");
}

TEST(ScenarioReader, RefusesPropertiesOfOtherTriggers) {
  EXPECT_EQ(
      refusalOfStep(R"({"on": "job", "command": "getweight"})"),
      "/steps/1/command: this belongs to another trigger. Add \"on\": \"request\", or leave it "
      "out.");
  EXPECT_EQ(refusalOfStep(R"({"count": 2})"),
            "/steps/1/count: this belongs to another trigger. Add \"on\", or leave it out.");
  EXPECT_EQ(
      refusalOfStep(R"({"on": "request", "printer": "Label"})"),
      "/steps/1/printer: this belongs to another trigger. Add \"on\": \"job\", or leave it out.");
}

TEST(ScenarioReader, RefusesActionsThatAreNone) {
  EXPECT_EQ(refusalOfStep(R"({"set": 5})"),
            "/steps/1/set: 5 is no object. Write an object: {...}.");
  EXPECT_EQ(refusalOfStep(R"({"call": {}})"), "/steps/1/call: {} is no list. Write a list: [...].");
  EXPECT_EQ(
      refusalOfStep(R"({"call": [{"method": "GET"}]})"),
      "/steps/1/call/0: it names no method or no path. Write {\"method\": \"POST\", \"path\": "
      "\"/api/printers/Ticket/tear\"}.");
  EXPECT_EQ(refusalOfStep(R"({"exit": 200})"),
            "/steps/1/exit: 200 is not allowed here. Write a whole number from 0 to 125.");
  EXPECT_EQ(refusalOfStep(R"({"log": 1})"),
            "/steps/1/log: 1 is no text. Write it in quotation marks.");
}

TEST(ScenarioReader, RefusesCallsThatWait) {
  const std::string refusal =
      "/steps/1/call/0/path: a step can not wait in a call. Leave the call out, and give the next "
      "step a trigger (\"on\" or \"after_s\").";
  EXPECT_EQ(refusalOfStep(R"({"call": [{"method": "GET", "path": "/api/wait"}]})"), refusal);
  EXPECT_EQ(refusalOfStep(R"({"call": [{"method": "GET", "path": "/api/wait?event=job"}]})"),
            refusal);
}

TEST(ScenarioReader, RefusesBlocksThatNeverWait) {
  EXPECT_EQ(refusalOfStep(R"({"repeat": 2, "steps": [{"log": "x"}]})"),
            "/steps/1: none of its steps waits for anything. Give one of them a trigger (\"on\" or "
            "\"after_s\").");
  EXPECT_EQ(refusalOfStep(R"({"repeat": 2})"),
            "/steps/1: there is nothing to repeat. Add \"steps\": [...].");
  EXPECT_EQ(refusalOfStep(R"({"repeat": 2, "steps": [{"on": "job"}], "log": "x"})"),
            "/steps/1/log: there is no such member. Members are: repeat, steps.");
}

TEST(ScenarioReader, RefusesBlocksThatLieTooDeep) {
  std::string steps = R"({"on": "job"})";
  for (int i = 0; i < kMaxBlockDepth; ++i) steps = R"({"repeat": 2, "steps": [)" + steps + "]}";
  EXPECT_EQ(refusalOfStep(steps), "taken");
  EXPECT_NE(refusalOfStep(R"({"repeat": 2, "steps": [)" + steps + "]}")
                .find("blocks lie too deep in each other. Use at most 8 levels."),
            std::string::npos);
}

TEST(ScenarioReader, ReadsExpectations) {
  const auto expected =
      parseScenario(R"({"expect": {"jobs": 3, "requests": {"getweight": {"min": 1},
      "opencashbox": {"max": 2}}, "results": {"2006": {"min": 1, "max": 4}},
      "connections": {"printing": 1}, "unknown_commands": 0, "steps": "all",
      "state": {"drawer": {"open": true}}}})")
          .expectations;
  Tally tally;
  EXPECT_EQ(unmetCounts(expected.counts, tally),
            std::vector<std::string>({"/expect/jobs: 0 instead of 3",
                                      "/expect/requests/getweight: 0 instead of at least 1",
                                      "/expect/results/2006: 0 instead of 1 to 4",
                                      "/expect/connections/printing: 0 instead of 1"}));
  EXPECT_TRUE(expected.allSteps);
  EXPECT_EQ(expected.state, R"({"drawer":{"open":true}})");
}

TEST(ScenarioReader, RefusesExpectationsThatAreNone) {
  EXPECT_EQ(refusalOf(R"({"expect": {"job": 1}})"),
            "/expect/job: there is no such member. Members are: jobs, requests, results, "
            "connections, unknown_commands, steps, state.");
  EXPECT_EQ(
      refusalOf(R"({"expect": {"jobs": {"Tiket": 1}}})"),
      "/expect/jobs/Tiket: there is no printer \"Tiket\". Printers are: Label, Ticket, Third.");
  EXPECT_EQ(refusalOf(R"({"expect": {"results": {"paper": 1}}})"),
            "/expect/results/paper: \"paper\" is no result code. Write digits, as in \"2006\".");
  EXPECT_EQ(refusalOf(R"({"expect": {"requests": {"getweight": {}}}})"),
            "/expect/requests/getweight: it expects nothing. Write \"min\", \"max\" or both.");
  EXPECT_EQ(refusalOf(R"({"expect": {"jobs": {"min": 3, "max": 2}}})"),
            "/expect/jobs/max: 2 is not allowed here. Write a whole number from 3 to 1000000000.");
  EXPECT_EQ(refusalOf(R"({"expect": {"jobs": 1.5}})"),
            "/expect/jobs: 1.5 is not allowed here. Write a whole number from 0 to 1000000000.");
  EXPECT_EQ(refusalOf(R"({"expect": {"steps": "some"}})"),
            "/expect/steps: only all steps can be expected. Write \"all\".");
  EXPECT_EQ(refusalOf(R"({"expect": {"state": 1}})"),
            "/expect/state: 1 is no object. Write an object: {...}.");
}

}  // namespace
}  // namespace tolvex::sim
