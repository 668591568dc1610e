// What ends a command before its time.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "base/exit_code.h"
#include "base/result_code.h"

namespace tolvex::ctl {

/// The program turns it into a message (text or JSON) and an exit status. The message says what is
/// wrong, the remedy how to mend it; both are UTF-8 without a line end.
struct Failure : std::runtime_error {
  Failure(ExitCode failureExit, const std::string& message, std::string failureRemedy = "")
      : std::runtime_error(message), exit(failureExit), remedy(std::move(failureRemedy)) {}

  /// With a result code, whose meaning and remedy stand in the table. The message is what could not
  /// be done ("cannot open the drawer").
  Failure(const std::string& message, int resultCode)
      : std::runtime_error(message), exit(exitOf(resultCode)), code(resultCode) {}

  ExitCode exit;
  std::optional<int> code;
  std::string remedy;  // empty: the code's own, if there is a code
};

}  // namespace tolvex::ctl
