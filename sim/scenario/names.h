// Names of ports and printers in scenario files.
#pragma once

#include <string>

#include "base/half.h"
#include "scenario/json_value.h"

namespace tolvex::sim {

/// The port of a name; refuses `value`, which holds the name or belongs to it, for any other.
Half checkPort(const std::string& name, const JsonValue& value);

/// Refuses `value` for a name that no printer has.
void checkPrinter(const std::string& name, const JsonValue& value);

}  // namespace tolvex::sim
