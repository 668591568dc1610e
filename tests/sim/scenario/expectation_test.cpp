#include "scenario/expectation.h"

#include <gtest/gtest.h>

#include "scenario/refusal.h"
#include "scenario_fixture.h"

namespace tolvex::sim {
namespace {

Tally tallyOf(const std::vector<Event>& events) {
  Tally tally;
  for (const Event& event : events) tally.add(event);
  return tally;
}

CountExpectation expected(CountExpectation::Subject subject, std::string key, std::int64_t least,
                          std::optional<std::int64_t> most) {
  return {"/here", subject, std::move(key), least, most};
}

using Subject = CountExpectation::Subject;

TEST(CountExpectation, CountsWithoutAKeyAreOfAll) {
  Event unknown = request("brew", 1002);
  unknown.known = false;
  const Tally tally = tallyOf({request("getweight"), request("getweight", 1005), unknown,
                               job("Label"), job("Ticket"), connection(Half::Printing)});
  EXPECT_EQ(
      unmetCounts(
          {expected(Subject::Requests, "", 3, 3), expected(Subject::Jobs, "", 2, 2),
           expected(Subject::Results, "", 3, 3), expected(Subject::Connections, "", 1, 1),
           expected(Subject::UnknownCommands, "", 1, 1),
           expected(Subject::Requests, "getweight", 2, 2), expected(Subject::Results, "1005", 1, 1),
           expected(Subject::Connections, "printing", 1, 1)},
          tally),
      Lines());
}

TEST(CountExpectation, BoundsBelongToWhatIsAllowed) {
  const Tally tally = tallyOf({job("Ticket"), job("Ticket")});
  EXPECT_EQ(
      unmetCounts({expected(Subject::Jobs, "", 2, std::nullopt), expected(Subject::Jobs, "", 0, 2),
                   expected(Subject::Jobs, "", 0, 1), expected(Subject::Jobs, "", 3, std::nullopt)},
                  tally),
      Lines({"/here: 2 instead of at most 1", "/here: 2 instead of at least 3"}));
}

TEST(StateDifferences, OnlyWhatIsExpectedIsCompared) {
  EXPECT_EQ(differencesOf(R"({"a": {"b": 1}})", R"({"a": {"b": 1.0, "c": 2}, "d": 3})", "/p"),
            Lines());
  EXPECT_EQ(differencesOf(R"({"a": {"b": 1}, "e": null})", R"({"a": {"b": 2}})", "/p"),
            Lines({"/p/a/b: 2 instead of 1", "/p/e: nothing instead of null"}));
  EXPECT_EQ(differencesOf(R"({"a": {"b": 1}})", R"({"a": 5})", "/p"),
            Lines({"/p/a: 5 instead of {\"b\":1}"}));
}

// What is wrong with an expected state when the state is this.
std::string refusalOf(const char* expected, const char* state) {
  Expectations expectations;
  expectations.state = expected;
  try {
    checkExpectedState(expectations, [&] { return state; });
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return "taken";
}

const char* const kState =
    R"({"drawer": {"open": false, "openings": 0}, "faults": [], "last": null,
        "printers": [{"name": "Label", "type": 0}, {"name": "Ticket", "type": 1}]})";

TEST(ExpectedState, MayDifferInItsValues) {
  EXPECT_EQ(refusalOf(R"({"drawer": {"open": true, "openings": 2.5}, "faults": [{"id": 1}],
                          "last": "x", "printers": {"Ticket": {"type": 7}}})",
                      kState),
            "taken");
  EXPECT_EQ(refusalOf(R"({"drawer": {"open": null}, "last": {"x": 1}})", kState), "taken");
}

TEST(ExpectedState, HasOnlyMembersThatThereAre) {
  EXPECT_EQ(refusalOf(R"({"drawer": {"opened": true}})", kState),
            "/expect/state/drawer/opened: the state has no such member. Members are: open, "
            "openings.");
  EXPECT_EQ(refusalOf(R"({"printers": {"Tiket": {}}})", kState),
            "/expect/state/printers/Tiket: the state has no such member. Members are: Label, "
            "Ticket.");
  EXPECT_EQ(refusalOf(R"({"faults": {"close": {}}})", kState),
            "/expect/state/faults/close: the state has no such member. Write a list: [...].");
}

TEST(ExpectedState, HasValuesOfTheTypesThatThereAre) {
  EXPECT_EQ(refusalOf(R"({"drawer": {"open": 1}})", kState),
            "/expect/state/drawer/open: 1 is no boolean. Write one, like false.");
  EXPECT_EQ(refusalOf(R"({"printers": {"Ticket": {"type": "1"}}})", kState),
            "/expect/state/printers/Ticket/type: \"1\" is no number. Write one, like 1.");
  EXPECT_EQ(refusalOf(R"({"drawer": true})", kState),
            "/expect/state/drawer: true is no object. Write one, like "
            "{\"open\":false,\"openings\":0}.");
}

TEST(StateDifferences, ElementsOfListsAreFoundByName) {
  const char* actual =
      R"({"printers": [{"name": "Label", "type": 0}, {"name": "Ticket", "type": 1}]})";
  EXPECT_EQ(differencesOf(R"({"printers": {"Ticket": {"type": 1}}})", actual, ""), Lines());
  EXPECT_EQ(
      differencesOf(R"({"printers": {"Ticket": {"type": 0}, "Third": {"type": 2}}})", actual, ""),
      Lines({"/printers/Third: nothing instead of {\"type\":2}",
             "/printers/Ticket/type: 1 instead of 0"}));
}

TEST(StateDifferences, ListsAreComparedAsAWhole) {
  EXPECT_EQ(differencesOf(R"({"faults": []})", R"({"faults": []})", ""), Lines());
  EXPECT_EQ(differencesOf(R"({"faults": []})", R"({"faults": [1]})", ""),
            Lines({"/faults: [1] instead of []"}));
}

}  // namespace
}  // namespace tolvex::sim
