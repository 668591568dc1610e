// What scenarios and limits of a run see happen.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/half.h"

namespace tolvex::sim {

/// Something that a client brought about.
struct Event {
  enum class Kind {
    Request,     // a request was carried out; its reply has not been seen yet
    Job,         // a job was finished
    Connection,  // a client connected
  };

  Kind kind = Kind::Request;
  /// Request and Connection.
  Half half = Half::Weighing;
  /// Request: the value of "cmd", empty if there is none, and whether the port knows it.
  std::string command;
  bool known = true;
  /// Request: the result code, if the request was carried out.
  std::optional<std::int64_t> result;
  /// Job: the printer's name.
  std::string printer;
};

}  // namespace tolvex::sim
