// What Child needs of the operating system; one file per system implements it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/child.h"

namespace tolvex::test::os {

/// A process and our ends of its three streams.
struct Process {
  std::intptr_t process = 0;
  std::intptr_t input = 0;
  std::intptr_t output = 0;
  std::intptr_t error = 0;
};

/// Throws std::runtime_error when the program does not start.
Process start(const std::vector<std::string>& command, const Environment& environment);

/// Returns the number of bytes, 0 at the end of the stream.
std::size_t read(std::intptr_t stream, char* buffer, std::size_t size);
/// Whether all of it was taken.
bool write(std::intptr_t stream, const std::string& text);
void close(std::intptr_t stream);

void kill(const Process& process);
/// Waits for the end and gives the exit code; once for each process. A program that a signal ended
/// has minus the signal's number.
int wait(const Process& process);

}  // namespace tolvex::test::os
