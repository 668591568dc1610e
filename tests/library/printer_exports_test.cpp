// What all exports share that send one command to a printer: exact requests, results, log lines,
// and what becomes of a service that refuses, closes, is gone or cannot be understood.
#include <functional>

#include "library/printing_test.h"

namespace tolvex::test {
namespace {

constexpr char kName[] = "Bon 1";

struct PrinterExport {
  const char* name;
  std::function<int()> call;
  std::string request;
  bool keepsCode = true;           // as the last error
  Lines before = {};               // the lines that come whatever happens
  Lines onSuccess = {};            // the last ones when it goes well
  std::string onFailure = {};      // the last one otherwise, before the code
  std::function<int()> twin = {};  // if there is one

  bool isVerdict() const { return !onFailure.empty(); }
  int success() const { return isVerdict() ? 240 : 0; }
  int failure(int code) const { return isVerdict() ? 255 : code; }
  Lines linesOf(const Lines& between, int code) const {
    Lines lines = before;
    lines.insert(lines.end(), between.begin(), between.end());
    if (code == 0) lines.insert(lines.end(), onSuccess.begin(), onSuccess.end());
    if (code != 0 && isVerdict()) lines.push_back(onFailure + std::to_string(code));
    return lines;
  }
};

// An export that answers with the command's code and logs nothing.
PrinterExport plain(const char* name, std::function<int()> call, const std::string& request,
                    std::function<int()> twin = {}) {
  PrinterExport row{name, std::move(call), request};
  row.twin = std::move(twin);
  return row;
}

// One that leaves the last error as it was, except where a call is refused.
PrinterExport notKept(PrinterExport row) {
  row.keepsCode = false;
  return row;
}

// One that answers with a verdict.
PrinterExport logged(const char* name, std::function<int()> call, const std::string& request,
                     const char* entry, const char* success, const char* failure,
                     std::function<int()> twin = {}) {
  PrinterExport row{name, std::move(call), request};
  row.before = {entry};
  row.onSuccess = {success};
  row.onFailure = failure;
  row.twin = std::move(twin);
  return row;
}

std::vector<PrinterExport> paperExports() {
  return {
      logged(
          "printBlanks", [] { return printBlanks(40); },
          R"({"cmd":"printblanks","distance":"40","printerType":"100"})",
          "[T] L:812 M:DLL [printBlanks] Entry", "[T] L:819 M:DLL [printBlanks] OK",
          "[W] L:816 M:DLL [printBlanks] Err:", [] { return printBlanks_stdcall(40); }),
      logged(
          "cutPaper", [] { return cutPaper(); },
          R"({"cmd":"cutPaper","printerType":"100","Percent":"70"})",
          "[T] L:830 M:DLL [cutPaper] Entry", "[T] L:837 M:DLL [cutPaper] OK",
          "[W] L:834 M:DLL [cutPaper] Err: ", [] { return cutPaper_stdcall(); }),
      plain(
          "cutPaperById", [] { return cutPaperById(3); },
          R"({"cmd":"cutPaper","printerType":"3","Percent":"70"})"),
      logged(
          "feedPaper", [] { return feedPaper(); },
          R"({"cmd":"printblanks","distance":"13","printerType":"100"})",
          "[T] L:846 M:DLL [library_tests][feedPaper] Entry",
          "[T] L:853 M:DLL [library_tests][feedPaper] OK",
          "[W] L:850 M:DLL [feedPaper] Err:", [] { return feedPaper_stdcall(); }),
      logged(
          "feedPaperById", [] { return feedPaperById(2); },
          R"({"cmd":"printblanks","distance":"13","printerType":"2"})",
          "[T] L:862 M:DLL [feedPaperById] Entry", "[T] L:869 M:DLL [feedPaperById] OK",
          "[W] L:866 M:DLL [feedPaperById] Err:"),
      logged(
          "calibrateLabel", [] { return calibrateLabel(0); },
          R"({"cmd":"calibrateLabelGap","printerType":"0"})",
          "[T] L:878 M:DLL [calibrateLabel] Entry", "[T] L:885 M:DLL [calibrateLabel] OK",
          "[W] L:882 M:DLL [calibrateLabel] Err: "),
      plain(
          "testPaper", [] { return testPaper(1); },
          R"({"cmd":"calibrateOutOfPaper","printerType":"1"})"),
  };
}

std::vector<PrinterExport> settingExports() {
  return {
      plain(
          "SetDefaultPaperWidth", [] { return SetDefaultPaperWidth(80); },
          R"({"cmd":"setpaperwidth","width":"640","printerType":"100"})",
          [] { return SetDefaultPaperWidth_stdcall(80); }),
      plain(
          "setDefaultPaperWidth", [] { return setDefaultPaperWidth(58, 1); },
          R"({"cmd":"setpaperwidth","width":"464","printerType":"1"})"),
      plain(
          "setGapType", [] { return setGapType(2, 0); },
          R"({"cmd":"setGapType","gapType":"2","printerType":"0"})"),
      plain(
          "setPrinterDirection", [] { return setPrinterDirection(1, 2); },
          R"({"cmd":"setdirection","direction":"1","printerType":"2"})"),
      notKept(plain(
          "setTextWrapMode", [] { return setTextWrapMode(3, 1); },
          R"({"cmd":"setTextWrapMode","printerType":"1","WrapMode":"3"})")),
      plain(
          "setLeftMargin", [] { return setLeftMargin(8, kName); },
          R"({"cmd":"setLeftMargin","printerName":"Bon 1","leftMargin":"8"})"),
      plain(
          "setRightMargin", [] { return setRightMargin(9, kName); },
          R"({"cmd":"setRightMargin","printerName":"Bon 1","rightMargin":"9"})"),
      plain(
          "setPaperOffset", [] { return setPaperOffset(10, kName); },
          R"({"cmd":"setPaperOffset","offset":"10","printerName":"Bon 1"})"),
      plain(
          "setPrintContrast", [] { return setPrintContrast(11, kName); },
          R"({"cmd":"setcontrast","contrast":"11","printerName":"Bon 1"})"),
      plain(
          "setPrintSpeed", [] { return setPrintSpeed(5, kName); },
          R"({"cmd":"setprintspeed","speed":"5","printerName":"Bon 1"})"),
      plain(
          "setPrtAutoPrint", [] { return setPrtAutoPrint(1, kName); },
          R"({"cmd":"setPrtAutoPrint","printerName":"Bon 1","enable":"1"})"),
      plain(
          "setRollback", [] { return setRollback(1, kName); },
          R"({"cmd":"setRollback","enable":"1","printerName":"Bon 1"})"),
      logged(
          "setTakeupPaperSensor", [] { return setTakeupPaperSensor(5, kName); },
          R"({"cmd":"settakepapersensor","enable":"1","printerName":"Bon 1"})",
          "[T] L:894 M:DLL [library_tests][setTakeupPaperSensor] Entry",
          "[T] L:901 M:DLL [library_tests][setTakeupPaperSensor] OK, iEnable: 5",
          "[W] L:898 M:DLL [setTakeupPaperSensor] Err: "),
  };
}

std::vector<PrinterExport> otherExports() {
  PrinterExport raw = notKept(plain(
      "sendRawCmdToPrt", [] { return sendRawCmdToPrt(kName, "probe", -7, "p", nullptr, 0, 10000); },
      R"({"cmd":"probe","printerName":"Bon 1","intParam":"-7","paramList":"p"})"));
  raw.before = {"[T] L:1012 M:DLL [sendRawCmdToPrt] Req: " + raw.request};
  return {
      logged(
          "getPrinterVersion",
          [] {
            CallerBuffer<64> buffer;
            return getPrinterVersion(buffer, 64, kName);
          },
          R"({"cmd":"getprinterversion","printerName":"Bon 1"})",
          "[T] L:928 M:DLL [library_tests][getPrinterVersion] Entry",
          R"([T] L:935 M:DLL [library_tests][getPrinterVersion] OK, ver:{"result":"0"})",
          "[W] L:932 M:DLL [getPrinterVersion] Err: "),
      logged(
          "OpenCashDrawerEx", [] { return OpenCashDrawerEx(); }, R"({"cmd":"opencashbox"})",
          "[T] L:944 M:DLL [library_tests][OpenCashDrawerEx] Enter",
          "[T] L:951 M:DLL [library_tests][OpenCashDrawerEx] OK",
          "[W] L:948 M:DLL [OpenCashDrawerEx] Err: ", [] { return OpenCashDrawerEx_stdcall(); }),
      plain(
          "GetPrinterStatus", [] { return GetPrinterStatus(100); },
          R"({"cmd":"printerStatus","printerType":"100"})",
          [] { return GetPrinterStatus_stdcall(100); }),
      plain(
          "printTextById", [] { return printTextById("Milch", 24, 1); }, textRequest("Milch")),
      plain(
          "printTextByPaperWidthById", [] { return printTextByPaperWidthById("Brot", 20, 58, 2); },
          widthRequest("Brot", 20, 464, 2)),
      plain(
          "printBitmapFileById", [] { return printBitmapFileById("/logo.bmp", 90, 0); },
          imageRequest("/logo.bmp", 90, 0)),
      raw,
  };
}

struct PrinterExports : PrintingTest {
  PrinterExports() {
    for (const auto& family : {paperExports(), settingExports(), otherExports()}) {
      rows.insert(rows.end(), family.begin(), family.end());
    }
    host.call(getLastErrCode);  // so that no row meets the first call
  }

