// Printers by their names.
#pragma once

#include <string>
#include <vector>

#include "devices/printers.h"

namespace tolvex::sim {

std::vector<std::string> namesOf(const Printers& printers);

/// Throws ControlError (404) with the names that there are.
Printer& printerNamed(Printers& printers, const std::string& name);

}  // namespace tolvex::sim
