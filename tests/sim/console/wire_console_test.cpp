// What the operator does to the wire by typing.
#include <gtest/gtest.h>

#include "console/operator_console.h"
#include "devices/devices.h"
#include "faults/fault_board.h"

namespace tolvex::sim {
namespace {

constexpr char kKinds[] =
    "the faults on the wire are: delay, no-answer, close, reset, two-pieces, garbage, oversized, "
    "wrong-type, result, refuse";

class WireConsoleTest : public ::testing::Test {
 protected:
  std::string type(std::string_view line) { return console_.execute(line, TimePoint()); }
  const FaultRule& newest() const { return faults_.rules().back(); }

  Devices devices_;
  FaultBoard faults_;
  OperatorConsole console_{devices_, faults_, [] {}};
};

TEST_F(WireConsoleTest, SwitchesAFaultOnWithItsSettings) {
  EXPECT_EQ(type("wire delay command=getweight ms=1500 times=3 port=weighing"),
            "ok fault 1: delay port=weighing command=getweight ms=1500 times=3");
  EXPECT_EQ(newest().kind, FaultKind::Delay);
  EXPECT_EQ(newest().half, Half::Weighing);
  EXPECT_EQ(newest().command, "getweight");
  EXPECT_EQ(newest().time, std::chrono::milliseconds(1500));
  EXPECT_EQ(newest().remaining, 3U);
  EXPECT_TRUE(newest().carriedOut);
}

TEST_F(WireConsoleTest, WhatIsNotSaidIsAsUsual) {
  const std::vector<std::pair<std::string, std::string>> lines = {
      {"wire delay ms=0", "delay ms=0"},
      {"wire no-answer", "no-answer"},
      {"wire close port=both", "close"},
      {"wire reset", "reset"},
      {"wire two-pieces", "two-pieces ms=200"},
      {"wire garbage", "garbage bytes=64"},
      {"wire oversized", "oversized bytes=4096"},
      {"wire wrong-type", "wrong-type"},
      {"wire result code=2006", "result code=2006"},
      {"wire refuse", "refuse"}};
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(type(lines[i].first), "ok fault " + std::to_string(i + 1) + ": " + lines[i].second);
  }
  EXPECT_FALSE(faults_.rules()[8].carriedOut);
  EXPECT_TRUE(faults_.rules()[9].dropsConnections);
}

TEST_F(WireConsoleTest, EveryKindHasItsSettings) {
  EXPECT_EQ(type("wire two-pieces first=12 ms=50"), "ok fault 1: two-pieces ms=50 first=12");
  EXPECT_EQ(newest().firstPiece, 12U);
  EXPECT_EQ(type("wire garbage bytes=16777216"), "ok fault 2: garbage bytes=16777216");
  EXPECT_EQ(newest().bytes, FaultRule::kMaxBytes);
  EXPECT_EQ(type("wire result code=-5 carried-out=yes"),
            "ok fault 3: result code=-5 carried-out=yes");
  EXPECT_EQ(newest().code, -5);
  EXPECT_TRUE(newest().carriedOut);
  EXPECT_EQ(type("wire no-answer carried-out=no"), "ok fault 4: no-answer carried-out=no");
  EXPECT_FALSE(newest().carriedOut);
  EXPECT_EQ(type("wire refuse drop=no port=printing"), "ok fault 5: refuse port=printing drop=no");
  EXPECT_FALSE(newest().dropsConnections);
}

TEST_F(WireConsoleTest, MentionsACommandThatNoPortHas) {
  EXPECT_EQ(type("wire close command=getwieght"),
            "ok fault 1: close command=getwieght; mind that no such port has this command");
  EXPECT_EQ(type("wire close command=getweight port=printing"),
            "ok fault 2: close port=printing command=getweight; mind that no such port has this "
            "command");
  EXPECT_EQ(type("wire close command=getloglevel port=printing"),
            "ok fault 3: close port=printing command=getloglevel");
}

TEST_F(WireConsoleTest, SaysWhichFaultsThereAre) {
  const std::string error = std::string("error: unknown fault \"dealy\"; ") + kKinds;
  EXPECT_EQ(type("wire dealy ms=5"), error);
  EXPECT_TRUE(faults_.rules().empty());
}

TEST_F(WireConsoleTest, SaysWhichSettingsAFaultHas) {
  EXPECT_EQ(type("wire delay bytes=5"),
            "error: delay has no setting \"bytes\"; it has: port, command, ms, carried-out, times");
  EXPECT_EQ(type("wire refuse times=5"),
            "error: refuse has no setting \"times\"; it has: port, drop");
  EXPECT_EQ(type("wire two-pieces 12"),
            "error: two-pieces has no setting \"12\"; it has: port, command, ms, first, "
            "carried-out, times");
}

TEST_F(WireConsoleTest, SaysWhatAValueHasToBe) {
  const std::vector<std::pair<std::string, std::string>> lines = {
      {"delay", "delay needs ms, as in: wire delay ms=1500"},
      {"result", "result needs code, as in: wire result code=2006"},
      {"delay ms=600001", "ms needs a number from 0 to 600000, as in: ms=1500"},
      {"delay ms=-1", "ms needs a number from 0 to 600000, as in: ms=1500"},
      {"delay ms", "ms needs a number from 0 to 600000, as in: ms=1500"},
      {"garbage bytes=0", "bytes needs a number from 1 to 16777216, as in: bytes=5000"},
      {"oversized bytes=16777217", "bytes needs a number from 1 to 16777216, as in: bytes=5000"},
      {"two-pieces first=x", "first needs a number from 1 to 16777216, as in: first=12"},
      {"result code=1e3", "code needs a whole number of 32 bits, as in: code=2006"},
      {"close times=0", "times needs a number from 1 to 1000000, as in: times=3"},
      {"close port=web", "port needs weighing, printing or both, as in: port=weighing"},
      {"close command=", "command needs the name of a command, as in: command=getweight"},
      {"close carried-out=on", "carried-out needs yes or no, as in: carried-out=no"},
      {"refuse drop=maybe", "drop needs yes or no, as in: drop=no"}};
  for (const auto& [line, error] : lines) EXPECT_EQ(type("wire " + line), "error: " + error);
  EXPECT_TRUE(faults_.rules().empty());
}

TEST_F(WireConsoleTest, ListsTheFaults) {
  EXPECT_EQ(type("wire"), "ok no faults on the wire");
  type("wire close command=getweight times=2");
  EXPECT_EQ(type("wire"),
            "ok faults on the wire, 1 line\n1 close command=getweight times=2, acted 0");
  type("wire refuse");
  faults_.take(Half::Weighing, "getweight");
  EXPECT_EQ(type("wire"),
            "ok faults on the wire, 2 lines\n1 close command=getweight times=1, acted 1\n2 refuse");
}

TEST_F(WireConsoleTest, SwitchesFaultsOff) {
  type("wire close");
  type("wire reset");
  type("wire garbage");
  EXPECT_EQ(type("wire off 2"), "ok fault 2 is off");
  EXPECT_EQ(type("wire off 2"), "error: there is no fault 2; there are: 1, 3");
  EXPECT_EQ(type("wire off two"), "error: off needs a fault's number, as in: wire off 1");
  EXPECT_EQ(type("wire off 1 3"), "error: off needs a fault's number, as in: wire off 1");
  EXPECT_EQ(faults_.rules().size(), 2U);
  EXPECT_EQ(type("wire off"), "ok no faults on the wire");
  EXPECT_EQ(type("wire off 1"), "error: there is no fault 1; there is none");
  EXPECT_TRUE(faults_.rules().empty());
}

TEST_F(WireConsoleTest, TakesNoMoreThanThereIsRoomFor) {
  for (std::size_t i = 0; i < FaultBoard::kMaxRules; ++i) type("wire close");
  EXPECT_EQ(
      type("wire close"),
      "error: there are 100 faults on the wire, and no more are taken; switch one off, as in: "
      "wire off 1");
}

}  // namespace
}  // namespace tolvex::sim
