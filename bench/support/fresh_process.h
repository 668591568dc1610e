// Work in a process of its own: the library's context lives as long as its process.
#pragma once

#include <functional>
#include <string>

namespace bench {

// All that the work writes to the descriptor that it gets, in a fresh process, which ends when the work returns;
// a program that takes its place has the descriptor as well. What the work throws is told on standard error.
// The caller has one thread. Throws std::runtime_error where the process fails.
std::string toldByFreshProcess(const std::function<void(int output)>& work);

// Writes all of it. Throws std::runtime_error.
void writeAll(int output, const char* bytes, std::size_t size);

}  // namespace bench
