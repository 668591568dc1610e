#include <string>

#include "scenario_fixture.h"

namespace tolvex::sim {
namespace {

using std::chrono::milliseconds;

TEST_F(ScenarioTest, BeginsWithItsInitialState) {
  play(R"({"initial": {"drawer": {"open": true}}, "steps": [{"log": "one"}]})");
  EXPECT_EQ(done(),
            Lines({R"(PATCH /api/state {"drawer":{"open":true}})", "say step /steps/0: one"}));
}

TEST_F(ScenarioTest, StepsWithoutTriggerActAtOnceInOrder) {
  play(R"({"steps": [{"log": "one"}, {"log": "two"}]})");
  EXPECT_EQ(done(), Lines({"say step /steps/0: one", "say step /steps/1: two"}));
}

TEST_F(ScenarioTest, ATextCanNotPassForAnotherLine) {
  play(R"({"steps": [{"log": "x\nready\u001b[2J"}, {"on": "request", "command": "a\nb"}],
           "expect": {"steps": "all", "requests": {"c\nd": 1}}})");
  EXPECT_EQ(done(), Lines({"say step /steps/0: x\\x0aready\\x1b[2J"}));
  EXPECT_EQ(unmet(), Lines({"/expect/requests/c\\x0ad: 0 instead of 1",
                            "/expect/steps: not all steps acted; /steps/1 still waits for 1 "
                            "request a\\x0ab, of which 0 came"}));
}

TEST_F(ScenarioTest, AStepSetsStateThenCalls) {
  play(R"({"steps": [{"call": [{"method": "POST", "path": "/api/reset"},
                               {"method": "POST", "path": "/api/faults", "body": {"kind": "close"}}],
                      "set": {"scale": {"load_kg": 0.5}}}]})");
  EXPECT_EQ(done(), Lines({"say step /steps/0", R"(PATCH /api/state {"scale":{"load_kg":0.5}})",
                           "POST /api/reset", R"(POST /api/faults {"kind":"close"})"}));
}

TEST_F(ScenarioTest, TimeCountsFromTheStepBefore) {
  play(R"({"steps": [{"after_s": 1.5, "log": "one"}, {"after_s": 0.02, "log": "two"}]})");
  EXPECT_EQ(done(), Lines());
  EXPECT_EQ(time_, milliseconds(1500));
  passTime();
  EXPECT_EQ(done(), Lines({"say step /steps/0: one"}));
  EXPECT_EQ(time_, milliseconds(20));
  passTime();
  EXPECT_EQ(done(), Lines({"say step /steps/1: two"}));
}

TEST_F(ScenarioTest, AStepWaitsForARequestOfItsKind) {
  play(R"({"steps": [{"on": "request", "command": "getweight", "port": "weighing", "result": 1005,
                      "log": "moving"}]})");
  happened(request("getweight", 0));
  happened(request("setzero", 1005));
  happened(request("getweight", 1005, Half::Printing));
  happened(connection(Half::Weighing));
  EXPECT_EQ(done(), Lines());
  happened(request("getweight", 1005));
  EXPECT_EQ(done(), Lines({"say step /steps/0: moving"}));
  happened(request("getweight", 1005));
  EXPECT_EQ(done(), Lines());
}

TEST_F(ScenarioTest, AnyRequestCountsForAStepThatNamesNone) {
  play(R"({"steps": [{"on": "request", "log": "busy"}]})");
  happened(request(""));
  EXPECT_EQ(done(), Lines({"say step /steps/0: busy"}));
}

TEST_F(ScenarioTest, AStepWaitsForAsManyEventsAsItSays) {
  play(R"({"steps": [{"on": "job", "printer": "Ticket", "count": 2, "log": "two"},
                     {"on": "job", "count": 2, "log": "four"}]})");
  happened(job("Ticket"));
  happened(job("Label"));
  EXPECT_EQ(done(), Lines());
  happened(job("Ticket"));
  EXPECT_EQ(done(), Lines({"say step /steps/0: two"}));
  happened(job("Label"));
  EXPECT_EQ(done(), Lines());
  happened(job("Ticket"));
  EXPECT_EQ(done(), Lines({"say step /steps/1: four"}));
}

TEST_F(ScenarioTest, AStepWaitsForAConnection) {
  play(R"({"steps": [{"on": "connection", "port": "printing", "log": "hello"}]})");
  happened(connection(Half::Weighing));
  EXPECT_EQ(done(), Lines());
  happened(connection(Half::Printing));
  EXPECT_EQ(done(), Lines({"say step /steps/0: hello"}));
}

