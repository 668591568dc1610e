// The command line of zelkad-sim.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/clock.h"
#include "devices/mass.h"
#include "scenario/run_limits.h"

namespace tolvex::sim {

struct Options {
  std::string address = "127.0.0.1";
  std::uint16_t weighingPort = 53264;  // 0: any free one
  std::uint16_t printingPort = 53265;  // 0: any free one
  bool web = true;                     // the page and its API
  std::string webAddress = "127.0.0.1";
  std::uint16_t webPort = 53280;  // 0: any free one
  Milligrams load = 0;
  Seconds settling{1};
  std::string paperDir;  // UTF-8; empty: jobs are not kept as files
  std::string scenario;  // UTF-8; empty: none
  std::string record;    // UTF-8; empty: nowhere
  std::string replay;    // UTF-8; empty: the devices answer
  RunLimits limits;
  bool console = false;
  bool quiet = false;
};

/// Exit status for a command line that can not be understood, or that names a file that can not be
/// used.
constexpr int kUsageError = 2;

/// Reads the command line: its words in UTF-8, without the program's name. If the program is not to
/// go on, because --help or --version was asked for or an option is wrong, prints what there is to
/// say and gives nothing; `exitCode` is then the program's exit status, 0 or kUsageError.
std::optional<Options> parseOptions(std::vector<std::string> arguments, int& exitCode);

}  // namespace tolvex::sim
