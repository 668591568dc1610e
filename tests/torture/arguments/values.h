// What the arguments of a call are, ordinarily and to be hostile.
#pragma once

#include <string>
#include <vector>

#include "calls.h"

namespace tolvex::test {

using Values = std::vector<Value>;

extern const std::string kFormat;  // of what printf takes as a format

Value text(const std::string& bytes);

// What makes a call that works.
Values ordinaryValues(const ExportUnderTest& one);

// What the argument of this place may be in the place of that.
Values choices(const ExportUnderTest& one, std::size_t at);

// Gives each value its kind, and each buffer its room.
void settle(const ExportUnderTest& one, Values& values);

}  // namespace tolvex::test
