// The whole command line: global options and all commands.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>

#include "app/globals.h"
#include "app/registry.h"

namespace tolvex::ctl {

/// Makes the parser. What it reads goes to `globals`, what the commands do to `registry`; both have
/// to outlive it.
std::unique_ptr<CLI::App> makeCommandLine(Globals& globals, Registry& registry);

}  // namespace tolvex::ctl
