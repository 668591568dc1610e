// The keys of the scale and its unrest, by typing.
#include <gtest/gtest.h>

#include "console/operator_console.h"
#include "devices/devices.h"
#include "faults/fault_board.h"

namespace tolvex::sim {
namespace {

class ScaleConsoleTest : public ::testing::Test {
 protected:
  std::string type(std::string_view line) { return console_.execute(line, now_); }
  void settle(const char* line) {
    type(line);
    now_ += std::chrono::seconds(20);
  }

  TimePoint now_{std::chrono::hours(1)};
  Devices devices_;
  Scale& scale_{devices_.scale};
  FaultBoard wire_;
  OperatorConsole console_{devices_, wire_, [] {}};
};

TEST_F(ScaleConsoleTest, ZeroMakesTheLoadZero) {
  settle("load 0.1");
  EXPECT_EQ(type("zero"), "ok zero");
  EXPECT_EQ(scale_.weigh(now_).gross, 0);
}

TEST_F(ScaleConsoleTest, TareIsByKeyOrANumber) {
  settle("load 0.12");
  EXPECT_EQ(type("tare"), "ok tare 0.120 kg by key");
  EXPECT_EQ(type("tare 0.25"), "ok tare 0.250 kg preset");
  EXPECT_EQ(type("clear-tare"), "ok tare 0.000 kg");
  EXPECT_EQ(scale_.tare(), 0);
}

TEST_F(ScaleConsoleTest, KeysThatRefuseTellWhatToDo) {
  settle("load 7");
  EXPECT_EQ(type("zero"), "error: zero is refused, 10 " +
                              std::string(message(ResultCode::CommandReturnFail)) +
                              "; the load must lie within 2 % of the capacity, as in: load 0.1");
  EXPECT_EQ(type("tare"), "error: tare is refused, 10 " +
                              std::string(message(ResultCode::CommandReturnFail)) +
                              "; it takes up to 6.000 kg");
  settle("load 20");
  EXPECT_EQ(type("tare"), "error: tare is refused, 1004 " +
                              std::string(message(ResultCode::OverLoad)) +
                              "; take load off the scale, as in: empty");
  settle("load -1");
  EXPECT_EQ(type("zero"), "error: zero is refused, 1003 " +
                              std::string(message(ResultCode::UnderLoad)) +
                              "; put a load on the scale, as in: load 0.482");
  type("load 0.1");
  EXPECT_EQ(type("zero"),
            "error: zero is refused, 1005 Weight Not Stable; wait until status tells that it is "
            "stable");
  type("invalid on");
  EXPECT_EQ(type("tare 0.1"), "error: tare is refused, 1006 " +
                                  std::string(message(ResultCode::InvalidWeight)) +
                                  "; mend the scale with: invalid off");
  type("unplug");
  EXPECT_EQ(type("clear-tare"),
            "error: clear-tare is refused, 1007 LC not connected; connect the scale with: plug");
}

TEST_F(ScaleConsoleTest, ATareIsANumberOfKilograms) {
  for (const char* line : {"tare x", "tare -0.1", "tare 3.001", "tare 1kg"}) {
    EXPECT_EQ(type(line), "error: tare needs a number of kilograms from 0 to 3, as in: tare 0.12")
        << line;
  }
  EXPECT_EQ(type("tare 1 2"), "error: the command is: tare [KG]");
}

TEST_F(ScaleConsoleTest, UnstableAndNoiseKeepTheWeightMoving) {
  EXPECT_EQ(type("unstable on"), "ok unstable on");
  EXPECT_EQ(scale_.weigh(now_).result, ResultCode::WeightNotStable);
  EXPECT_EQ(type("noise 0.002"), "ok noise 0.002 kg");
  EXPECT_EQ(scale_.noise(), kilograms(0.002));
  const std::string status = type("status");
  EXPECT_EQ(status.substr(status.find("state")),
            "state 1005 Weight Not Stable, noise 0.002 kg, made unstable");
  EXPECT_EQ(type("unstable off"), "ok unstable off");
  EXPECT_EQ(type("noise 0"), "ok noise 0.000 kg");
  EXPECT_EQ(type("status"), "ok gross 0.000, net 0.000, tare 0.000, stable, at zero, state 0 OK");
}

TEST_F(ScaleConsoleTest, SettlingIsSet) {
  EXPECT_EQ(type("settling 2.5"), "ok settling 2.5 s");
  EXPECT_EQ(scale_.settling(), Seconds(2.5));
  EXPECT_EQ(type("settling 0"), "ok settling 0 s");
  type("load 1");
  EXPECT_EQ(scale_.weigh(now_).result, ResultCode::Ok);
}

TEST_F(ScaleConsoleTest, WrongWordsAreExplained) {
  EXPECT_EQ(type("unstable maybe"), "error: unstable needs on or off, as in: unstable on");
  for (const char* line : {"noise x", "noise -0.001", "noise 1.001"}) {
    EXPECT_EQ(type(line),
              "error: noise needs a number of kilograms from 0 to 1, as in: noise 0.002")
        << line;
  }
  for (const char* line : {"settling x", "settling -1", "settling 60.1"}) {
    EXPECT_EQ(type(line),
              "error: settling needs a number of seconds from 0 to 60, as in: settling 2.5")
        << line;
  }
}

}  // namespace
}  // namespace tolvex::sim
