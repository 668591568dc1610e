// The commands that put something on paper or move it.
#include <string>

#include "protocol/printer_commands.h"

namespace tolvex::sim {

namespace {

Reply printText(const CommandContext& context) {
  return onPrinter(context, "fontsize", [&](Printer& printer, int fontSize) {
    return printer.printText(context.request.text("text"), fontSize);
  });
}

Reply printTextWidth(const CommandContext& context) {
  const auto width = parseInteger(context.request.text("width"));
  return onPrinter(context, "fontsize", [&](Printer& printer, int fontSize) {
    if (!width) return ResultCode::InvalidParam;
    return printer.printText(context.request.text("text"), fontSize, *width);
  });
}

// A printer that can not print is asked no more of than that; the file is not touched.
Reply printBmpFile(const CommandContext& context) {
  return onPrinter(context, "angle", [&](Printer& printer, int angle) {
    if (const ResultCode code = printer.status(); code != ResultCode::Ok) return code;
    if (!context.loadPicture) return ResultCode::InvalidParam;
    const auto picture = context.loadPicture(context.request.text("filename"));
    if (!picture) return ResultCode::InvalidParam;
    return printer.printImage(turned(*picture, turnOf(angle)));
  });
}

Reply beginPrint(const CommandContext& context) {
  return onPrinter(context, [](Printer& printer) { return printer.finishJob(); });
}

Reply printBlanks(const CommandContext& context) {
  return onPrinter(context, "distance",
                   [](Printer& printer, int distance) { return printer.feed(distance); });
}

Reply cutPaper(const CommandContext& context) {
  return onPrinter(context, "Percent",
                   [](Printer& printer, int percent) { return printer.cut(percent); });
}

Reply calibrateLabelGap(const CommandContext& context) {
  return onPrinter(context, [](Printer& printer) { return printer.calibrateLabelGap(); });
}

Reply calibrateOutOfPaper(const CommandContext& context) {
  return onPrinter(context, [](Printer& printer) { return printer.calibratePaperEnd(); });
}

Reply printerStatus(const CommandContext& context) {
  return onPrinter(context, [](Printer& printer) { return printer.status(); });
}

}  // namespace

const CommandTable& printJobCommands() {
  static const CommandTable table = {
      {"printtext", {kPrinterType, "fontsize", "text"}, printText},
      {"print_text_width", {kPrinterType, "fontsize", "width", "text"}, printTextWidth},
      {"printbmpfile", {kPrinterType, "angle", "filename"}, printBmpFile},
      {"beginPrint", {kPrinterType}, beginPrint},
      {"printblanks", {kPrinterType, "distance"}, printBlanks},
      {"cutPaper", {kPrinterType, "Percent"}, cutPaper},
      {"calibrateLabelGap", {kPrinterType}, calibrateLabelGap},
      {"calibrateOutOfPaper", {kPrinterType}, calibrateOutOfPaper},
      {"printerStatus", {kPrinterType}, printerStatus},
  };
  return table;
}

}  // namespace tolvex::sim
