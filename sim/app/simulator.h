// The simulator as a whole.
#pragma once

#include "app/options.h"

namespace tolvex::sim {

/// Opens the ports, says so, and serves until a signal or the operator ends it. Reports on standard
/// output, one line each: the ports, "ready", exchanges and finished jobs (unless quiet), operator
/// answers, "stopped". Returns the exit status: 0 after an ordinary end, 1 with a message on
/// standard error when a port can not be opened.
int runSimulator(const Options& options);

}  // namespace tolvex::sim
