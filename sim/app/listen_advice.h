// What to do about a port that can not be opened.
#pragma once

#include <string>

#include "net/listen_error.h"

namespace tolvex::sim {

/// Goes behind what() of the error: ". Is another zelkad or zelkad-sim running? Stop it, or ...".
/// Names the options that choose another port or address.
std::string adviceOn(const ListenError& error);

}  // namespace tolvex::sim
