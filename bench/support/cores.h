// Keeping a process on a core.
#pragma once

namespace bench {

// The calling process and those that it makes from now on run on this core only.
void pinTo(int core);

// How many the calling process may use.
int usableCores();

// Where caller and service run: on one core, or on two that differ.
struct Cores {
  int caller;
  int service;
};

// Pins the calling process. cores is 1 or 2. Throws std::runtime_error where the process may not
// use as many.
Cores pinned(int cores);

}  // namespace bench
