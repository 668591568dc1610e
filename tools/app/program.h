// The program from its arguments to its exit status.
#pragma once

#include <string>
#include <vector>

#include "base/exit_code.h"

namespace tolvex::ctl {

/// Reads the command line (its words in UTF-8, without the program's name) and does what it says.
ExitCode runProgram(std::vector<std::string> arguments);

}  // namespace tolvex::ctl
