// What the operator can do to the paper in the printers.
#include <algorithm>
#include <array>

#include "base/printable.h"
#include "console/console_command.h"
#include "console/printer_argument.h"

namespace tolvex::sim {

namespace {

constexpr char kEndless[] = "endless";

// What an operator calls the paper that is left: nothing if that is no length.
struct Left {
  std::optional<int> dots;  // nothing: endless
};

std::optional<Left> parseLeft(const std::string& text) {
  if (text == kEndless) return Left{};
  const auto dots = parseMillimetres(text);
  if (!dots) return std::nullopt;
  return Left{dots};
}

// Without a length, as much as the printer ever needs; a printer may be named without one.
std::string loadPaper(const ConsoleContext& context, const ConsoleArguments& arguments) {
  ConsoleArguments words = arguments;
  const bool namesPrinterOnly =
      words.size() == 1 && context.devices.printers.findName(words[0]) != nullptr;
  if (words.empty() || namesPrinterOnly) words.insert(words.begin(), kEndless);
  const auto left = parseLeft(words[0]);
  if (!left || left->dots == 0) {
    return "error: load-paper needs millimetres above 0, up to 1000000, or endless, as in: "
           "load-paper 50000 Label";
  }
  Printer* printer = printerAt(context, words, 1);
  if (printer == nullptr) return unknownPrinter(context, words[1]);
  printer->loadPaper(left->dots);
  return "ok " + printer->name() + " loaded, " + paperLeftOf(*printer) + ", " + stateOf(*printer);
}

std::string paperLeft(const ConsoleContext& context, const ConsoleArguments& arguments) {
  const auto left = parseLeft(arguments[0]);
  if (!left) {
    return "error: paper-left needs millimetres from 0 to 1000000, or endless, as in: "
           "paper-left 100 Ticket";
  }
  Printer* printer = printerAt(context, arguments, 1);
  if (printer == nullptr) return unknownPrinter(context, arguments[1]);
  printer->setPaperLeft(left->dots);
  return "ok " + printer->name() + ", " + paperLeftOf(*printer) + ", " + stateOf(*printer);
}

Printer& labelPrinter(const ConsoleContext& context) {
  auto& all = context.devices.printers.all();
  return *std::find_if(all.begin(), all.end(),
                       [](const Printer& printer) { return printer.hasLabels(); });
}

std::optional<StockKind> parseKind(const std::string& text) {
  for (const StockKind kind : {StockKind::Gap, StockKind::Mark, StockKind::Continuous}) {
    if (text == name(kind)) return kind;
  }
  return std::nullopt;
}

constexpr char kStockNeeds[] =
    "error: stock needs labels of 5 to 300 mm, gaps of 1 to 30 mm and a position above the next "
    "label, as in: stock gap 30 2";

// Without sizes, those of the labels before; without a position, the upper edge of a label.
std::string stock(const ConsoleContext& context, const ConsoleArguments& arguments) {
  Printer& printer = labelPrinter(context);
  const auto kind = parseKind(arguments[0]);
  if (!kind) {
    return "error: unknown stock \"" + printable(arguments[0], kMaxEchoBytes) +
           "\"; the kinds are: gap, mark, continuous";
  }
  if (arguments.size() == 2) return kStockNeeds;
  std::array<int, 3> sizes = {printer.stock()->label, printer.stock()->gap, 0};
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    const auto dots = parseMillimetres(arguments[i]);
    if (!dots) return kStockNeeds;
    sizes.at(i - 1) = *dots;
  }
  const LabelStock stock{*kind, sizes[0], sizes[1], sizes[2]};
  if (printer.setStock(stock) != ResultCode::Ok) return kStockNeeds;
  return "ok " + printer.name() + ", " + labelsOf(printer);
}

std::string whyNotCalibrated(const Printer& printer) {
  if (!printer.hasLabels()) return "; it has no labels";
  if (printer.status() != ResultCode::Ok) return "";
  return "; its stock is " + std::string(name(printer.stock()->kind)) + ", its gap type " +
         std::to_string(printer.settings()[Setting::GapType]) + ", but 1 finds gaps and 2 marks";
}

std::string calibrate(const ConsoleContext& context, const ConsoleArguments& arguments) {
  Printer* printer = arguments.empty() ? &labelPrinter(context) : printerAt(context, arguments, 0);
  if (printer == nullptr) return unknownPrinter(context, arguments[0]);
  const ResultCode code = printer->calibrateLabelGap();
  if (code == ResultCode::Ok) return "ok " + printer->name() + ", " + labelsOf(*printer);
  return "error: " + printer->name() + " is not calibrated, " + toText(code) + " " + message(code) +
         whyNotCalibrated(*printer);
}

}  // namespace

const ConsoleTable& paperConsoleCommands() {
  static const ConsoleTable table = {
      {"load-paper", "[MM|endless] [PRINTER]", 0, 2, loadPaper, wordsForPrinters},
      {"paper-left", "MM|endless [PRINTER]", 1, 2, paperLeft, wordsForPrinters},
      {"stock", "gap|mark|continuous [LABEL_MM GAP_MM [POSITION_MM]]", 1, 4, stock},
      {"calibrate", "[PRINTER]", 0, 1, calibrate, wordsForPrinters},
  };
  return table;
}

}  // namespace tolvex::sim
