#include "platform/debug_output.h"

#include <windows.h>

namespace tolvex::platform {

void debugOutput(const char* text) { OutputDebugStringA(text); }

}  // namespace tolvex::platform
