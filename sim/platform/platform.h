// All that the simulator needs of the operating system beyond the standard library and Asio. One
// source file per system implements it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tolvex::sim::platform {

/// The program's arguments in UTF-8, without its name, from what main() got.
std::vector<std::string> arguments(int argc, const char* const* argv);

/// Reads what is there of standard input, waiting for at least one byte. Returns the number of
/// bytes, 0 at the end of the input or if there is none. Goes past the C library's streams: a
/// thread that is blocked in here holds none of their locks, so the process can end meanwhile.
std::size_t readStandardInput(char* buffer, std::size_t capacity);

/// The signals that ask the program to stop (interrupt, terminate, and the console's break key).
std::vector<int> stopSignals();

/// A reader of the program's output that goes away must not take the program with it.
void surviveClosedOutput();

/// To be called on a TCP socket before it is bound to a listening address: makes a port usable
/// again right after a restart, and refuses one on which another program listens. A failure is
/// left to show up in the bind.
void prepareToListen(std::uintptr_t nativeSocket);

/// Whether the system tells of a connection that the other side has reset while nobody reads or
/// writes.
bool tellsOfResets();

}  // namespace tolvex::sim::platform
