#include "protocol/printer_commands.h"

namespace tolvex::sim {

FoundPrinter findPrinter(const CommandContext& context, std::string_view member) {
  const std::string& text = context.request.text(member);
  Printers& printers = context.devices.printers;
  Printer* printer = nullptr;
  if (member == kPrinterType) {
    const auto type = parseInteger(text);
    if (!type) return {ResultCode::InvalidParam, nullptr};
    printer = printers.findType(*type);
  } else {
    printer = printers.findName(text);
  }
  if (printer == nullptr || !printer->isPluggedIn()) return {ResultCode::PrinterNotFound, nullptr};
  return {ResultCode::Ok, printer};
}

}  // namespace tolvex::sim
