// Where a measurement runs.
#pragma once

#include <string>

namespace bench::scale {

// Keeps this process, and those that it makes from now on, on one core. Throws std::runtime_error.
void pinToOneCore();

// Lets it use all of them again. Throws std::runtime_error.
void useAllCores();

// A loopback address that no other run uses at the same time.
std::string privateAddress();

// Processor, cores, system, in a line.
std::string describeMachine();

}  // namespace bench::scale
