// The simulator as a whole.
#pragma once

#include "app/options.h"

namespace tolvex::sim {

/// Opens the ports, says so, and serves until a signal, the operator, a limit or a scenario ends it.
/// Reports on standard output, one line each: the ports, "ready", exchanges and finished jobs (unless
/// quiet), steps of the scenario, operator answers, "stopped". Returns the exit status: 0 after an
/// ordinary end; with a message on standard error 1 when a port can not be opened or a recording not
/// be written, kUsageError when a file can not be used, Automation::kUnmet when the run was not as
/// expected; otherwise what a step of the scenario says.
int runSimulator(const Options& options);

}  // namespace tolvex::sim
