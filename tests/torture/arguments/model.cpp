#include "model.h"

#include <stdexcept>

#include "outcomes.h"

namespace tolvex::test {

const std::string kPrinters = "Label,Ticket";
const std::string kLevel = "debug";
const std::string kReplyToAll =
    R"({"result":"0","net":"1.5","tare":"0.25","tareType":"T","zero":"0","maxRange1":"15","weightUnit":"kg",)"
    R"("systemVersion":"7","PrinterList":")" +
    kPrinters + R"(","level":")" + kLevel + "\"}";

namespace {

// ---- Raw commands ----

Expected raw(const std::string& text, const Value& buffer, const Value& size) {
  return buffer.isNull ? sent(0, text) : wholeReply(text, buffer, size, 0, 5);
}

Expected rawToScale(const Values& v) {
  if (v[0].isNull) return refused(5);
  std::vector<Member> members;
  if (!v[1].isNull && !v[1].text.empty()) members.emplace_back("paramList", v[1].text);
  return raw(request(v[0].text, members), v[2], v[3]);
}

Expected rawToPrinter(const Values& v) {
  if (v[1].isNull || !isName(v[0])) return refused(2);
  std::vector<Member> members = {{"printerName", v[0].text}, {"intParam", v[2].number}};
  if (!v[3].isNull && !v[3].text.empty()) members.emplace_back("paramList", v[3].text);
  return raw(request(v[1].text, members), v[4], v[5]);
}

// ---- Log levels ----

bool isModule(const Value& v) { return !v.isNull && (v.text == "print" || v.text == "loadcell"); }

Expected level(const Values& v) {
  if (!isModule(v[0])) return refused(1);
  return exactText(request("getloglevel", {{"module", v[0].text}}), v[1], v[2], kLevel, 0, 5);
}

Expected newLevel(const Values& v) {
  if (v[0].isNull || v[1].isNull) return refused(2);
  if (!isModule(v[0])) return refused(1);
  return sent(0, request("setloglevel", {{"module", v[0].text}, {"level", v[1].text}}));
}

Models models() {
  Models all = {
      {"sendRawCmdToLC", rawToScale},
      {"sendRawCmdToPrt", rawToPrinter},
      {"getLogLevel", level},
      {"setLogLevel", newLevel},
      {"checkConnection", [](const Values&) { return sent(1, request("checkConnection")); }},
      {"getLastErrCode",
       [](const Values&) {
         return Expected{0, true, {}, false, ""};
       }},
      {"SetServerIpForRemoteAccess",
       [](const Values& v) {
         return refused(!v[0].isNull && v[0].text == "127.0.0.1" ? 240 : 255);
       }},
  };
  all.merge(scaleModels());
  all.merge(printingModels());
  for (const char* stub : {"ClosePrinterEx",
                           "DisplayUpdate",
                           "OpenDisplay",
                           "OpenPrinter",
                           "SetDataRows",
                           "SetHeaderReserveRows",
                           "SetInvoiceParameter",
                           "SetPrintContrast",
                           "SetPrintOffset",
                           "SetPrintSpeed",
                           "SetRealPrintHeaderWidth",
                           "SetScaleType",
                           "SetTakeLabelSensor",
                           "SetTakeupMotorDirection",
                           "SetUSBPrinterDirection",
                           "SetUnitPrice",
                           "ShowBalance",
                           "ShowDisplayText",
                           "ShowOrHideForm",
                           "ShowProduct",
                           "switch_resolution"}) {
    all[stub] = [](const Values&) { return silently(240); };
  }
  for (const char* stub : {"Version", "DisplayText", "IncreaseResolution", "SetClientName"}) {
    all[stub] = [](const Values&) { return Expected{0, true, {}, false, ""}; };
  }
  return all;
}

}  // namespace

Expected expectedOf(const std::string& exportName, const std::vector<Value>& values) {
  static const Models all = models();
  const std::string name = exportName.substr(0, exportName.find("_stdcall"));
  const auto found = all.find(name);
  if (found == all.end()) throw std::out_of_range("nothing is known here of " + name);
  return found->second(values);
}

}  // namespace tolvex::test