  // A code that no row leaves behind.
  void leaveAMark() {
    printer.answers(replyWith(4711));
    EXPECT_EQ(host.call(setOverloadAlarm, 0U), 4711);
    newRequests();
    newLines();
  }
  int lastErrorOf(const PrinterExport& row, int code) const { return row.keepsCode ? code : 4711; }

  // What one call makes of an answer.
  void expectCode(const PrinterExport& row, const std::string& reply, int code) {
    SCOPED_TRACE(std::string(row.name) + " " + reply);
    leaveAMark();
    printer.answers(reply);
    EXPECT_EQ(row.call(), code == 0 ? row.success() : row.failure(code));
    EXPECT_EQ(newRequests(), Lines{row.request});
    EXPECT_EQ(newLines(), row.linesOf({}, code));
    EXPECT_EQ(lastError(), lastErrorOf(row, code));
  }

  std::vector<PrinterExport> rows;
};

TEST_F(PrinterExports, SendTheirRequestAndSucceedWhenTheServiceDoes) {
  EXPECT_EQ(rows.size(), 27U);
  for (const PrinterExport& row : rows) expectCode(row, kOk, 0);
  EXPECT_TRUE(service.requests().empty()) << "nothing of it concerns the scale";
}

TEST_F(PrinterExports, HandTheServicesCodeOnOrLogItAndFail) {
  for (const PrinterExport& row : rows) {
    expectCode(row, replyWith(2006), 2006);
    expectCode(row, replyWith(-3), -3);
    expectCode(row, replyWith(31337), 31337);
  }
}

TEST_F(PrinterExports, TakeATextWithoutDigitsForSuccess) {
  for (const PrinterExport& row : rows) {
    if (std::string(row.name) == "getPrinterVersion") continue;  // it shows the reply
    expectCode(row, R"({"result":"abc"})", 0);
  }
}

TEST_F(PrinterExports, TakeANumberAsResultForAnUnreadableReply) {
  for (const PrinterExport& row : rows) expectCode(row, R"({"result":0})", -1);
}

TEST_F(PrinterExports, GiveMinusOneForAReplyThatIsCutOffOrHasNoResult) {
  for (const PrinterExport& row : rows) {
    expectCode(row, R"({"result":"0")", -1);
    expectCode(row, R"({"code":"0"})", -1);
    expectCode(row, "nonsense", -1);
  }
}

TEST_F(PrinterExports, GiveFourWhenTheServiceClosesInsteadOfAnswering) {
  for (const PrinterExport& row : rows) {
    SCOPED_TRACE(row.name);
    leaveAMark();
    printer.closes();
    EXPECT_EQ(row.call(), row.failure(4));
    EXPECT_EQ(newRequests(), Lines{row.request});
    EXPECT_EQ(newLines(), row.linesOf({"[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: -1!"}, 4));
    EXPECT_EQ(lastError(), lastErrorOf(row, 4));
    reconnect();
  }
}

TEST_F(PrinterExports, GiveFourWhenTheServiceIsGone) {
  printer.goesAway();
  host.call(setOverloadAlarm, 0U);  // the connection that was open ends in its own way
  newLines();
  const Lines refused = {
      "[W] L:108 M:Socket Error: 10054", "[W] L:052 M:Socket [CTcpClient::Send] Send fail, ret:-1",
      "[W] L:108 M:Socket Error: 10054", "[W] L:122 M:DLL [SndCmdToPrinter] Snd failed, ret:-1."};
  for (const PrinterExport& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.call(), row.failure(4));
    EXPECT_EQ(newLines(), row.linesOf(refused, 4));
    EXPECT_EQ(lastError(), 4);
  }
  EXPECT_EQ(newRequests(), Lines{});
  printer.comesBack();
  expectCode(rows.front(), kOk, 0);
}

TEST_F(PrinterExports, HaveTwinsThatDoTheSame) {
  unsigned twins = 0;
  for (const PrinterExport& row : rows) {
    if (!row.twin) continue;
    ++twins;
    PrinterExport twin = row;
    twin.call = row.twin;
    expectCode(twin, kOk, 0);
    expectCode(twin, replyWith(2008), 2008);
    expectCode(twin, "nonsense", -1);
  }
  EXPECT_EQ(twins, 6U);
}

}  // namespace
}  // namespace tolvex::test
