// The "expect" of a scenario file.
#pragma once

#include "scenario/expectation.h"
#include "scenario/json_value.h"

namespace tolvex::sim {

/// Throws Refusal for what is not understood.
Expectations readExpectations(const JsonValue& value);

}  // namespace tolvex::sim
