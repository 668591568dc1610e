// Calls that can not be interrupted, and how long the program waits for them.
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

#include "base/duration.h"
#include "base/failure.h"

namespace tolvex::ctl {

/// Whether a call was left to itself. The process then has to end without its destructors.
bool leftCallBehind();

namespace detail {
[[noreturn]] void leaveCallBehind(std::chrono::milliseconds limit);
}

/// Does the work on a thread of its own and gives what it gives. When the limit passes first, throws
/// a Failure (Unreachable) and leaves the work to itself: it must own all that it touches. Without a
/// limit waits for as long as it takes.
template <typename Work>
auto within(std::optional<std::chrono::milliseconds> limit, Work work) -> decltype(work()) {
  if (!limit) return work();
  auto task = std::make_shared<std::packaged_task<decltype(work())()>>(std::move(work));
  auto outcome = task->get_future();
  // Detached only in the end: under winpthreads a thread that is detached while it starts may never run.
  std::thread worker([task] { (*task)(); });
  if (outcome.wait_for(*limit) != std::future_status::ready) {
    worker.detach();
    detail::leaveCallBehind(*limit);
  }
  worker.join();
  return outcome.get();
}

}  // namespace tolvex::ctl
