// What is logged of exchanges.
#pragma once

#include <string>

#include "exchange/exchanger.h"

namespace tolvex::sim {

/// One line, without its end: "weighing 127.0.0.1:40112 {"cmd":"setzero"} -> {"result":"0"}". The
/// reply is what the client gets; "(no answer)", "(closed)" or "(reset)" stand for what it gets
/// instead. Faults that act follow, as in " [delay, two-pieces]". Long texts are cut.
std::string exchangeLine(const Exchange& exchange);

}  // namespace tolvex::sim
