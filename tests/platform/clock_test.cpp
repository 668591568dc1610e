#include "platform/clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <ctime>
#include <thread>
#include <tuple>

namespace tolvex::platform {
namespace {

auto inOrder(const LocalTime& time) {
  return std::make_tuple(time.year, time.month, time.day, time.hour, time.minute, time.second,
                         time.millisecond);
}

// The standard library's local time, to the second.
LocalTime calendarTime() {
  const std::time_t now = std::time(nullptr);
  const std::tm* const local = std::localtime(&now);
  return {static_cast<unsigned>(local->tm_year + 1900),
          static_cast<unsigned>(local->tm_mon + 1),
          static_cast<unsigned>(local->tm_mday),
          static_cast<unsigned>(local->tm_hour),
          static_cast<unsigned>(local->tm_min),
          static_cast<unsigned>(local->tm_sec),
          0};
}

TEST(LocalTime, IsInItsRanges) {
  const LocalTime now = localTime();
  EXPECT_GE(now.year, 2020u);
  EXPECT_LE(now.year, 9999u);
  EXPECT_GE(now.month, 1u);
  EXPECT_LE(now.month, 12u);
  EXPECT_GE(now.day, 1u);
  EXPECT_LE(now.day, 31u);
  EXPECT_LE(now.hour, 23u);
  EXPECT_LE(now.minute, 59u);
  EXPECT_LE(now.second, 60u);
  EXPECT_LE(now.millisecond, 999u);
}

TEST(LocalTime, IsThatOfTheStandardLibrary) {
  // The two clocks may tick at slightly different moments: one reading of several has to agree.
  bool agreed = false;
  for (int attempt = 0; attempt < 1000 && !agreed; ++attempt) {
    LocalTime now = localTime();
    now.millisecond = 0;
    agreed = inOrder(now) == inOrder(calendarTime());
  }
  EXPECT_TRUE(agreed);
}

TEST(LocalTime, GoesOn) {
  const LocalTime first = localTime();
  LocalTime later = localTime();
  while (inOrder(later) == inOrder(first)) later = localTime();
  EXPECT_GT(inOrder(later), inOrder(first));
}

TEST(LocalTime, IsTheSameOnEachThread) {
  LocalTime there = {};
  const LocalTime before = localTime();
  std::thread([&there] { there = localTime(); }).join();
  const LocalTime after = localTime();
  EXPECT_GE(inOrder(there), inOrder(before));
  EXPECT_LE(inOrder(there), inOrder(after));
}

TEST(CoarseMilliseconds, GoForward) {
  using std::chrono::steady_clock;
  constexpr std::int64_t kStep = 16;
  const auto begin = steady_clock::now();
  const std::int64_t first = coarseMilliseconds();
  std::int64_t latest = first;
  while (latest < first + 5 * kStep) {
    const std::int64_t next = coarseMilliseconds();
    ASSERT_GE(next, latest);
    latest = next;
  }
  const std::chrono::duration<double, std::milli> took = steady_clock::now() - begin;
  EXPECT_GE(took.count(), static_cast<double>(4 * kStep));
}

}  // namespace
}  // namespace tolvex::platform
