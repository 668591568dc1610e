// The commands of the printing port.
#include "base/list.h"
#include "devices/devices.h"
#include "protocol/log_level_commands.h"
#include "protocol/printer_commands.h"

namespace tolvex::sim {

namespace {

constexpr std::string_view kPrintModule = "print";
constexpr char kFirmware[] = " SIM 1.0";

// The alarm sounds at the scale, but its command has always travelled on the printing port.
Reply setOverloadAlarm(const CommandContext& context) {
  const std::string& enable = context.request.text("enable");
  if (enable != "0" && enable != "1") return ResultCode::InvalidParam;
  context.devices.scale.setOverloadAlarm(enable == "1");
  return ResultCode::Ok;
}

// Names of the printers that can be reached, with commas between them.
Reply getPrinterList(const CommandContext& context) {
  std::string list;
  for (const Printer& printer : context.devices.printers.all()) {
    if (printer.isPluggedIn()) addToList(list, printer.name(), ",");
  }
  return Reply(ResultCode::Ok).add("PrinterList", list);
}

Reply getPrinterVersion(const CommandContext& context) {
  const FoundPrinter found = findPrinter(context, kPrinterName);
  if (found.code != ResultCode::Ok) return found.code;
  return Reply(ResultCode::Ok).add("version", found.printer->name() + kFirmware);
}

Reply openCashBox(const CommandContext& context) {
  context.devices.drawer.open();
  return ResultCode::Ok;
}

Reply getPrintLevel(const CommandContext& context) { return getLogLevel(context, kPrintModule); }
Reply setPrintLevel(const CommandContext& context) { return setLogLevel(context, kPrintModule); }

CommandTable makePrintingTable() {
  CommandTable table = {
      {"getPrinterList", {}, getPrinterList},
      {"getprinterversion", {kPrinterName}, getPrinterVersion},
      {"opencashbox", {}, openCashBox},
      {"setOverloadAlarm", {"enable"}, setOverloadAlarm},
      {"getloglevel", {"module"}, getPrintLevel},
      {"setloglevel", {"module", "level"}, setPrintLevel},
  };
  for (const CommandTable* more : {&printJobCommands(), &printerSettingCommands()}) {
    table.insert(table.end(), more->begin(), more->end());
  }
  return table;
}

}  // namespace

const CommandTable& printingCommands() {
  static const CommandTable table = makePrintingTable();
  return table;
}

}  // namespace tolvex::sim
