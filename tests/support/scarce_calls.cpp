#include "support/scarce_calls.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <stdexcept>

#include "support/loaded_library.h"
#include "support/scarce_calls_account.h"

namespace tolvex::test {
namespace {

constexpr std::size_t kMostFailures = 1000;
constexpr std::size_t kMostInterruptions = 100;

struct Plan {
  bool watching = false;
  bool armed = false;
  bool fromThenOn = false;
  std::size_t call = 0;
  std::size_t position = 0;
  CallFailure failure = {};
  std::size_t failures = 0;
  std::size_t most = 0;
  ScarceCalls::Calls calls;
  const char* once = nullptr;
  CallFailure onceFailure = {};
};

Plan& plan() {
  static thread_local Plan plan;
  return plan;
}

// Without an allocation of its own: memory may be scarce at the same time.
std::mutex handlesLock;
std::array<std::uintptr_t, 4096> handles;
std::size_t handleCount = 0;

// Whether the call of this position is one that fails.
bool isChosen(const Plan& now, std::size_t position, std::size_t call) {
  if (!now.armed || now.failures >= now.most) return false;
  return call == now.call && position >= now.position && (now.failures == 0 || now.fromThenOn);
}

}  // namespace

namespace account {

void* takeIn(LoadedLibrary& library, std::size_t call, void* inItsPlace) {
  const char* const name = scarceCalls()[call].name;
  void* const before = library.replace(name, inItsPlace);
  if (before == nullptr) throw std::runtime_error(std::string("the library has no ") + name);
  // It would call itself for ever.
  if (before == inItsPlace) throw std::runtime_error("loaded, but not afresh");
  return before;
}

bool isWatching() { return plan().watching; }

const CallFailure* next(std::size_t call) {
  Plan& now = plan();
  if (!now.watching) return nullptr;
  const std::size_t position = now.calls.size();
  now.calls.push_back(call);
  if (now.once != nullptr && std::strcmp(scarceCalls()[call].name, now.once) == 0) {
    now.once = nullptr;
    return &now.onceFailure;
  }
  if (!isChosen(now, position, call)) return nullptr;
  ++now.failures;
  return &now.failure;
}

void opened(std::uintptr_t handle) {
  const std::lock_guard<std::mutex> lock(handlesLock);
  if (handleCount == handles.size()) std::abort();
  handles[handleCount++] = handle;
}

void closing(std::uintptr_t handle) {
  const std::lock_guard<std::mutex> lock(handlesLock);
  auto* const end = handles.data() + handleCount;
  auto* const found = std::find(handles.data(), end, handle);
  if (found == end) return;
  *found = *(end - 1);
  --handleCount;
}

bool takeHandle(std::uintptr_t& handle) {
  const std::lock_guard<std::mutex> lock(handlesLock);
  if (handleCount == 0) return false;
  handle = handles[--handleCount];
  return true;
}

}  // namespace account

ScarceCalls::ScarceCalls() {
  Plan& now = plan();
  now.calls.clear();
  now.calls.reserve(std::size_t{1} << 16);
  now.failures = 0;
  now.armed = false;
  now.watching = true;
}

ScarceCalls::ScarceCalls(std::size_t call, std::size_t position, const CallFailure& failure,
                         bool fromThenOn)
    : ScarceCalls() {
  Plan& now = plan();
  now.call = call;
  now.position = position;
  now.failure = failure;
  now.fromThenOn = fromThenOn;
  now.most = std::strcmp(failure.name, "EINTR") == 0 ? kMostInterruptions : kMostFailures;
  now.armed = true;
}

ScarceCalls::~ScarceCalls() {
  plan().watching = false;
  plan().once = nullptr;
}

ScarceCalls::Calls ScarceCalls::calls() const { return plan().calls; }

std::size_t ScarceCalls::failures() const { return plan().failures; }

void ScarceCalls::failOnce(const char* name, const CallFailure& failure) {
  plan().once = name;
  plan().onceFailure = failure;
}

std::size_t libraryHandles() {
  const std::lock_guard<std::mutex> lock(handlesLock);
  return handleCount;
}

}  // namespace tolvex::test
