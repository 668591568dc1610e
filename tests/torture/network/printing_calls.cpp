#include "api/exports.h"
#include "torture/network/call_rows.h"

namespace tolvex::test {
namespace {

void addPaper(std::vector<Call>& all) {
  const auto add = [&](const char* name, Kind kind, const std::string& request, Send run) {
    all.push_back(printing(name, kind, request, std::move(run)));
  };
  const auto blanks = [](const char* distance, const char* type) {
    return command("printblanks", std::string(R"("distance":")") + distance +
                                      R"(","printerType":")" + type + "\"");
  };
  add("printBlanks", Kind::kVerdict, blanks("40", "100"), RUN(printBlanks(40)));
  add("feedPaper", Kind::kVerdict, blanks("13", "100"), RUN(feedPaper()));
  add("feedPaperById", Kind::kVerdict, blanks("13", "1"), RUN(feedPaperById(1)));
  add("cutPaper", Kind::kVerdict, command("cutPaper", R"("printerType":"100","Percent":"70")"),
      RUN(cutPaper()));
  add("cutPaperById", Kind::kCode, command("cutPaper", R"("printerType":"1","Percent":"70")"),
      RUN(cutPaperById(1)));
  add("calibrateLabel", Kind::kVerdict, command("calibrateLabelGap", R"("printerType":"0")"),
      RUN(calibrateLabel(0)));
  add("testPaper", Kind::kCode, command("calibrateOutOfPaper", R"("printerType":"1")"),
      RUN(testPaper(1)));
  add("printTextById", Kind::kCode,
      command("printtext", R"("printerType":"1","fontsize":"24","text":"Apples")"),
      RUN(printTextById("Apples", 24, 1)));
  add("printTextByPaperWidthById", Kind::kCode,
      command("print_text_width",
              R"("printerType":"1","fontsize":"24","width":"576","text":"Apples")"),
      RUN(printTextByPaperWidthById("Apples", 24, 72, 1)));
  add("printBitmapFileById", Kind::kCode,
      command("printbmpfile", R"("printerType":"1","angle":"90","filename":"/srv/logo.bmp")"),
      RUN(printBitmapFileById("/srv/logo.bmp", 90, 1)));
}

void addInformation(std::vector<Call>& all) {
  const std::string ticket = R"("printerName":"Ticket")";
  all.push_back(reading(printing("GetPrinterList", Kind::kPrinterList, command("getPrinterList"),
                                 RUN(GetPrinterList(buffer, 256))),
                        "PrinterList", "Label,Ticket", 256));
  all.push_back(printing("GetPrinterStatus", Kind::kCode,
                         command("printerStatus", R"("printerType":"1")"),
                         RUN(GetPrinterStatus(1))));
  all.push_back(
      sized(printing("getPrinterVersion", Kind::kReplyVerdict, command("getprinterversion", ticket),
                     RUN(getPrinterVersion(buffer, kRoomy, "Ticket"))),
            kRoomy));
  all.push_back(printing("OpenCashDrawerEx", Kind::kVerdict, command("opencashbox"),
                         RUN(OpenCashDrawerEx())));
  all.push_back(
      waiting(sized(printing("sendRawCmdToPrt", Kind::kReply,
                             command("beep", ticket + R"(,"intParam":"3","paramList":"a")"),
                             RUN(sendRawCmdToPrt("Ticket", "beep", 3, "a", buffer, kRoomy, wait))),
                    kRoomy)));
}

void addSettings(std::vector<Call>& all) {
  const auto add = [&](const char* name, const std::string& request, Send run) {
    all.push_back(printing(name, Kind::kCode, request, std::move(run)));
  };
  const std::string ticket = R"("printerName":"Ticket")";
  add("SetDefaultPaperWidth", command("setpaperwidth", R"("width":"464","printerType":"100")"),
      RUN(SetDefaultPaperWidth(58)));
  add("setDefaultPaperWidth", command("setpaperwidth", R"("width":"464","printerType":"1")"),
      RUN(setDefaultPaperWidth(58, 1)));
  add("setGapType", command("setGapType", R"("gapType":"1","printerType":"0")"),
      RUN(setGapType(1, 0)));
  add("setPrinterDirection", command("setdirection", R"("direction":"1","printerType":"0")"),
      RUN(setPrinterDirection(1, 0)));
  all.push_back(keeping(printing("setTextWrapMode", Kind::kCode,
                                 command("setTextWrapMode", R"("printerType":"1","WrapMode":"1")"),
                                 RUN(setTextWrapMode(1, 1)))));
  add("setLeftMargin", command("setLeftMargin", ticket + R"(,"leftMargin":"8")"),
      RUN(setLeftMargin(8, "Ticket")));
  add("setRightMargin", command("setRightMargin", ticket + R"(,"rightMargin":"8")"),
      RUN(setRightMargin(8, "Ticket")));
  add("setPaperOffset", command("setPaperOffset", R"("offset":"4",)" + ticket),
      RUN(setPaperOffset(4, "Ticket")));
  add("setPrintContrast", command("setcontrast", R"("contrast":"50",)" + ticket),
      RUN(setPrintContrast(50, "Ticket")));
  add("setPrintSpeed", command("setprintspeed", R"("speed":"100",)" + ticket),
      RUN(setPrintSpeed(100, "Ticket")));
  add("setPrtAutoPrint", command("setPrtAutoPrint", ticket + R"(,"enable":"1")"),
      RUN(setPrtAutoPrint(1, "Ticket")));
  add("setRollback", command("setRollback", R"("enable":"1",)" + ticket),
      RUN(setRollback(1, "Ticket")));
  all.push_back(printing("setTakeupPaperSensor", Kind::kVerdict,
                         command("settakepapersensor", R"("enable":"1",)" + ticket),
                         RUN(setTakeupPaperSensor(5, "Ticket"))));
  add("setOverloadAlarm", command("setOverloadAlarm", R"("enable":"1")"), RUN(setOverloadAlarm(1)));
}

// A job with the fault at each of its commands.
void addJob(std::vector<Call>& all, const std::string& what, int jobType,
            const std::vector<std::string>& requests, std::function<void()> prepare) {
  const bool closes = jobType == 4 || jobType == 8 || jobType >= 80;
  for (std::size_t at = 0; at < requests.size(); ++at) {
    Call call = printing("BeginPrint", closes ? Kind::kClosingPrintJob : Kind::kPrintJob, "",
                         [jobType](char*, unsigned) { return BeginPrint(jobType); });
    call.about = what + ", command " + std::to_string(at + 1);
    call.requests = requests;
    call.at = at;
    call.prepare = prepare;
    all.push_back(call);
  }
}

void addJobs(std::vector<Call>& all) {
  const std::string line =
      command("printtext", R"("printerType":"1","fontsize":"24","text":"Apples")");
  const std::string wide = command(
      "print_text_width", R"("printerType":"1","fontsize":"48","width":"576","text":"TOTAL")");
  const std::string image =
      command("printbmpfile", R"("printerType":"1","angle":"90","filename":"/nowhere/a.bmp")");
  const std::string confirmation = command("beginPrint", R"("printerType":"1")");
  const std::string cut = command("cutPaper", R"("printerType":"1","Percent":"70")");
  const std::string feed = command("printblanks", R"("distance":"13","printerType":"1")");
  addJob(all, "a line and an image", 0, {line, image, confirmation}, [] {
    PrintText("Apples", 24);
    PrintBitmapFile("/nowhere/a.bmp", 90);
  });
  addJob(all, "two lines and a cut", 8, {line, wide, confirmation, cut}, [] {
    PrintText("Apples", 24);
    PrintTextByPaperWidth("TOTAL", 48, 72);
  });
  addJob(all, "a feed", 4, {feed}, nullptr);
  addJob(all, "calibrating labels", 80, {command("calibrateLabelGap", R"("printerType":"0")")},
         nullptr);
  addJob(all, "calibrating tickets", 81, {command("calibrateOutOfPaper", R"("printerType":"1")")},
         nullptr);
}

}  // namespace

void addPrintingCalls(std::vector<Call>& all) {
  addPaper(all);
  addInformation(all);
  addSettings(all);
  addJobs(all);
}

}  // namespace tolvex::test
