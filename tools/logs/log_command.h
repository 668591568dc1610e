#pragma once

#include "app/registry.h"

namespace tolvex::ctl {

/// log: shows the log of the library, whichever files of its ring it lies in.
void addLog(CLI::App& app, Registry& registry);

}  // namespace tolvex::ctl
