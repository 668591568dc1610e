// Why a file that people wrote is not taken.
#pragma once

#include <stdexcept>
#include <string>

#include "base/printable.h"

namespace tolvex::sim {

/// what() reads "/steps/2/on: \"click\" is no event. Events are request, job and connection.": the
/// place in the file, what is wrong there, and how to mend it.
class Refusal : public std::runtime_error {
 public:
  /// `what` and `remedy` are sentences, the first one without its full stop. `place` is a JSON
  /// pointer or a line; empty for the file as a whole. They may quote the file as it is.
  Refusal(const std::string& place, const std::string& what, const std::string& remedy)
      : std::runtime_error(
            printable((place.empty() ? "" : place + ": ") + what + ". " + remedy, kMaxBytes)) {}

 private:
  static constexpr std::size_t kMaxBytes = 2000;
};

}  // namespace tolvex::sim
