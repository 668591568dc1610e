// The logger of the process, whose files lie in memory.
#pragma once

#include <string>

namespace tolvex::fuzz {

// Makes the logger where there is none yet, empties its files and what the debugger was shown, and
// gives the disk all the room it needs. Every record is written, down to requests and replies.
void startLog();

// What was written since, whichever file of the ring it went to.
std::string logged();

}  // namespace tolvex::fuzz
