#include "app/trial.h"

#include <gtest/gtest.h>

#include <string>

#include "app/start_state.h"
#include "faults/fault_board.h"
#include "scenario/refusal.h"

namespace tolvex::sim {
namespace {

// Tries a scenario as the program does at its start.
std::string trialOf(const std::string& text) {
  const Options options;
  StartState start(options);
  try {
    tryScenario(parseScenario(text), start);
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return "taken";
}

std::string ticket(const std::string& settings) {
  return R"({"printers": {"Ticket": {"settings": {)" + settings + "}}}}";
}

const char* const kReset = R"({"call": [{"method": "POST", "path": "/api/reset"}]})";

TEST(Trial, AResetGoesBackToTheStart) {
  const std::string wide = R"({"set": )" + ticket(R"("left-margin": 500)") + "}";
  const std::string narrow = R"({"set": )" + ticket(R"("paper-width": 128)") + "}";
  EXPECT_EQ(trialOf("{\"steps\": [" + wide + "," + kReset + "," + narrow + "]}"), "taken");
  EXPECT_EQ(trialOf("{\"steps\": [" + wide + "," + narrow + "]}").substr(0, 30),
            "/steps/1/set/printers/Ticket/s");
}

TEST(Trial, AResetKeepsTheInitialState) {
  const std::string narrow = ticket(R"("paper-width": 128)");
  const std::string wide = ticket(R"("left-margin": 500)");
  const std::string reset =
      R"({"call": [{"method": "POST", "path": "/api/reset", "body": )" + wide + "}]}";
  EXPECT_EQ(trialOf("{\"steps\": [" + reset + "]}"), "taken");
  EXPECT_EQ(trialOf("{\"initial\": " + narrow + ", \"steps\": [" + reset + "]}").substr(0, 30),
            "/steps/0/call/0/printers/Ticke");
  EXPECT_EQ(trialOf("{\"initial\": " + narrow + ", \"steps\": [" + kReset + R"(, {"set": )" + wide +
                    "}]}")
                .substr(0, 30),
            "/steps/1/set/printers/Ticket/s");
}

TEST(Trial, FaultsOfEarlierStepsAreUsedUp) {
  const std::string step =
      R"({"on": "request", "call": [{"method": "POST", "path": "/api/faults",
          "body": {"kind": "delay", "delay_ms": 1, "times": 1}}]})";
  std::string steps = step;
  for (std::size_t i = 0; i < FaultBoard::kMaxRules; ++i) steps += "," + step;
  EXPECT_EQ(trialOf("{\"steps\": [" + steps + "]}"), "taken");
}

}  // namespace
}  // namespace tolvex::sim
