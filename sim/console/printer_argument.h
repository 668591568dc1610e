// Printers and lengths as operators type them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "console/console_command.h"

namespace tolvex::sim {

/// The printer that the argument at `index` names, or the default one without it; null for a name
/// that no printer has.
Printer* printerAt(const ConsoleContext& context, const ConsoleArguments& arguments,
                   std::size_t index);

/// The answer to a name that no printer has.
std::string unknownPrinter(const ConsoleContext& context, const std::string& name);

/// "state 2006 Out of Paper".
std::string stateOf(const Printer& printer);

/// A length in millimetres, from 0 to a kilometre, as the nearest number of dots.
std::optional<int> parseMillimetres(std::string_view text);

/// Dots (>= 0) in millimetres, with as many decimals as it takes: "3.75".
std::string millimetres(int dots);

/// "endless paper" or "50 mm of paper left".
std::string paperLeftOf(const Printer& printer);

/// What labels lie in it, what it takes them for, and whether that is true: "stock gap 30+2 mm at 0
/// mm, learnt gap 40+3 mm at 0 mm, out of register". For printers with labels.
std::string labelsOf(const Printer& printer);

}  // namespace tolvex::sim
