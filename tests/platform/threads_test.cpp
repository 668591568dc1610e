#include "platform/threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <thread>
#include <vector>

namespace tolvex::platform {
namespace {

TEST(ThreadId, IsNeverZero) { EXPECT_NE(currentThreadId(), 0u); }

TEST(ThreadId, StaysTheSameInOneThread) {
  const std::uint32_t first = currentThreadId();
  EXPECT_EQ(currentThreadId(), first);
}

TEST(ThreadId, DiffersBetweenLivingThreads) {
  constexpr std::size_t kThreads = 16;
  std::vector<std::uint32_t> ids(kThreads);
  std::atomic<std::size_t> known{0};
  std::vector<std::thread> threads;
  for (std::uint32_t& id : ids) {
    threads.emplace_back([&] {
      id = currentThreadId();
      ++known;
      while (known < kThreads) std::this_thread::yield();  // all of them are alive together
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::set<std::uint32_t> different(ids.begin(), ids.end());
  different.insert(currentThreadId());
  EXPECT_EQ(different.size(), kThreads + 1);
  EXPECT_EQ(different.count(0), 0u);
}

TEST(CriticalSection, HasOneOwnerAtATime) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 10000;
  CriticalSection section;
  int guarded = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < kRounds; ++round) {
        section.enter();
        ++guarded;
        section.leave();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(guarded, kThreads * kRounds);
}

TEST(CriticalSection, IsIndependentOfOthers) {
  CriticalSection held;
  CriticalSection other;
  held.enter();
  bool entered = false;
  std::thread([&] {
    other.enter();
    entered = true;
    other.leave();
  }).join();
  held.leave();
  EXPECT_TRUE(entered);
}

}  // namespace
}  // namespace tolvex::platform
