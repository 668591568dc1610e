#include "app/time_limit.h"

#include <atomic>
#include <string>

namespace tolvex::ctl {
namespace {

std::atomic<bool> leftBehind{false};

}  // namespace

bool leftCallBehind() { return leftBehind; }

void detail::leaveCallBehind(std::chrono::milliseconds limit) {
  leftBehind = true;
  throw Failure(ExitCode::Unreachable, "no answer within " + toText(limit),
                "Check that the service is running and not busy. A command may have been carried "
                "out all the same; look at the paper before you repeat it.");
}

}  // namespace tolvex::ctl
