// The debugger's message window.
#pragma once

namespace tolvex::platform {

// Shows the NUL-terminated text to an attached debugger (OutputDebugStringA), without a line end of
// its own. POSIX systems have no such channel: there it does nothing.
void debugOutput(const char* text);

}  // namespace tolvex::platform
