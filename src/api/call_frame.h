// What every export that uses the service is built from.
#pragma once

#include "platform/floating_point.h"
#include "platform/threads.h"

namespace tolvex {

class VcoClientApi;

// What most exports answer with.
constexpr int kExportOk = 240;
constexpr int kExportFailed = 255;

// What an export returns when an exception reached it.
constexpr int kVerdictOfException = kExportFailed;  // where it answers with 240 or 255
constexpr int kCodeOfException = 1;  // "Unknown", where it answers with the command's code

// Runs the body of an export and returns its result. No exception passes into the host application:
// every one becomes the given result. What is computed does not depend on the host application's
// floating-point environment, and a thread that is cancelled finishes its call first.
template <typename Body>
int guarded(int resultOfException, Body&& body) noexcept {
  const platform::NotCancelled thread;
  const platform::DefaultFloatingPoint environment;
  try {
    return body();
  } catch (...) {
    return resultOfException;
  }
}

// A text argument as a log line shows it.
inline const char* printable(const char* text) { return text != nullptr ? text : "(null)"; }

}  // namespace tolvex
