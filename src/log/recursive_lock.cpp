#include "log/recursive_lock.h"

namespace tolvex {

void RecursiveLock::enter() {
  const std::uint32_t me = platform::currentThreadId();
  if (count_.load(std::memory_order_acquire) != 0 && owner_.load(std::memory_order_relaxed) == me) {
    count_.fetch_add(1, std::memory_order_relaxed);
    return;
  }
  section_.enter();
  owner_.store(me, std::memory_order_relaxed);
  count_.store(1, std::memory_order_release);
}

void RecursiveLock::leave() {
  const std::int32_t count = count_.load(std::memory_order_relaxed);
  if (count < 1) return;
  count_.store(count - 1, std::memory_order_release);
  if (count == 1) section_.leave();
}

}  // namespace tolvex
