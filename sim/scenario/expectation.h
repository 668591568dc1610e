// What a run is expected to have been like.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/tally.h"

namespace tolvex::sim {

/// How often something has to have happened.
struct CountExpectation {
  enum class Subject { Jobs, Requests, Results, Connections, UnknownCommands };

  std::string place;  // in the file
  Subject subject = Subject::Requests;
  /// Of which printer, which command, which result or which port; empty: of all together.
  std::string key;
  std::int64_t least = 0;
  std::optional<std::int64_t> most;
};

/// The place of the expected state.
constexpr const char* kStatePlace = "/expect/state";

struct Expectations {
  std::vector<CountExpectation> counts;
  /// Each step has acted.
  bool allSteps = false;
  /// JSON that the state at the end has to contain, see differencesOf(); empty: any.
  std::string state;
};

/// Throws Refusal if the state that is expected has a member that `state`, the state at some time in
/// JSON, does not have, or a value of another type. What is null now may be anything later, and the
/// other way round. `state` is asked only if a state is expected.
void checkExpectedState(const Expectations& expectations,
                        const std::function<std::string()>& state);

/// One line for each count that is not as expected: "/expect/jobs/Ticket: 1 instead of 2".
std::vector<std::string> unmetCounts(const std::vector<CountExpectation>& counts,
                                     const Tally& tally);

/// One line for each value of `expected` that `actual` does not have: "/drawer/open: false instead
/// of true". Both are JSON. Members that are not expected may have any value; an expected object
/// is also compared with a list, by the members "name" of the list's elements. Numbers are equal
/// when their values are. Each place begins with `place`.
std::vector<std::string> differencesOf(std::string_view expected, std::string_view actual,
                                       const std::string& place);

}  // namespace tolvex::sim
