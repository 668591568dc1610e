// The commands of the printing port, with whole replies.
#include "printer_commands_fixture.h"

namespace tolvex::sim {
namespace {

class PrintingCommands : public PrinterCommandsFixture {};

TEST_F(PrintingCommands, SetOverloadAlarmReachesTheScale) {
  EXPECT_EQ(printing(R"({"cmd":"setOverloadAlarm","enable":"1"})"), R"({"result":"0"})");
  EXPECT_TRUE(scale_.overloadAlarm());
  EXPECT_EQ(printing(R"({"cmd":"setOverloadAlarm","enable":"0"})"), R"({"result":"0"})");
  EXPECT_FALSE(scale_.overloadAlarm());
}

TEST_F(PrintingCommands, SetOverloadAlarmChecksItsValue) {
  EXPECT_EQ(printing(R"({"cmd":"setOverloadAlarm"})"), R"({"result":"8"})");
  EXPECT_EQ(printing(R"({"cmd":"setOverloadAlarm","enable":true})"), R"({"result":"8"})");
  for (const char* value : {"", "2", "-1", "true", "01", "1 "}) {
    EXPECT_EQ(printing(R"({"cmd":"setOverloadAlarm","enable":")" + std::string(value) + R"("})"),
              R"({"result":"2"})")
        << value;
  }
  EXPECT_FALSE(scale_.overloadAlarm());
}

TEST_F(PrintingCommands, LogLevelCanBeSetAndRead) {
  EXPECT_EQ(printing(R"({"cmd":"getloglevel","module":"print"})"), R"({"result":"0","level":"5"})");
  EXPECT_EQ(printing(R"({"cmd":"setloglevel","module":"print","level":"3"})"), R"({"result":"0"})");
  EXPECT_EQ(printing(R"({"cmd":"getloglevel","module":"print"})"), R"({"result":"0","level":"3"})");
}

TEST_F(PrintingCommands, LogLevelChecksItsValues) {
  EXPECT_EQ(printing(R"({"cmd":"getloglevel"})"), R"({"result":"8"})");
  EXPECT_EQ(printing(R"({"cmd":"getloglevel","module":"loadcell"})"), R"({"result":"2"})");
  EXPECT_EQ(printing(R"({"cmd":"setloglevel","module":"print"})"), R"({"result":"8"})");
  EXPECT_EQ(printing(R"({"cmd":"setloglevel","module":"loadcell","level":"3"})"),
            R"({"result":"2"})");
  EXPECT_EQ(printing(R"({"cmd":"setloglevel","module":"print","level":"9"})"), R"({"result":"2"})");
}

TEST_F(PrintingCommands, GetPrinterListNamesThePrintersThatAreThere) {
  EXPECT_EQ(printing(R"({"cmd":"getPrinterList"})"),
            R"({"result":"0","PrinterList":"Label,Ticket,Third"})");
  devices_.printers.findName("Label")->setFault(PrinterFault::Unplugged, true);
  devices_.printers.findName("Ticket")->setFault(PrinterFault::OutOfPaper, true);
  EXPECT_EQ(printing(R"({"cmd":"getPrinterList"})"),
            R"({"result":"0","PrinterList":"Ticket,Third"})");
  for (Printer& printer : devices_.printers.all()) printer.setFault(PrinterFault::Unplugged, true);
  EXPECT_EQ(printing(R"({"cmd":"getPrinterList"})"), R"({"result":"0","PrinterList":""})");
}

TEST_F(PrintingCommands, GetPrinterVersionIsThePrintersOwn) {
  EXPECT_EQ(printing(R"({"cmd":"getprinterversion","printerName":"Ticket"})"),
            R"({"result":"0","version":"Ticket SIM 1.0"})");
  expectAllNeeded("getprinterversion", {{"printerName", "Ticket"}});
  EXPECT_EQ(send("getprinterversion", {{"printerName", "ticket"}}), "2008");
  EXPECT_EQ(send("getprinterversion", {{"printerName", ""}}), "2008");
  devices_.printers.findName("Ticket")->setFault(PrinterFault::Unplugged, true);
  EXPECT_EQ(send("getprinterversion", {{"printerName", "Ticket"}}), "2008");
}

TEST_F(PrintingCommands, OpenCashBoxOpensTheDrawer) {
  EXPECT_EQ(send("opencashbox"), "0");
  EXPECT_EQ(send("opencashbox"), "0");
  EXPECT_TRUE(devices_.drawer.isOpen());
  EXPECT_EQ(devices_.drawer.openings(), 2);
}

TEST_F(PrintingCommands, RawCommandsAreOrdinaryOnes) {
  const char* members = R"(","printerName":"Ticket","intParam":"7","paramList":"a,b"})";
  const auto raw = [&](const std::string& command) {
    return printing(R"({"cmd":")" + command + members);
  };
  EXPECT_EQ(raw("getprinterversion"), R"({"result":"0","version":"Ticket SIM 1.0"})");
  EXPECT_EQ(raw("opencashbox"), R"({"result":"0"})");
  EXPECT_EQ(raw("printerStatus"), R"({"result":"8"})");
  EXPECT_EQ(raw("setcontrast"), R"({"result":"8"})");
  EXPECT_EQ(raw("selftest"), R"({"result":"2002"})");
}

}  // namespace
}  // namespace tolvex::sim
