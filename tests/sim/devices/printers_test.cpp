// Which printers there are, and what is wrong with them.
#include "devices/printers.h"

#include "printer_fixture.h"

namespace tolvex::sim {
namespace {

class PrintersTest : public PrinterFixture {};

TEST_F(PrintersTest, AreFoundByTypeAndName) {
  for (const auto& [type, name] : {std::pair(0, "Label"), {1, "Ticket"}, {2, "Third"}}) {
    Printer* printer = printers_.findType(type);
    ASSERT_NE(printer, nullptr) << name;
    EXPECT_EQ(printer->type(), type);
    EXPECT_EQ(printer->name(), name);
    EXPECT_EQ(printers_.findName(name), printer);
  }
}

TEST_F(PrintersTest, TheTicketPrinterIsTheDefaultOne) {
  EXPECT_EQ(printers_.findType(100), &ticket_);
  EXPECT_EQ(&printers_.defaultPrinter(), &ticket_);
}

TEST_F(PrintersTest, OthersAreNotFound) {
  for (const int type : {-1, 3, 99, 101, 2147483647}) {
    EXPECT_EQ(printers_.findType(type), nullptr) << type;
  }
  for (const char* name : {"", "ticket", "Ticket ", "Default", "1"}) {
    EXPECT_EQ(printers_.findName(name), nullptr) << name;
  }
}

TEST_F(PrintersTest, HaveTheirOwnPaper) {
  EXPECT_EQ(label_.printable(), 448);
  EXPECT_TRUE(label_.hasLabels());
  for (Printer* printer : {&ticket_, &third_}) {
    EXPECT_EQ(printer->printable(), 576);
    EXPECT_FALSE(printer->hasLabels());
  }
  ASSERT_EQ(label_.printText("x", 28), ResultCode::Ok);
  const PaperFormat& labels = label_.job()->paper().format();
  EXPECT_EQ(labels.width, 480);
  EXPECT_EQ(labels.printable, 448);
  EXPECT_EQ(labels.labelHeight, 320);
  EXPECT_EQ(labels.labelGap, 24);
  ASSERT_EQ(ticket_.printText("x", 28), ResultCode::Ok);
  const PaperFormat& roll = ticket_.job()->paper().format();
  EXPECT_EQ(roll.width, 640);
  EXPECT_EQ(roll.printable, 576);
  EXPECT_EQ(roll.labelHeight, 0);
}

TEST_F(PrintersTest, TheFaultsHaveNamesAndCodes) {
  std::vector<std::pair<std::string, int>> rows;
  for (const PrinterFaultRow& row : printerFaults()) {
    rows.emplace_back(row.name, static_cast<int>(row.code));
  }
  const std::vector<std::pair<std::string, int>> expected = {
      {"unplugged", 2008},    {"abnormal", 2010}, {"illegal-head", 2009},
      {"out-of-paper", 2006}, {"hot", 2007},      {"busy", 2005}};
  EXPECT_EQ(rows, expected);
}

TEST_F(PrintersTest, TheGravestFaultIsReported) {
  // From the least to the gravest, each added to those before, and taken away again.
  const auto& faults = printerFaults();
  for (auto row = faults.rbegin(); row != faults.rend(); ++row) {
    ticket_.setFault(row->fault, true);
    EXPECT_EQ(ticket_.status(), row->code) << row->name;
  }
  EXPECT_FALSE(ticket_.isPluggedIn());
  for (const PrinterFaultRow& row : faults) {
    EXPECT_EQ(ticket_.status(), row.code) << row.name;
    ticket_.setFault(row.fault, false);
  }
  EXPECT_EQ(ticket_.status(), ResultCode::Ok);
  EXPECT_TRUE(ticket_.isPluggedIn());
}

TEST_F(PrintersTest, AFaultIsOnePrintersOwn) {
  ticket_.setFault(PrinterFault::Busy, true);
  EXPECT_EQ(label_.status(), ResultCode::Ok);
  EXPECT_EQ(third_.status(), ResultCode::Ok);
}

TEST_F(PrintersTest, AFaultStopsEverythingThatMovesPaper) {
  ASSERT_EQ(label_.printText("before", 28), ResultCode::Ok);
  for (const PrinterFaultRow& row : printerFaults()) {
    label_.setFault(row.fault, true);
    EXPECT_EQ(label_.printText("x", 28), row.code) << row.name;
    EXPECT_EQ(label_.printImage(Bitmap(3, 2)), row.code) << row.name;
    EXPECT_EQ(label_.feed(13), row.code) << row.name;
    EXPECT_EQ(label_.cut(70), row.code) << row.name;
    EXPECT_EQ(label_.finishJob(), row.code) << row.name;
    EXPECT_EQ(label_.calibrateLabelGap(), row.code) << row.name;
    EXPECT_EQ(label_.calibratePaperEnd(), row.code) << row.name;
    label_.setFault(row.fault, false);
  }
  EXPECT_EQ(paperOf(1), (Items{"\"before\"@28"}));
  EXPECT_FALSE(label_.job()->isFinished());
  EXPECT_FALSE(label_.knowsLabelGap());
  EXPECT_FALSE(label_.knowsPaperEnd());
}

TEST_F(PrintersTest, AFaultOnFreshPaperLeavesItFresh) {
  ticket_.setFault(PrinterFault::OutOfPaper, true);
  EXPECT_EQ(ticket_.printText("x", 28), ResultCode::OutOfPaper);
  EXPECT_EQ(ticket_.feed(13), ResultCode::OutOfPaper);
  ticket_.setFault(PrinterFault::OutOfPaper, false);
  EXPECT_EQ(ticket_.printText("y", 28), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"y\"@28"}));
}

TEST_F(PrintersTest, CalibrationIsRemembered) {
  EXPECT_EQ(label_.calibrateLabelGap(), ResultCode::Ok);
  EXPECT_TRUE(label_.knowsLabelGap());
  EXPECT_FALSE(label_.knowsPaperEnd());
  EXPECT_EQ(ticket_.calibratePaperEnd(), ResultCode::Ok);
  EXPECT_TRUE(ticket_.knowsPaperEnd());
  EXPECT_EQ(jobs(), 0U);
}

TEST_F(PrintersTest, OnlyLabelsHaveAGapToCalibrate) {
  EXPECT_EQ(ticket_.calibrateLabelGap(), ResultCode::PrtDrvReturnError);
  EXPECT_EQ(third_.calibrateLabelGap(), ResultCode::PrtDrvReturnError);
  EXPECT_FALSE(ticket_.knowsLabelGap());
}

}  // namespace
}  // namespace tolvex::sim