TEST_F(ScenarioTest, TimeAfterAnEventPassesFirst) {
  play(R"({"steps": [{"on": "job", "after_s": 2, "log": "later"}]})");
  EXPECT_FALSE(passed_);
  happened(job("Ticket"));
  EXPECT_EQ(time_, milliseconds(2000));
  happened(job("Ticket"));
  EXPECT_EQ(done(), Lines());
  passTime();
  EXPECT_EQ(done(), Lines({"say step /steps/0: later"}));
}

TEST_F(ScenarioTest, ABlockIsRepeated) {
  play(R"({"steps": [{"repeat": 2, "steps": [{"on": "job", "log": "a"}, {"log": "b"}]},
                     {"log": "end"}]})");
  happened(job("Ticket"));
  EXPECT_EQ(done(), Lines({"say step /steps/0/steps/0: a", "say step /steps/0/steps/1: b"}));
  happened(job("Ticket"));
  EXPECT_EQ(done(), Lines({"say step /steps/0/steps/0: a", "say step /steps/0/steps/1: b",
                           "say step /steps/1: end"}));
}

TEST_F(ScenarioTest, BlocksInBlocksAreRepeated) {
  play(R"({"steps": [{"repeat": 2, "steps": [{"repeat": 2, "steps": [{"on": "job"}]}]}],
           "expect": {"steps": "all"}})");
  for (int i = 0; i < 3; ++i) happened(job("Ticket"));
  EXPECT_EQ(done().size(), 3U);
  EXPECT_EQ(unmet().size(), 1U);
  happened(job("Ticket"));
  EXPECT_EQ(done().size(), 1U);
  EXPECT_EQ(unmet(), Lines());
}

TEST_F(ScenarioTest, WhatAStepBringsAboutCountsForTheNextOne) {
  called_ = [this] { happened(job("Ticket")); };
  play(R"({"steps": [{"call": [{"method": "POST", "path": "/api/printers/Ticket/tear"}]},
                     {"on": "job", "log": "torn"}]})");
  EXPECT_EQ(done(), Lines({"say step /steps/0", "POST /api/printers/Ticket/tear",
                           "say step /steps/1: torn"}));
}

TEST_F(ScenarioTest, ExitEndsTheRunWithItsStatus) {
  play(R"({"steps": [{"on": "job", "exit": 7}, {"log": "never"}], "expect": {"steps": "all"}})");
  EXPECT_EQ(run_->exitStatus(), 0);
  happened(job("Ticket"));
  EXPECT_EQ(done(), Lines({"say step /steps/0", "exit"}));
  EXPECT_EQ(run_->exitStatus(), 7);
  EXPECT_EQ(unmet(), Lines({"/expect/steps: not all steps acted; the run ended before /steps/1"}));
}

TEST_F(ScenarioTest, ExitInTheLastStepLeavesNoneOut) {
  play(R"({"steps": [{"exit": 0}], "expect": {"steps": "all"}})");
  EXPECT_EQ(unmet(), Lines());
}

TEST_F(ScenarioTest, ARefusedCallIsToldAndIsNotAsExpected) {
  answer_ = {409, R"({"error": {"what": "the printer is out of paper", "remedy": "Load paper."}})"};
  play(R"({"steps": [{"call": [{"method": "POST", "path": "/api/printers/Label/calibrate"}]}]})");
  const Lines expected{"/steps/0/call/0: the printer is out of paper. Load paper."};
  EXPECT_EQ(warnings_, expected);
  EXPECT_EQ(unmet(), expected);
}

TEST_F(ScenarioTest, TellsWhichStepStillWaits) {
  play(R"({"steps": [{"on": "request", "command": "getweight", "port": "weighing", "count": 3,
                      "after_s": 1}],
           "expect": {"steps": "all"}})");
  happened(request("getweight"));
  EXPECT_EQ(unmet(),
            Lines({"/expect/steps: not all steps acted; /steps/0 still waits for 3 requests "
                   "getweight on the weighing port and 1000 ms, of which 1 came"}));
}

TEST_F(ScenarioTest, ComparesCountsAndStateAtTheEnd) {
  play(R"({"expect": {"jobs": {"Ticket": 2}, "requests": {"getweight": {"min": 1}},
                      "unknown_commands": 0, "state": {"drawer": {"open": true}}}})");
  state_ = R"({"drawer": {"open": false}})";
  happened(job("Ticket"));
  EXPECT_EQ(unmet(), Lines({"/expect/jobs/Ticket: 1 instead of 2",
                            "/expect/requests/getweight: 0 instead of at least 1",
                            "/expect/state/drawer/open: false instead of true"}));
  state_ = R"({"drawer": {"open": true, "openings": 1}})";
  happened(job("Ticket"));
  happened(request("getweight"));
  EXPECT_EQ(unmet(), Lines());
}

}  // namespace
}  // namespace tolvex::sim
