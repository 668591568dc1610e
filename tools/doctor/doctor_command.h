#pragma once

#include "app/registry.h"

namespace tolvex::ctl {

/// doctor: finds out what is wrong, and says how to mend it.
void addDoctor(CLI::App& app, Registry& registry);

}  // namespace tolvex::ctl
