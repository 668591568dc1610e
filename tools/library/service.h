// The service, through the exports of the library.
#pragma once

#include <exports.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "app/globals.h"
#include "app/output.h"
#include "app/time_limit.h"
#include "library/library.h"

namespace tolvex::ctl {

/// What a call gave.
struct Answer {
  int value = 0;      // what the export returned
  int lastError = 0;  // the library's last error right after it
  std::string bytes;  // the caller's buffer, whole, where there is one
};

/// Calls exports, each on a thread of its own where --timeout limits it. One call at a time. When an
/// answer takes longer than the limit, every function here throws a Failure.
class Service {
 public:
  /// Tells the library the service's address first of all, where one is to be told.
  Service(const Library& library, const Globals& globals, Output& output);

  /// From now on waits so long for each call, whatever --timeout says.
  void waitAtMost(std::chrono::milliseconds limit) { limit_ = limit; }

  /// Does what calls an export and gives what that returned.
  template <typename Work>
  Answer perform(Work work) {
    return finished(within(limit_, [work = std::move(work), lastError = lastError_] {
      Answer answer;
      answer.value = work();
      answer.lastError = lastError();
      return answer;
    }));
  }

  /// Calls an export. Texts among the arguments are std::string, and live as long as the call.
  template <typename Function, typename... Arguments>
  Answer call(Export<Function> function, Arguments... arguments) {
    Function* const address = library_.get(function);
    return perform([address, copies = std::make_tuple(std::move(arguments)...)] {
      return std::apply([&](const auto&... each) { return address(plain(each)...); }, copies);
    });
  }

  /// The same for an export whose first argument is the caller's buffer, and whose second is its
  /// size where the export has one. The buffer is `size` zeros at first.
  template <typename Function, typename... Arguments>
  Answer read(Export<Function> function, unsigned size, Arguments... arguments) {
    Function* const address = library_.get(function);
    const auto buffer = std::make_shared<std::string>(size, '\0');
    Answer answer =
        perform([address, size, buffer, copies = std::make_tuple(std::move(arguments)...)] {
          return std::apply(
              [&](const auto&... each) {
                if constexpr (std::is_invocable_v<Function*, char*, unsigned,
                                                  decltype(plain(each))...>) {
                  return address(buffer->data(), size, plain(each)...);
                } else {
                  return address(buffer->data(), plain(each)...);
                }
              },
              copies);
        });
    answer.bytes = std::move(*buffer);
    return answer;
  }

  /// Calls an export that returns a verdict. Throws a Failure with the last error when it is not
  /// TOLVEX_OK; `purpose` is what then can not be done ("open the drawer").
  template <typename Function, typename... Arguments>
  void verdict(const std::string& purpose, Export<Function> function, Arguments... arguments) {
    checkVerdict(purpose, call(function, std::move(arguments)...));
  }

  /// The same for an export that returns a code, where 0 is success.
  template <typename Function, typename... Arguments>
  void code(const std::string& purpose, Export<Function> function, Arguments... arguments) {
    checkCode(purpose, call(function, std::move(arguments)...).value);
  }

  static void checkVerdict(const std::string& purpose, const Answer& answer);
  /// The same for an export that takes a reply apart: one that it can not read is no refusal of the
  /// device.
  static void checkReading(const std::string& purpose, const Answer& answer);
  static void checkCode(const std::string& purpose, int code);
  /// checkReading() for the exports that return a result code.
  static void checkReadingCode(const std::string& purpose, int code);

 private:
  static const char* plain(const std::string& text) { return text.c_str(); }
  template <typename Number, typename = std::enable_if_t<std::is_arithmetic_v<Number>>>
  static Number plain(Number number) {
    return number;
  }

  Answer finished(Answer answer);

  const Library& library_;
  const Globals& globals_;
  Output& output_;
  std::optional<std::chrono::milliseconds> limit_;
  int (*lastError_)();
};

/// A text in a buffer, which ends at the first NUL or with the buffer.
std::string textIn(const std::string& buffer);

}  // namespace tolvex::ctl
