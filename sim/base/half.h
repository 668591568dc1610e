// The two halves of the service. Each has a TCP port and a set of commands of its own.
#pragma once

namespace tolvex::sim {

enum class Half { Weighing, Printing };

/// "weighing" or "printing", for people to read. The text is static.
inline const char* name(Half half) { return half == Half::Weighing ? "weighing" : "printing"; }

}  // namespace tolvex::sim
