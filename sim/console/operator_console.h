// What the operator can do to the devices and to the wire by typing.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/clock.h"

namespace tolvex::sim {

struct Devices;
class FaultBoard;

/// Carries out one line of operator input at a time. Not thread-safe; the references must outlive it.
class OperatorConsole {
 public:
  /// `quit` is called by the command of that name.
  OperatorConsole(Devices& devices, FaultBoard& faults, std::function<void()> quit);

  /// Carries out one command and returns the answer without its last line end: "ok ..." or
  /// "error: ..." with what would have been right. An answer of several lines says in its first one
  /// how many more there are, as in "3 lines". An empty or blank line gives an empty answer.
  std::string execute(std::string_view line, TimePoint now);

 private:
  Devices& devices_;
  FaultBoard& faults_;
  std::function<void()> quit_;
};

}  // namespace tolvex::sim
