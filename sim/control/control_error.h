// What is wrong with something that a person or a program asked for.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "base/json_pointer.h"
#include "base/result_code.h"

namespace tolvex::sim {

/// A request, a patch or a rule that can not be carried out. Nothing has been changed when it is
/// thrown.
class ControlError : public std::runtime_error {
 public:
  /// `what` says what is wrong, with the value; `remedy` how to mend it, as a whole sentence.
  /// `status` is the HTTP status that goes with it.
  ControlError(int status, const std::string& what, std::string remedy)
      : std::runtime_error(what), status_(status), remedy_(std::move(remedy)) {}

  /// A device refuses: 409 with the code that it answers.
  ControlError(ResultCode result, const std::string& what, std::string remedy)
      : ControlError(409, what, std::move(remedy)) {
    result_ = result;
  }

  int status() const { return status_; }
  const std::string& remedy() const { return remedy_; }
  std::optional<ResultCode> result() const { return result_; }

  /// Where in the body it is wrong, as a JSON pointer ("/scale/load_kg"); empty for the body itself
  /// and for what has none.
  const std::string& place() const { return place_; }

  /// The same error, where what is wrong stands in `member`.
  ControlError in(std::string_view member) const {
    ControlError error = *this;
    error.place_ = pointerTo(member) + place_;
    return error;
  }

 private:
  int status_;
  std::string remedy_;
  std::optional<ResultCode> result_;
  std::string place_;
};

/// Calls `read`, and says of its errors that they stand in `member`.
template <typename Read>
void within(std::string_view member, Read read) {
  try {
    read();
  } catch (const ControlError& error) {
    throw error.in(member);
  }
}

/// What is wrong with what was asked for.
inline ControlError badRequest(const std::string& what, std::string remedy) {
  return ControlError(400, what, std::move(remedy));
}

}  // namespace tolvex::sim
