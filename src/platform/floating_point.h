// The floating-point environment during a call.
#pragma once

#ifdef __x86_64__
#include <xmmintrin.h>
#else
#include <cfenv>
#endif

namespace tolvex::platform {

// From construction to destruction the thread computes by the language's rules: rounded to nearest,
// without traps, with subnormal numbers. Host applications come with others (Delphi lets a NaN raise
// an exception), find theirs again after the call, and see nothing of what was computed between.
#ifdef __x86_64__
// The register itself: MinGW's fesetenv() does not give it all of what fegetenv() took.
class DefaultFloatingPoint {
 public:
  DefaultFloatingPoint() : host_(_mm_getcsr()) {
    if ((host_ & ~kFlags) != kDefault) _mm_setcsr(kDefault);
  }
  ~DefaultFloatingPoint() {
    if (_mm_getcsr() != host_) _mm_setcsr(host_);  // writing takes far longer than reading
  }
  DefaultFloatingPoint(const DefaultFloatingPoint&) = delete;
  DefaultFloatingPoint& operator=(const DefaultFloatingPoint&) = delete;

 private:
  static constexpr unsigned kDefault = 0x1F80;
  static constexpr unsigned kFlags = 0x3F;  // what has happened so far
  unsigned host_;
};
#else
class DefaultFloatingPoint {
 public:
  DefaultFloatingPoint() {
    std::fegetenv(&host_);
    std::fesetenv(FE_DFL_ENV);
  }
  ~DefaultFloatingPoint() { std::fesetenv(&host_); }
  DefaultFloatingPoint(const DefaultFloatingPoint&) = delete;
  DefaultFloatingPoint& operator=(const DefaultFloatingPoint&) = delete;

 private:
  std::fenv_t host_;
};
#endif

}  // namespace tolvex::platform
