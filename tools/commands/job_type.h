// The job types of BeginPrint, by number or by name.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

namespace tolvex::ctl {

/// "8", "8_CUT" or "cut", in any case; every number from 0 to 9999 is a job type.
std::optional<int> parseJobType(const std::string& text);

/// The names, in lower case and without their numbers: "ticket", "cut" and so on.
std::vector<std::string> jobTypeNames();

/// What BeginPrint and the log call it, for example "8_CUT".
std::string jobTypeName(int jobType);

/// The check of a job type on the command line.
CLI::Validator jobTypeCheck();

}  // namespace tolvex::ctl
