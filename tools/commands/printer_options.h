// Which printer a command is for.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "app/registry.h"

namespace tolvex::ctl {

/// --printer N, a printer type: 0 the label printer, 1 the ticket printer, 2 a third one, 100 the
/// service's default.
CLI::Option* addPrinterType(CLI::App& command, Registry& registry, std::optional<unsigned>& printer,
                            const std::string& description);

/// "the label printer", "printer 7".
std::string printerName(unsigned type);

}  // namespace tolvex::ctl
