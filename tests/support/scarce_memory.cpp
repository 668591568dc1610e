#include "support/scarce_memory.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <mutex>

#include "support/scarce_memory_account.h"

namespace tolvex::test {
namespace {

struct Plan {
  bool watching;
  bool fromThenOn;
  std::size_t failing;
  std::size_t allocations;
  std::size_t failures;
  std::size_t bytes;
  std::size_t largest;
};

thread_local Plan plan = {};

// What the function of the system made that the thread is in.
struct OfTheSystem {
  bool inside;
  std::size_t count;
  std::array<const void*, 64> blocks;
};

thread_local OfTheSystem ofTheSystem = {};

// Open addressing, without an allocation of its own.
class Blocks {
 public:
  void add(const void* block) {
    const std::lock_guard<std::mutex> lock(mutex_);
    std::size_t at = place(block);
    while (slots_[at] != nullptr && slots_[at] != kGone) at = (at + 1) % kSlots;
    slots_[at] = block;
    if (++count_ > kSlots / 2) {
      std::fputs("scarce_memory: too many blocks\n", stderr);
      std::abort();
    }
  }
  void remove(const void* block) {
    if (count_ == 0) return;
    const std::lock_guard<std::mutex> lock(mutex_);
    for (std::size_t at = place(block); slots_[at] != nullptr; at = (at + 1) % kSlots) {
      if (slots_[at] != block) continue;
      // Nothing was ever put behind a place whose next one is empty.
      slots_[at] = slots_[(at + 1) % kSlots] == nullptr ? nullptr : kGone;
      --count_;
      return;
    }
  }
  std::size_t count() const { return count_; }

 private:
  static constexpr std::size_t kSlots = std::size_t{1} << 20;
  static constexpr std::uintptr_t kMix = 0x9E3779B97F4A7C15;
  static std::size_t place(const void* block) {
    return reinterpret_cast<std::uintptr_t>(block) * kMix >> 44;
  }
  inline static const char gone_ = 0;
  static constexpr const void* kGone = &gone_;

  std::mutex mutex_;
  std::atomic<std::size_t> count_{0};
  std::array<const void*, kSlots> slots_ = {};
};

Blocks blocks;

}  // namespace

namespace account {

bool mayAllocate(std::size_t bytes) {
  if (!plan.watching) return true;
  plan.bytes += bytes;
  plan.largest = std::max(plan.largest, bytes);
  const std::size_t number = ++plan.allocations;
  if (plan.failing == ScarceMemory::kNever) return true;
  if (plan.fromThenOn ? number < plan.failing : number != plan.failing) return true;
  ++plan.failures;
  return false;
}

void made(const void* block) {
  if (!plan.watching || block == nullptr) return;
  blocks.add(block);
  OfTheSystem& made = ofTheSystem;
  if (made.inside && made.count < made.blocks.size()) made.blocks[made.count++] = block;
}

void gone(const void* block) {
  if (block != nullptr) blocks.remove(block);
}

void systemBegins() {
  ofTheSystem.inside = true;
  ofTheSystem.count = 0;
}

void systemEnds(bool failed) {
  OfTheSystem& made = ofTheSystem;
  made.inside = false;
  for (std::size_t i = 0; failed && i < made.count; ++i) blocks.remove(made.blocks[i]);
}

}  // namespace account

ScarceMemory::ScarceMemory(std::size_t failing, bool fromThenOn) {
  plan = {true, fromThenOn, failing, 0, 0, 0, 0};
}

ScarceMemory::~ScarceMemory() { plan.watching = false; }

std::size_t ScarceMemory::allocations() const { return plan.allocations; }

std::size_t ScarceMemory::bytes() const { return plan.bytes; }

std::size_t ScarceMemory::largest() const { return plan.largest; }

std::size_t ScarceMemory::failures() const { return plan.failures; }

std::size_t blocksInUse() { return blocks.count(); }

}  // namespace tolvex::test
