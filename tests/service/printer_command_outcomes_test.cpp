// What holds for every command of the printers that answers with a code: its request, and what
// becomes of each kind of answer.
#include <gtest/gtest.h>

#include <ostream>

#include "service/service_test.h"

namespace tolvex {
namespace {

constexpr int kEarlierError = 77;

struct Command {
  const char* testName;
  unsigned (*run)(VcoClientApi& client);
  const char* request;
  bool keepsItsCode = true;  // as the last error
};

void PrintTo(const Command& command, std::ostream* out) { *out << command.testName; }

// The whole reply of the version goes here.
char version[2048];

const Command kCommands[] = {
    {"BeginPrint", [](VcoClientApi& client) { return client.beginPrint(1); },
     R"({"cmd":"beginPrint","printerType":"1"})"},
    {"PrintText", [](VcoClientApi& client) { return client.printText("Apples", 24, 2); },
     R"({"cmd":"printtext","printerType":"2","fontsize":"24","text":"Apples"})"},
    {"PrintTextByPaperWidth",
     [](VcoClientApi& client) { return client.printTextByPaperWidth("Apples", 24, 58, 2); },
     R"({"cmd":"print_text_width","printerType":"2","fontsize":"24","width":"464","text":"Apples"})"},
    {"PrintBmpFile", [](VcoClientApi& client) { return client.printBmpFile("logo.bmp", 90, 0); },
     R"({"cmd":"printbmpfile","printerType":"0","angle":"90","filename":"logo.bmp"})"},
    {"PrintBlanks", [](VcoClientApi& client) { return client.printBlanks(40, 1); },
     R"({"cmd":"printblanks","distance":"40","printerType":"1"})"},
    {"FeedPaper", [](VcoClientApi& client) { return client.feedPaper(2); },
     R"({"cmd":"printblanks","distance":"13","printerType":"2"})"},
    {"CutPaper", [](VcoClientApi& client) { return client.cutPaper(1, 70); },
     R"({"cmd":"cutPaper","printerType":"1","Percent":"70"})"},
    {"CalibrateLabelGap", [](VcoClientApi& client) { return client.calibrateLabelGap(0); },
     R"({"cmd":"calibrateLabelGap","printerType":"0"})"},
    {"CalibrateOutOfPaper", [](VcoClientApi& client) { return client.calibrateOutOfPaper(1); },
     R"({"cmd":"calibrateOutOfPaper","printerType":"1"})"},
    {"PrinterStatus", [](VcoClientApi& client) { return client.printerStatus(1); },
     R"({"cmd":"printerStatus","printerType":"1"})"},
    {"OpenCashBox", [](VcoClientApi& client) { return client.openCashBox(); },
     R"({"cmd":"opencashbox"})"},
    {"GetPrinterVersion",
     [](VcoClientApi& client) {
       return client.getPrinterVersion(version, sizeof(version), "Till 1");
     },
     R"({"cmd":"getprinterversion","printerName":"Till 1"})"},
    {"SetPaperWidth", [](VcoClientApi& client) { return client.setPaperWidth(80, 1); },
     R"({"cmd":"setpaperwidth","width":"640","printerType":"1"})"},
    {"SetGapType", [](VcoClientApi& client) { return client.setGapType(2, 0); },
     R"({"cmd":"setGapType","gapType":"2","printerType":"0"})"},
    {"SetDirection", [](VcoClientApi& client) { return client.setDirection(1, 0); },
     R"({"cmd":"setdirection","direction":"1","printerType":"0"})"},
    {"SetTextWrapMode", [](VcoClientApi& client) { return client.setTextWrapMode(3, 1); },
     R"({"cmd":"setTextWrapMode","printerType":"1","WrapMode":"3"})", false},
    {"SetLeftMargin", [](VcoClientApi& client) { return client.setLeftMargin(8, "Till 1"); },
     R"({"cmd":"setLeftMargin","printerName":"Till 1","leftMargin":"8"})"},
    {"SetRightMargin", [](VcoClientApi& client) { return client.setRightMargin(9, "Till 1"); },
     R"({"cmd":"setRightMargin","printerName":"Till 1","rightMargin":"9"})"},
    {"SetPrtAutoPrint", [](VcoClientApi& client) { return client.setPrtAutoPrint(1, "Till 1"); },
     R"({"cmd":"setPrtAutoPrint","printerName":"Till 1","enable":"1"})"},
    {"SetPaperOffset", [](VcoClientApi& client) { return client.setPaperOffset(-4, "Till 1"); },
     R"({"cmd":"setPaperOffset","offset":"-4","printerName":"Till 1"})"},
    {"SetContrast", [](VcoClientApi& client) { return client.setContrast(5, "Till 1"); },
     R"({"cmd":"setcontrast","contrast":"5","printerName":"Till 1"})"},
    {"SetPrintSpeed", [](VcoClientApi& client) { return client.setPrintSpeed(100, "Till 1"); },
     R"({"cmd":"setprintspeed","speed":"100","printerName":"Till 1"})"},
    {"SetRollback", [](VcoClientApi& client) { return client.setRollback(1, "Till 1"); },
     R"({"cmd":"setRollback","enable":"1","printerName":"Till 1"})"},
    {"SetTakePaperSensor",
     [](VcoClientApi& client) { return client.setTakePaperSensor(1, "Till 1"); },
     R"({"cmd":"settakepapersensor","enable":"1","printerName":"Till 1"})"},
    {"SetOverloadAlarm", [](VcoClientApi& client) { return client.setOverloadAlarm(1); },
     R"({"cmd":"setOverloadAlarm","enable":"1"})"},
};

class PrinterCommand : public ServiceTest, public ::testing::WithParamInterface<Command> {
 protected:
  PrinterCommand() { leaveLastError(kEarlierError); }

