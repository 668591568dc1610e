#include "console/operator_console.h"

#include <gtest/gtest.h>

#include "devices/devices.h"
#include "faults/fault_board.h"

namespace tolvex::sim {
namespace {

constexpr char kCommands[] =
    "load KG, empty, invalid on|off, unstable on|off, noise KG, settling SECONDS, unplug, plug, "
    "zero, tare [KG], clear-tare, status, fault NAME on|off [PRINTER], printers, "
    "settings [PRINTER], paper [PRINTER], tear [PRINTER], drawer [close], "
    "load-paper [MM|endless] [PRINTER], paper-left MM|endless [PRINTER], "
    "stock gap|mark|continuous [LABEL_MM GAP_MM [POSITION_MM]], calibrate [PRINTER], "
    "wire [KIND [KEY=VALUE ...] | off [NUMBER]], help, quit";

class OperatorConsoleTest : public ::testing::Test {
 protected:
  std::string type(std::string_view line) { return console_.execute(line, now_); }
  void pass(int seconds) { now_ += std::chrono::seconds(seconds); }

  TimePoint now_{std::chrono::hours(1)};
  Devices devices_;
  Scale& scale_{devices_.scale};
  bool quit_ = false;
  FaultBoard faults_;
  OperatorConsole console_{devices_, faults_, [this] { quit_ = true; }};
};

TEST_F(OperatorConsoleTest, LoadPutsALoadOnTheScale) {
  EXPECT_EQ(type("load 0.482"), "ok load 0.482 kg");
  EXPECT_EQ(scale_.load(), kilograms(0.482));
  EXPECT_EQ(type("load 1.5"), "ok load 1.500 kg");
  EXPECT_EQ(type("load 0.12345"), "ok load 0.12345 kg");
  EXPECT_EQ(type("load -0.1"), "ok load -0.100 kg");
  EXPECT_EQ(type("load 1000"), "ok load 1000.000 kg");
}

TEST_F(OperatorConsoleTest, LoadNeedsANumberOfKilograms) {
  for (const char* line : {"load x", "load 1kg", "load 1000.001", "load -1001", "load nan"}) {
    EXPECT_EQ(type(line),
              "error: load needs a number of kilograms from -1000 to 1000, as in: load 0.482")
        << line;
  }
  EXPECT_EQ(type("load"), "error: the command is: load KG");
  EXPECT_EQ(type("load 1 2"), "error: the command is: load KG");
  EXPECT_EQ(scale_.load(), 0);
}

TEST_F(OperatorConsoleTest, EmptyTakesTheLoadAway) {
  type("load 1");
  EXPECT_EQ(type("empty"), "ok load 0.000 kg");
  EXPECT_EQ(scale_.load(), 0);
  EXPECT_EQ(type("empty now"), "error: the command is: empty");
}

TEST_F(OperatorConsoleTest, InvalidMakesTheScaleFaulty) {
  EXPECT_EQ(type("invalid on"), "ok invalid on");
  EXPECT_EQ(scale_.condition(), ResultCode::InvalidWeight);
  EXPECT_EQ(type("invalid off"), "ok invalid off");
  EXPECT_EQ(scale_.condition(), ResultCode::Ok);
  EXPECT_EQ(type("invalid yes"), "error: invalid needs on or off, as in: invalid on");
  EXPECT_EQ(type("invalid"), "error: the command is: invalid on|off");
}

TEST_F(OperatorConsoleTest, UnplugAndPlugCutAndRestoreTheConnection) {
  EXPECT_EQ(type("unplug"), "ok unplugged");
  EXPECT_FALSE(scale_.isPluggedIn());
  EXPECT_EQ(type("plug"), "ok plugged in");
  EXPECT_TRUE(scale_.isPluggedIn());
}

TEST_F(OperatorConsoleTest, StatusShowsTheScale) {
  EXPECT_EQ(type("status"), "ok gross 0.000, net 0.000, tare 0.000, stable, at zero, state 0 OK");
  scale_.presetTare(kilograms(0.12));
  type("load 0.482");
  EXPECT_EQ(type("status"),
            "ok gross 0.000, net -0.120, tare 0.120 preset, moving, at zero, "
            "state 1005 Weight Not Stable");
  pass(5);
  EXPECT_EQ(type("status"),
            "ok gross 0.482, net 0.362, tare 0.120 preset, stable, not at zero, state 0 OK");
  scale_.tareByKey(now_);
  type("unplug");
  EXPECT_EQ(type("status"),
            "ok gross 0.482, net 0.482, tare 0.000, stable, not at zero, "
            "state 1007 LC not connected");
}

TEST_F(OperatorConsoleTest, StatusTellsATareByKey) {
  type("load 0.12");
  pass(5);
  scale_.tareByKey(now_);
  EXPECT_EQ(type("status"),
            "ok gross 0.120, net 0.000, tare 0.120 by key, stable, not at zero, state 0 OK");
}

TEST_F(OperatorConsoleTest, HelpNamesTheCommandsAndTheirWords) {
  EXPECT_EQ(
      type("help"),
      std::string("ok commands: ") + kCommands +
          "; the faults are: unplugged, abnormal, illegal-head, out-of-paper, hot, busy"
          "; the printers are: Label, Ticket, Third"
          "; the faults on the wire are: delay, no-answer, close, reset, two-pieces, garbage, "
          "oversized, wrong-type, result, refuse");
}

TEST_F(OperatorConsoleTest, QuitEndsTheSimulator) {
  EXPECT_FALSE(quit_);
  EXPECT_EQ(type("quit"), "ok stopping");
  EXPECT_TRUE(quit_);
}

TEST_F(OperatorConsoleTest, NamesTheCommandsAfterAnUnknownOne) {
  EXPECT_EQ(type("laod 1"),
            std::string("error: unknown command \"laod\"; the commands are: ") + kCommands);
  EXPECT_EQ(type("\x1B[A"),
            std::string("error: unknown command \"\\x1b[A\"; the commands are: ") + kCommands);
}

TEST_F(OperatorConsoleTest, IgnoresBlanksAroundWordsAndBlankLines) {
  EXPECT_EQ(type("  load \t 1  "), "ok load 1.000 kg");
  EXPECT_EQ(type(""), "");
  EXPECT_EQ(type(" \t"), "");
}

}  // namespace
}  // namespace tolvex::sim
