// What the sessions of one port share. Includes no Asio.
#pragma once

#include <unordered_set>

#include "base/half.h"
#include "exchange/exchanger.h"

namespace tolvex::sim {

class Session;

struct ServedPort {
  Half half;
  Exchanger& exchanger;
  /// The clients that are connected. Sessions enter and leave by themselves.
  std::unordered_set<Session*> sessions;
};

}  // namespace tolvex::sim
