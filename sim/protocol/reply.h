// A reply under construction.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/result_code.h"

namespace tolvex::sim {

/// The result code, always the first member, and then further members in the order in which they
/// are added. All values are JSON strings.
class Reply {
 public:
  // Implicit, so that a command that only has a code to say can return the code.
  Reply(ResultCode result);

  /// Adds a member and returns the reply itself, for chaining. A name is added only once.
  Reply& add(std::string name, std::string value);

  /// The reply as sent: one compact JSON object without a line end. Bytes of values that are not
  /// UTF-8 become U+FFFD.
  std::string json() const;

 private:
  std::vector<std::pair<std::string, std::string>> members_;
};

}  // namespace tolvex::sim
