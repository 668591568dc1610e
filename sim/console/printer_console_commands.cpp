// What the operator can do to the printers and the drawer, and see of them.
#include <algorithm>
#include <sstream>

#include "base/list.h"
#include "base/printable.h"
#include "console/console_command.h"
#include "console/printer_argument.h"
#include "paper/render.h"

namespace tolvex::sim {

namespace {

// More than the widest line in the smallest font.
constexpr std::size_t kMaxLineBytes = 2048;

std::string unknownFault(const ConsoleContext& context, const std::string& name) {
  return "error: unknown fault \"" + printable(name, kMaxEchoBytes) + "\"; " +
         wordsForFaults(context.devices);
}

std::string wordsForFaultsAndPrinters(const Devices& devices) {
  return wordsForFaults(devices) + "; " + wordsForPrinters(devices);
}

std::string fault(const ConsoleContext& context, const ConsoleArguments& arguments) {
  const std::string& name = arguments[0];
  const std::string& state = arguments[1];
  const auto& faults = printerFaults();
  const auto row = std::find_if(faults.begin(), faults.end(),
                                [&](const PrinterFaultRow& r) { return r.name == name; });
  if (row == faults.end()) return unknownFault(context, name);
  if (state != "on" && state != "off") {
    return "error: fault needs on or off, as in: fault out-of-paper on";
  }
  Printer* printer = printerAt(context, arguments, 2);
  if (printer == nullptr) return unknownPrinter(context, arguments[2]);
  printer->setFault(row->fault, state == "on");
  return "ok " + printer->name() + " " + name + " " + state + ", " + stateOf(*printer);
}

std::string faultsOf(const Printer& printer) {
  std::string list;
  for (const PrinterFaultRow& row : printerFaults()) {
    if (printer.hasFault(row.fault)) addToList(list, row.name);
  }
  return list;
}

// A job keeps the width that it began with.
std::string widthOf(const Printer& printer) {
  const Job* job = printer.job();
  const bool isPrinting = job != nullptr && !job->isFinished();
  const int now = isPrinting ? job->paper().format().printable : printer.printable();
  const std::string later = std::to_string(printer.printable()) + " from the next job on";
  return std::to_string(now) + " dots" + (now == printer.printable() ? "" : ", " + later);
}

std::string describe(const Printer& printer) {
  std::ostringstream line;
  line << printer.name() << ", type " << printer.type() << ", " << stateOf(printer);
  if (const std::string faults = faultsOf(printer); !faults.empty()) line << " (" << faults << ")";
  line << ", prints " << widthOf(printer) << ", " << paperLeftOf(printer);
  if (printer.hasLabels()) line << ", " << labelsOf(printer);
  if (printer.hasLabels()) line << (printer.knowsLabelGap() ? ", label gap known" : "");
  if (printer.knowsPaperEnd()) line << ", paper end known";
  if (printer.job() != nullptr) {
    line << ", job " << printer.job()->number()
         << (printer.job()->isFinished() ? " finished" : " printing");
  }
  return line.str();
}

std::string printers(const ConsoleContext& context, const ConsoleArguments&) {
  const auto& all = context.devices.printers.all();
  std::string answer = "ok printers, " + std::to_string(all.size()) + " lines";
  for (const Printer& printer : all) answer += "\n" + describe(printer);
  return answer;
}

std::string settings(const ConsoleContext& context, const ConsoleArguments& arguments) {
  const Printer* printer = printerAt(context, arguments, 0);
  if (printer == nullptr) return unknownPrinter(context, arguments[0]);
  std::string answer = "ok " + printer->name();
  for (const SettingRow& row : printerSettings()) {
    answer += std::string(", ") + row.name + " " + std::to_string(printer->settings()[row.setting]);
  }
  return answer;
}

std::string paper(const ConsoleContext& context, const ConsoleArguments& arguments) {
  const Printers& printers = context.devices.printers;
  const std::string name = arguments.empty() ? "" : arguments[0];
  if (!name.empty() && context.devices.printers.findName(name) == nullptr) {
    return unknownPrinter(context, name);
  }
  const auto job = printers.jobs().newest(name);
  if (job == nullptr) return "ok nothing has been printed" + (name.empty() ? "" : " on " + name);
  std::istringstream text(plainTextOf(job->paper()));
  std::string lines;
  std::size_t count = 0;
  for (std::string line; std::getline(text, line); ++count) {
    lines += "\n" + printable(line, kMaxLineBytes);
  }
  return "ok job " + std::to_string(job->number()) + " on " + job->printer() +
         (job->isFinished() ? ", " : ", still printing, ") + std::to_string(count) +
         (count == 1 ? " line" : " lines") + lines;
}

std::string tear(const ConsoleContext& context, const ConsoleArguments& arguments) {
  Printer* printer = printerAt(context, arguments, 0);
  if (printer == nullptr) return unknownPrinter(context, arguments[0]);
  const bool finishes = printer->job() != nullptr && !printer->job()->isFinished();
  const std::string job =
      finishes ? ", job " + std::to_string(printer->job()->number()) + " finished" : "";
  printer->tearOff();
  return "ok " + printer->name() + " torn off" + job;
}

std::string drawer(const ConsoleContext& context, const ConsoleArguments& arguments) {
  CashDrawer& drawer = context.devices.drawer;
  if (!arguments.empty()) {
    if (arguments[0] != "close") return "error: drawer can only be told to close: drawer close";
    drawer.close();
  }
  return std::string("ok drawer ") + (drawer.isOpen() ? "open" : "closed") + ", openings " +
         std::to_string(drawer.openings());
}

}  // namespace

std::string wordsForFaults(const Devices& /*devices*/) {
  std::string list;
  for (const PrinterFaultRow& row : printerFaults()) addToList(list, row.name);
  return "the faults are: " + list;
}

std::string wordsForPrinters(const Devices& devices) {
  std::string list;
  for (const Printer& printer : devices.printers.all()) addToList(list, printer.name());
  return "the printers are: " + list;
}

const ConsoleTable& printerConsoleCommands() {
  static const ConsoleTable table = {
      {"fault", "NAME on|off [PRINTER]", 2, 3, fault, wordsForFaultsAndPrinters},
      {"printers", "", 0, 0, printers},
      {"settings", "[PRINTER]", 0, 1, settings, wordsForPrinters},
      {"paper", "[PRINTER]", 0, 1, paper, wordsForPrinters},
      {"tear", "[PRINTER]", 0, 1, tear, wordsForPrinters},
      {"drawer", "[close]", 0, 1, drawer},
  };
  return table;
}

}  // namespace tolvex::sim
