#include "commands/printer_options.h"

#include <exports.h>

#include <cstdint>
#include <limits>

#include "commands/checks.h"

namespace tolvex::ctl {

CLI::Option* addPrinterType(CLI::App& command, Registry& registry, std::optional<unsigned>& printer,
                            const std::string& description) {
  CLI::Option* const option = command.add_option("--printer", printer, description)
                                  ->type_name("TYPE")
                                  ->check(numberCheck(0, std::numeric_limits<std::int32_t>::max()));
  registry.offers(option, {"0", "1", "2", std::to_string(TOLVEX_DEFAULT_PRINTER)});
  return option;
}

std::string printerName(unsigned type) {
  switch (type) {
    case 0:
      return "the label printer";
    case 1:
      return "the ticket printer";
    case 2:
      return "the third printer";
    case TOLVEX_DEFAULT_PRINTER:
      return "the default printer";
    default:
      return "printer " + std::to_string(type);
  }
}

}  // namespace tolvex::ctl
