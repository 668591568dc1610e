// What the operator does to the printers and the drawer by typing.
#include <gtest/gtest.h>

#include "console/operator_console.h"
#include "devices/devices.h"
#include "faults/fault_board.h"

namespace tolvex::sim {
namespace {

class PrinterConsoleTest : public ::testing::Test {
 protected:
  std::string type(std::string_view line) { return console_.execute(line, TimePoint()); }

  Devices devices_;
  Printer& label_{*devices_.printers.findName("Label")};
  Printer& ticket_{*devices_.printers.findName("Ticket")};
  FaultBoard faults_;
  OperatorConsole console_{devices_, faults_, [] {}};
};

TEST_F(PrinterConsoleTest, FaultsComeAndGo) {
  EXPECT_EQ(type("fault out-of-paper on"), "ok Ticket out-of-paper on, state 2006 Out of Paper");
  EXPECT_EQ(ticket_.status(), ResultCode::OutOfPaper);
  EXPECT_EQ(type("fault busy on"), "ok Ticket busy on, state 2006 Out of Paper");
  EXPECT_EQ(type("fault out-of-paper off"),
            "ok Ticket out-of-paper off, state 2005 Printer is Busy");
  EXPECT_EQ(type("fault busy off Ticket"), "ok Ticket busy off, state 0 OK");
  EXPECT_EQ(ticket_.status(), ResultCode::Ok);
}

TEST_F(PrinterConsoleTest, EveryFaultCanBeMade) {
  for (const PrinterFaultRow& row : printerFaults()) {
    const std::string words = std::string(row.name) + " on";
    EXPECT_EQ(type("fault " + words + " Label"),
              "ok Label " + words + ", state " + toText(row.code) + " " + message(row.code));
    EXPECT_EQ(label_.status(), row.code) << row.name;
    label_.setFault(row.fault, false);
  }
  EXPECT_EQ(ticket_.status(), ResultCode::Ok);
}

TEST_F(PrinterConsoleTest, WrongWordsAreExplained) {
  EXPECT_EQ(type("fault paper on"),
            "error: unknown fault \"paper\"; the faults are: unplugged, abnormal, illegal-head, "
            "out-of-paper, hot, busy");
  EXPECT_EQ(type("fault busy yes"), "error: fault needs on or off, as in: fault out-of-paper on");
  for (const char* line : {"fault", "fault busy", "fault busy on Ticket now"}) {
    EXPECT_EQ(type(line),
              "error: the command is: fault NAME on|off [PRINTER]; the faults are: unplugged, "
              "abnormal, illegal-head, out-of-paper, hot, busy; the printers are: Label, Ticket, "
              "Third")
        << line;
  }
  for (const char* command : {"settings", "paper", "tear"}) {
    EXPECT_EQ(type(std::string(command) + " Label Ticket"),
              "error: the command is: " + std::string(command) +
                  " [PRINTER]; the printers are: Label, Ticket, Third");
  }
  for (const char* command : {"fault busy on ", "settings ", "paper ", "tear "}) {
    EXPECT_EQ(type(std::string(command) + "ticket\x07"),
              "error: unknown printer \"ticket\\x07\"; the printers are: Label, Ticket, Third")
        << command;
  }
  EXPECT_EQ(type("drawer open"), "error: drawer can only be told to close: drawer close");
  EXPECT_EQ(type("printers Label"), "error: the command is: printers");
}

TEST_F(PrinterConsoleTest, PrintersShowTheirState) {
  EXPECT_EQ(type("printers"),
            "ok printers, 3 lines\n"
            "Label, type 0, state 0 OK, prints 448 dots, endless paper, stock gap 40+3 mm at 0 mm, "
            "learnt gap 40+3 mm at 0 mm, in register\n"
            "Ticket, type 1, state 0 OK, prints 576 dots, endless paper\n"
            "Third, type 2, state 0 OK, prints 576 dots, endless paper");
  label_.calibrateLabelGap();
  label_.calibratePaperEnd();
  label_.printText("x", 24);
  label_.finishJob();
  ticket_.printText("x", 24);
  ticket_.set(Setting::PaperWidth, 384);
  ticket_.setFault(PrinterFault::Busy, true);
  ticket_.setFault(PrinterFault::HeadHot, true);
  EXPECT_EQ(
      type("printers"),
      "ok printers, 3 lines\n"
      "Label, type 0, state 0 OK, prints 448 dots, endless paper, stock gap 40+3 mm at 3.75 mm, "
      "learnt gap 40+3 mm at 3.75 mm, in register, label gap known, paper end known, "
      "job 1 finished\n"
      "Ticket, type 1, state 2007 Print Head is Hot (hot, busy), prints 576 dots, "
      "384 from the next job on, endless paper, job 2 printing\n"
      "Third, type 2, state 0 OK, prints 576 dots, endless paper");
  ticket_.tearOff();
  ticket_.setFault(PrinterFault::HeadHot, false);
  EXPECT_EQ(
      type("printers"),
      "ok printers, 3 lines\n"
      "Label, type 0, state 0 OK, prints 448 dots, endless paper, stock gap 40+3 mm at 3.75 mm, "
      "learnt gap 40+3 mm at 3.75 mm, in register, label gap known, paper end known, "
      "job 1 finished\n"
      "Ticket, type 1, state 2005 Printer is Busy (busy), prints 384 dots, endless paper\n"
      "Third, type 2, state 0 OK, prints 576 dots, endless paper");
}

TEST_F(PrinterConsoleTest, SettingsShowThemAll) {
  EXPECT_EQ(type("settings"),
            "ok Ticket, paper-width 640, gap-type 0, direction 0, text-wrap-mode 1, left-margin 0, "
            "right-margin 0, auto-print 0, paper-offset 0, contrast 50, print-speed 100, "
            "rollback 0, take-paper-sensor 0");
  label_.set(Setting::LeftMargin, 8);
  EXPECT_EQ(type("settings Label"),
            "ok Label, paper-width 480, gap-type 1, direction 0, text-wrap-mode 1, left-margin 8, "
            "right-margin 0, auto-print 0, paper-offset 0, contrast 50, print-speed 100, "
            "rollback 0, take-paper-sensor 0");
}

TEST_F(PrinterConsoleTest, PaperShowsTheLatestJob) {
  EXPECT_EQ(type("paper"), "ok nothing has been printed");
  ticket_.printText("Käse\n\n0.482", 24);
  EXPECT_EQ(type("paper"), "ok job 1 on Ticket, still printing, 3 lines\nKäse\n\n0.482");
  ticket_.finishJob();
  label_.printText("Label", 24);
  EXPECT_EQ(type("paper"), "ok job 2 on Label, still printing, 1 line\nLabel");
  EXPECT_EQ(type("paper Ticket"), "ok job 1 on Ticket, 3 lines\nKäse\n\n0.482");
  EXPECT_EQ(type("paper Third"), "ok nothing has been printed on Third");
}

TEST_F(PrinterConsoleTest, TearFinishesAJobThatWasAbandoned) {
  EXPECT_EQ(type("tear"), "ok Ticket torn off");
  ticket_.printText("abandoned", 24);
  label_.printText("x", 24);
  EXPECT_EQ(type("tear"), "ok Ticket torn off, job 1 finished");
  EXPECT_EQ(type("paper Ticket"), "ok job 1 on Ticket, 1 line\nabandoned");
  EXPECT_EQ(type("tear Label"), "ok Label torn off, job 2 finished");
  EXPECT_EQ(type("tear Label"), "ok Label torn off");
}

TEST_F(PrinterConsoleTest, PaperCanNotSteerTheTerminal) {
  ticket_.printText("a\x1B[2Jb\xC2\x9B", 24);
  EXPECT_EQ(type("paper"), "ok job 1 on Ticket, still printing, 1 line\na[2Jb");
}

TEST_F(PrinterConsoleTest, TheDrawerIsClosedByHand) {
  EXPECT_EQ(type("drawer"), "ok drawer closed, openings 0");
  devices_.drawer.open();
  EXPECT_EQ(type("drawer"), "ok drawer open, openings 1");
  EXPECT_EQ(type("drawer close"), "ok drawer closed, openings 1");
  EXPECT_FALSE(devices_.drawer.isOpen());
}

}  // namespace
}  // namespace tolvex::sim
