#include "platform/debug_output.h"

namespace tolvex::platform {

void debugOutput(const char*) {}

}  // namespace tolvex::platform
