#pragma once

#include "app/registry.h"

namespace tolvex::ctl {

/// explain: what a result code means, and what to do about it.
void addExplain(CLI::App& app, Registry& registry);

}  // namespace tolvex::ctl
