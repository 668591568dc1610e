// What the table of operator commands is made of.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "base/clock.h"
#include "devices/devices.h"

namespace tolvex::sim {

/// What an operator command works on. The references outlive the call.
struct ConsoleContext {
  Devices& devices;
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
};

using ConsoleTable = std::vector<ConsoleCommand>;

/// Longest piece of an operator's own words in an answer.
constexpr std::size_t kMaxEchoBytes = 40;

/// The commands for the scale, and for the printers and the drawer. The tables are static.
const ConsoleTable& scaleConsoleCommands();
const ConsoleTable& printerConsoleCommands();

}  // namespace tolvex::sim
