// Calls of the simulator's API from within.
#pragma once

#include <functional>
#include <string>

namespace tolvex::sim {

/// A call as a scenario writes it, with its place in the file (a JSON pointer).
struct ApiCall {
  std::string method;  // "POST"
  std::string path;    // "/api/printers/Ticket/tear"
  std::string body;    // JSON; empty: none
  std::string place;
};

struct ApiAnswer {
  int status = 200;
  std::string body;  // JSON
};

/// Carries a call out at once.
using CallApi = std::function<ApiAnswer(const ApiCall&)>;

}  // namespace tolvex::sim
