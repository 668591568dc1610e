#include "app/program.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "base/version.h"

namespace tolvex::ctl {

ExitCode runProgram(std::vector<std::string> arguments) {
  CLI::App app("Tries, sets and examines scale, printers and cash drawer through the library.",
               "tolvexctl");
  app.set_version_flag("--version", std::string("tolvexctl ") + version());
  std::reverse(arguments.begin(), arguments.end());
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? ExitCode::Fine : ExitCode::Usage;
  }
  return ExitCode::Fine;
}

}  // namespace tolvex::ctl
