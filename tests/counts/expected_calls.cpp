#include "counts/expected_calls.h"

namespace tolvex::test {
namespace {

constexpr std::chrono::milliseconds kBetweenLooks(100);
constexpr std::size_t kTrustedBytes = 65536;

#ifdef _WIN32
constexpr bool kFileCanBeDeleted = false;  // not while it is open
#else
constexpr bool kFileCanBeDeleted = true;
#endif

}  // namespace

CallCounts expectedCalls(const NamesOfCalls& names, const CountedCall& call, LogKeeps keeps) {
  CallCounts calls;
  if (call.exchanges > 0) {
    for (const char* const name : {names.send, names.wait, names.receive}) {
      calls[name] = call.exchanges;
    }
  }
  if (call.recordsWith(keeps) > 0) calls[names.write] = call.recordsWith(keeps);
  return calls;
}

LooksAtTheFile::LooksAtTheFile(const Till& till, const char* nameOfTheCall)
    : till_(till), name_(nameOfTheCall), bytesAtStart_(till.logSize().bytes) {}

CallCounts LooksAtTheFile::leftOutOf(CallCounts calls) {
  const auto looks = calls.find(name_);
  if (looks == calls.end()) return calls;
  count_ += looks->second;
  calls.erase(looks);
  return calls;
}

std::size_t LooksAtTheFile::allowed() const {
  std::size_t looks = 1 + (till_.logSize().bytes - bytesAtStart_) / kTrustedBytes;
  if (kFileCanBeDeleted) {
    looks += 1 + static_cast<std::size_t>((Clock::now() - start_) / kBetweenLooks);
  }
  return looks;
}

}  // namespace tolvex::test
