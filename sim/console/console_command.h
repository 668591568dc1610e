// What the table of operator commands is made of.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "base/clock.h"
#include "devices/devices.h"
#include "faults/fault_board.h"

namespace tolvex::sim {

/// What an operator command works on. The references outlive the call.
struct ConsoleContext {
  Devices& devices;
  FaultBoard& faults;
  const std::function<void()>& quit;
  TimePoint now;
};

/// The words after the command's name, as many as its row allows.
using ConsoleArguments = std::vector<std::string>;

/// One row of the table.
struct ConsoleCommand {
  const char* name;
  /// For people to read, for example "on|off [PRINTER]"; empty without arguments.
  const char* usage;
  std::size_t fewestArguments;
  std::size_t mostArguments;
  std::string (*handle)(const ConsoleContext& context, const ConsoleArguments& arguments);
  /// The words that the arguments can be, as in "the printers are: Label, Ticket"; null where the
  /// usage says it all.
  std::string (*words)(const Devices& devices) = nullptr;
};

using ConsoleTable = std::vector<ConsoleCommand>;

/// Longest piece of an operator's own words in an answer.
constexpr std::size_t kMaxEchoBytes = 40;

/// The names that a fault and a printer can have, for people to read: "the faults are: hot, busy".
std::string wordsForFaults(const Devices& devices);
std::string wordsForPrinters(const Devices& devices);

/// The commands for the scale, for the paper in the printers, for the printers and the drawer, and
/// for the wire. The tables are static.
const ConsoleTable& scaleConsoleCommands();
const ConsoleTable& paperConsoleCommands();
const ConsoleTable& printerConsoleCommands();
const ConsoleTable& wireConsoleCommands();

}  // namespace tolvex::sim
