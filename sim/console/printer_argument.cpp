#include "console/printer_argument.h"

#include <cmath>

#include "base/decimal.h"
#include "base/printable.h"

namespace tolvex::sim {

namespace {

std::string describe(const LabelStock& stock) {
  std::string kind = name(stock.kind);
  if (stock.kind == StockKind::Continuous) return kind;
  return kind + " " + millimetres(stock.label) + "+" + millimetres(stock.gap) + " mm at " +
         millimetres(stock.position) + " mm";
}

}  // namespace

Printer* printerAt(const ConsoleContext& context, const ConsoleArguments& arguments,
                   std::size_t index) {
  Printers& printers = context.devices.printers;
  return arguments.size() > index ? printers.findName(arguments[index])
                                  : &printers.defaultPrinter();
}

std::string unknownPrinter(const ConsoleContext& context, const std::string& name) {
  return "error: unknown printer \"" + printable(name, kMaxEchoBytes) + "\"; " +
         wordsForPrinters(context.devices);
}

std::string stateOf(const Printer& printer) {
  return "state " + toText(printer.status()) + " " + message(printer.status());
}

std::optional<int> parseMillimetres(std::string_view text) {
  const auto mm = parseDecimal(text);
  if (!mm || *mm < 0 || *mm * kDotsPerMm > Printer::kMostPaper) return std::nullopt;
  return static_cast<int>(std::lround(*mm * kDotsPerMm));
}

std::string millimetres(int dots) {
  constexpr int kThousandths = 1000;
  const int fraction = dots % kDotsPerMm * kThousandths / kDotsPerMm;
  std::string text = std::to_string(dots / kDotsPerMm);
  if (fraction == 0) return text;
  text += "." + std::to_string(kThousandths + fraction).substr(1);
  return text.substr(0, text.find_last_not_of('0') + 1);
}

std::string paperLeftOf(const Printer& printer) {
  const auto left = printer.paperLeft();
  return left ? millimetres(*left) + " mm of paper left" : "endless paper";
}

std::string labelsOf(const Printer& printer) {
  return "stock " + describe(*printer.stock()) + ", learnt " + describe(*printer.learnt()) +
         (printer.isInRegister() ? ", in register" : ", out of register");
}

}  // namespace tolvex::sim
