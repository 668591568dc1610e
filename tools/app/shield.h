// Words of the command line that the parser would take for more than they are.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace tolvex::ctl {

/// Marks the words behind "--", which are no options whatever they begin with, and those in square
/// brackets, which are no lists. The "--" itself is left out.
std::vector<std::string> shielded(std::vector<std::string> words);

/// Lets all options of a command line, and of its commands, take the marks off again.
void takeShieldsOff(CLI::App& app);

}  // namespace tolvex::ctl
