// What the files with the printers' commands share.
#pragma once

#include <optional>
#include <string_view>

#include "base/integer.h"
#include "devices/devices.h"
#include "protocol/command.h"

namespace tolvex::sim {

/// The members that name a printer. Each command uses one of them.
constexpr std::string_view kPrinterType = "printerType";
constexpr std::string_view kPrinterName = "printerName";

/// The printer that a request names, or why there is none: InvalidParam for a type that is no
/// number, PrinterNotFound for an unknown type or name and for a printer that is unplugged.
struct FoundPrinter {
  ResultCode code;
  Printer* printer;  // null unless code is Ok
};
FoundPrinter findPrinter(const CommandContext& context, std::string_view member);

/// Replies with what `act(printer)` returns for the printer of the request's type.
template <typename Act>
Reply onPrinter(const CommandContext& context, Act act) {
  const FoundPrinter found = findPrinter(context, kPrinterType);
  return found.code == ResultCode::Ok ? Reply(act(*found.printer)) : Reply(found.code);
}

/// The same with the number in a member of the request, `act(printer, number)`; InvalidParam if it
/// is none.
template <typename Act>
Reply onPrinter(const CommandContext& context, std::string_view member, Act act) {
  return onPrinter(context, [&](Printer& printer) {
    const std::optional<int> number = parseInteger(context.request.text(member));
    return number ? act(printer, *number) : ResultCode::InvalidParam;
  });
}

/// The commands that print, and that set the printers up. The tables are static.
const CommandTable& printJobCommands();
const CommandTable& printerSettingCommands();

}  // namespace tolvex::sim
