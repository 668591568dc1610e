// Curves' work in a process of its own.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>

namespace bench::scale {

// Runs the work in a fresh process, whose standard output leads nowhere, and returns what it
// returns. An exception of the work comes out here as a std::runtime_error with the same words, and
// so does a process that ends otherwise. The caller has one thread and has not loaded the library.
nlohmann::json inFreshProcess(const std::function<nlohmann::json()>& work);

}  // namespace bench::scale
