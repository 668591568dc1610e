// This library as a module of the host application's process.
#pragma once

namespace tolvex::platform {

// Keeps the library in the process until its end, whoever unloads it: threads may be inside a call then,
// and what the calls made (log, connections) is never taken down. On Linux the linker has said so.
void keepLoaded();

}  // namespace tolvex::platform
