// Checks of the words on the command line. They explain themselves in their messages, and need no
// name of their own in the help.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>

namespace tolvex::ctl {

/// 500, 500ms, 5s, 2m.
CLI::Validator durationCheck();

/// A dotted IPv4 address.
CLI::Validator addressCheck();

/// A whole number from the least to the most.
CLI::Validator numberCheck(std::int64_t least, std::int64_t most);

}  // namespace tolvex::ctl