  // The command ends with the code, keeps it if it is one that does, and logs no more than that.
  void expectOutcome(unsigned code, const Texts& logged) {
    EXPECT_EQ(GetParam().run(client), code);
    EXPECT_EQ(client.getLastErrCode(),
              GetParam().keepsItsCode ? static_cast<std::int32_t>(code) : kEarlierError);
    EXPECT_EQ(log.records(), logged);
  }

  void expectOutcomeOfReply(const std::string& reply, unsigned code) {
    printing.reply = reply;
    expectOutcome(code, {});
  }
};

TEST_P(PrinterCommand, SendsItsRequestOnThePrintingConnection) {
  expectOutcome(0, {});
  expectSentOn(printing, GetParam().request);
}

TEST_P(PrinterCommand, DoesNotNeedTheWeighingConnection) {
  VcoClientApi half(nullptr, &printing);
  EXPECT_EQ(GetParam().run(half), 0U);
  EXPECT_EQ(printing.requests, Texts{GetParam().request});
}

TEST_P(PrinterCommand, ReturnsTheServicesCode) {
  expectOutcomeOfReply(R"({"result":"2006"})", 2006);
}

TEST_P(PrinterCommand, ReturnsACodeThatTheTableDoesNotList) {
  expectOutcomeOfReply(R"({"result":"4711"})", 4711);
}

TEST_P(PrinterCommand, TakesAResultWithoutDigitsForSuccess) {
  expectOutcomeOfReply(R"({"result":"abc"})", 0);
}

TEST_P(PrinterCommand, CannotReadAResultThatIsANumber) {
  expectOutcomeOfReply(R"({"result":0})", kUnreadable);
}

TEST_P(PrinterCommand, CannotReadAReplyWithoutAResult) {
  expectOutcomeOfReply(R"({"code":"0"})", kUnreadable);
}

TEST_P(PrinterCommand, CannotReadAReplyThatIsNoJson) { expectOutcomeOfReply("OK", kUnreadable); }

TEST_P(PrinterCommand, CannotReadAReplyCutOffInsideTheObject) {
  expectOutcomeOfReply(R"({"result":"0")", kUnreadable);
}

TEST_P(PrinterCommand, OfAFailedSendIsSocketInterrupt) {
  printing.sendResult = -1;
  expectOutcome(4, {"[W] L:122 M:DLL [SndCmdToPrinter] Snd failed, ret:-1."});
  EXPECT_EQ(printing.requests, Texts{GetParam().request});
  EXPECT_TRUE(printing.receives.empty());
}

TEST_P(PrinterCommand, OfAReplyThatDoesNotComeIsSocketInterrupt) {
  printing.receiveResult = 0;
  expectOutcome(4, {"[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: 0!"});
}

TEST_P(PrinterCommand, OfAFailedReceiveIsSocketInterrupt) {
  printing.receiveResult = -1;
  expectOutcome(4, {"[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: -1!"});
}

TEST_P(PrinterCommand, OfAMissingConnectionHasItsOwnCode) {
  VcoClientApi half(&weighing, nullptr);
  EXPECT_EQ(GetParam().run(half), 2001U);
  EXPECT_EQ(half.getLastErrCode(), GetParam().keepsItsCode ? 2001 : 0);
  EXPECT_EQ(log.records(), Texts{"[W] L:112 M:DLL [SndCmdToPrinter] Print Conn is NULL"});
  expectNothingSent();
}

INSTANTIATE_TEST_SUITE_P(Of, PrinterCommand, ::testing::ValuesIn(kCommands),
                         [](const auto& command) { return std::string(command.param.testName); });

}  // namespace
}  // namespace tolvex
