// What the operator can do to the devices by typing.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/clock.h"

namespace tolvex::sim {

class Scale;

/// Carries out one line of operator input at a time. Not thread-safe; the scale must outlive it.
class OperatorConsole {
 public:
  /// `quit` is called by the command of that name.
  OperatorConsole(Scale& scale, std::function<void()> quit);

  /// Carries out one command and returns the answer, one line without its end: "ok ..." or
  /// "error: ..." with what would have been right. An empty or blank line gives an empty answer.
  std::string execute(std::string_view line, TimePoint now);

 private:
  Scale& scale_;
  std::function<void()> quit_;
};

}  // namespace tolvex::sim
