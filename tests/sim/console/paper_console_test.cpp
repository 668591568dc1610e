// What the operator does to the paper in the printers by typing.
#include <gtest/gtest.h>

#include "console/operator_console.h"
#include "console/printer_argument.h"
#include "devices/devices.h"
#include "faults/fault_board.h"

namespace tolvex::sim {
namespace {

class PaperConsoleTest : public ::testing::Test {
 protected:
  std::string type(std::string_view line) { return console_.execute(line, TimePoint()); }

  Devices devices_;
  Printer& label_{*devices_.printers.findName("Label")};
  Printer& ticket_{*devices_.printers.findName("Ticket")};
  FaultBoard wire_;
  OperatorConsole console_{devices_, wire_, [] {}};
};

TEST_F(PaperConsoleTest, PaperCanBeRunningOut) {
  EXPECT_EQ(type("paper-left 100"), "ok Ticket, 100 mm of paper left, state 0 OK");
  EXPECT_EQ(ticket_.paperLeft(), 800);
  EXPECT_EQ(type("paper-left 0 Label"), "ok Label, 0 mm of paper left, state 2006 Out of Paper");
  EXPECT_EQ(label_.status(), ResultCode::OutOfPaper);
  EXPECT_EQ(type("paper-left endless Label"), "ok Label, endless paper, state 0 OK");
  EXPECT_EQ(type("paper-left 0.3"), "ok Ticket, 0.25 mm of paper left, state 0 OK");
}

TEST_F(PaperConsoleTest, PaperMendsTheFaultOfHavingNone) {
  EXPECT_EQ(type("fault out-of-paper on"), "ok Ticket out-of-paper on, state 2006 Out of Paper");
  EXPECT_EQ(type("paper-left 100"), "ok Ticket, 100 mm of paper left, state 0 OK");
}

TEST_F(PaperConsoleTest, PaperIsLoaded) {
  type("paper-left 0");
  EXPECT_EQ(type("load-paper"), "ok Ticket loaded, endless paper, state 0 OK");
  EXPECT_EQ(type("load-paper 50000"), "ok Ticket loaded, 50000 mm of paper left, state 0 OK");
  EXPECT_EQ(ticket_.paperLeft(), 400000);
  EXPECT_EQ(type("load-paper endless Ticket"), "ok Ticket loaded, endless paper, state 0 OK");
  label_.setFault(PrinterFault::OutOfPaper, true);
  label_.setFault(PrinterFault::Busy, true);
  EXPECT_EQ(type("load-paper Label"), "ok Label loaded, endless paper, state 2005 Printer is Busy");
  EXPECT_EQ(type("load-paper 1000000 Label"),
            "ok Label loaded, 1000000 mm of paper left, state 2005 Printer is Busy");
}

TEST_F(PaperConsoleTest, MendingTheFaultLoadsPaper) {
  type("paper-left 0");
  EXPECT_EQ(type("fault out-of-paper off"), "ok Ticket out-of-paper off, state 0 OK");
  EXPECT_EQ(ticket_.paperLeft(), std::nullopt);
}

TEST_F(PaperConsoleTest, WrongLengthsAreExplained) {
  for (const char* line :
       {"load-paper x", "load-paper 0", "load-paper -1", "load-paper 1000000.1", "load-paper 1m"}) {
    EXPECT_EQ(type(line),
              "error: load-paper needs millimetres above 0, up to 1000000, or endless, as in: "
              "load-paper 50000 Label")
        << line;
  }
  for (const char* line : {"paper-left x", "paper-left -1", "paper-left 1000000.1"}) {
    EXPECT_EQ(type(line),
              "error: paper-left needs millimetres from 0 to 1000000, or endless, as in: "
              "paper-left 100 Ticket")
        << line;
  }
  for (const char* line : {"load-paper 5 x", "paper-left 5 x", "calibrate x"}) {
    EXPECT_EQ(type(line), "error: unknown printer \"x\"; the printers are: Label, Ticket, Third")
        << line;
  }
  EXPECT_EQ(type("paper-left"),
            "error: the command is: paper-left MM|endless [PRINTER]; the printers are: Label, "
            "Ticket, Third");
  EXPECT_EQ(ticket_.paperLeft(), std::nullopt);
}

TEST_F(PaperConsoleTest, StockIsExchanged) {
  EXPECT_EQ(type("stock gap 30 2"),
            "ok Label, stock gap 30+2 mm at 0 mm, learnt gap 40+3 mm at 0 mm, out of register");
  EXPECT_EQ(*label_.stock(), (LabelStock{StockKind::Gap, 240, 16, 0}));
  EXPECT_EQ(type("stock mark 25.5 2.125 3.75"),
            "ok Label, stock mark 25.5+2.125 mm at 3.75 mm, learnt gap 40+3 mm at 0 mm, "
            "out of register");
  EXPECT_EQ(type("stock continuous"),
            "ok Label, stock continuous, learnt gap 40+3 mm at 0 mm, out of register");
  EXPECT_EQ(*label_.stock(), (LabelStock{StockKind::Continuous, 204, 17, 0}));
  EXPECT_EQ(type("stock gap 40 3"),
            "ok Label, stock gap 40+3 mm at 0 mm, learnt gap 40+3 mm at 0 mm, in register");
}

TEST_F(PaperConsoleTest, WrongStockIsExplained) {
  for (const char* line :
       {"stock gap 30", "stock gap 4 2", "stock gap 301 2", "stock gap 30 0.5", "stock gap 30 31",
        "stock gap 30 2 32", "stock gap x 2", "stock gap 30 2 -1"}) {
    EXPECT_EQ(type(line),
              "error: stock needs labels of 5 to 300 mm, gaps of 1 to 30 mm and a position above "
              "the next label, as in: stock gap 30 2")
        << line;
  }
  EXPECT_EQ(type("stock roll 30 2"),
            "error: unknown stock \"roll\"; the kinds are: gap, mark, continuous");
  EXPECT_EQ(type("stock"),
            "error: the command is: stock gap|mark|continuous [LABEL_MM GAP_MM [POSITION_MM]]");
  EXPECT_TRUE(label_.isInRegister());
}

TEST_F(PaperConsoleTest, CalibrationLearnsTheStock) {
  type("stock gap 30 2");
  EXPECT_EQ(type("calibrate"),
            "ok Label, stock gap 30+2 mm at 0 mm, learnt gap 30+2 mm at 0 mm, in register");
  EXPECT_EQ(label_.freshPaper(), 512);
  EXPECT_EQ(type("calibrate Label"),
            "ok Label, stock gap 30+2 mm at 0 mm, learnt gap 30+2 mm at 0 mm, in register");
}

TEST_F(PaperConsoleTest, ACalibrationThatFailsIsExplained) {
  EXPECT_EQ(type("calibrate Ticket"), "error: Ticket is not calibrated, 2003 " +
                                          std::string(message(ResultCode::PrtDrvReturnError)) +
                                          "; it has no labels");
  type("stock mark 30 2");
  EXPECT_EQ(type("calibrate"), "error: Label is not calibrated, 2003 " +
                                   std::string(message(ResultCode::PrtDrvReturnError)) +
                                   "; its stock is mark, its gap type 1, but 1 finds gaps and 2 "
                                   "marks");
  label_.setFault(PrinterFault::HeadHot, true);
  EXPECT_EQ(type("calibrate"), "error: Label is not calibrated, 2007 Print Head is Hot");
}

TEST(Millimetres, HaveAsManyDecimalsAsTheyNeed) {
  EXPECT_EQ(millimetres(0), "0");
  EXPECT_EQ(millimetres(800), "100");
  EXPECT_EQ(millimetres(1), "0.125");
  EXPECT_EQ(millimetres(2), "0.25");
  EXPECT_EQ(millimetres(12), "1.5");
  EXPECT_EQ(millimetres(8'000'000), "1000000");
}

TEST(Millimetres, AreReadToTheNearestDot) {
  EXPECT_EQ(parseMillimetres("0.06"), 0);
  EXPECT_EQ(parseMillimetres("0.07"), 1);
  EXPECT_EQ(parseMillimetres("1000000"), 8'000'000);
  for (const char* text : {"", "-0.1", "1000000.01", "1e3", "nan"}) {
    EXPECT_EQ(parseMillimetres(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace tolvex::sim
