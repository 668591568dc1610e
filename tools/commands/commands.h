// The commands, one function for each, which adds the command to the command line.
#pragma once

#include "app/registry.h"

namespace tolvex::ctl {

void addCall(CLI::App& app, Registry& registry);
void addWeigh(CLI::App& app, Registry& registry);

/// All of them, in the order of the help.
void addCommands(CLI::App& app, Registry& registry);

}  // namespace tolvex::ctl
