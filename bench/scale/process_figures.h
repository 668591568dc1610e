// What the system tells of a process.
#pragma once

#include <sys/types.h>

namespace bench::scale {

struct MemoryFigures {
  double resident;  // bytes now
  double peak;      // bytes, the most there were since the process began or resetPeak()
};

// Throws std::runtime_error where the process is not there.
MemoryFigures memoryOf(pid_t process);

// Begins to look for this process's own peak anew, from what is resident now.
void resetPeak();

// Seconds on the processor so far, in the process and in the system for it.
double processorSeconds(pid_t process);

}  // namespace bench::scale
