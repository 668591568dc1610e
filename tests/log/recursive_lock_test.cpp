#include "log/recursive_lock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace tolvex {
namespace {

// Whether another thread gets the lock only after the owner's leave(): the owner notes its name
// first and leaves then.
std::vector<std::string> orderWithAnother(RecursiveLock& lock) {
  std::vector<std::string> order;
  std::atomic<bool> started{false};
  std::thread another([&] {
    started = true;
    lock.enter();
    order.emplace_back("another");
    lock.leave();
  });
  while (!started) std::this_thread::yield();
  for (int i = 0; i < 1000; ++i) std::this_thread::yield();  // a chance for what must not happen
  order.emplace_back("owner");
  lock.leave();
  another.join();
  return order;
}

TEST(RecursiveLock, KeepsAnotherThreadOut) {
  RecursiveLock lock;
  lock.enter();
  EXPECT_EQ(orderWithAnother(lock), (std::vector<std::string>{"owner", "another"}));
}

TEST(RecursiveLock, LetsItsOwnerEnterAgain) {
  RecursiveLock lock;
  lock.enter();
  lock.enter();
  lock.enter();
  lock.leave();
  lock.leave();
  EXPECT_EQ(orderWithAnother(lock), (std::vector<std::string>{"owner", "another"}));
}

TEST(RecursiveLock, CanBeTakenByOneThreadAfterTheOther) {
  RecursiveLock lock;
  std::vector<int> order;
  for (int i = 0; i < 3; ++i) {
    std::thread([&] {
      const ScopedLock outer(lock);
      const ScopedLock inner(lock);
      order.push_back(i);
    }).join();
  }
  const ScopedLock last(lock);
  EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
}

TEST(RecursiveLock, IgnoresALeaveBeforeAnyEnter) {
  RecursiveLock lock;
  lock.leave();
  lock.enter();
  EXPECT_EQ(orderWithAnother(lock), (std::vector<std::string>{"owner", "another"}));
}

TEST(RecursiveLock, IgnoresALeaveTooMany) {
  RecursiveLock lock;
  lock.enter();
  lock.leave();
  lock.leave();
  lock.leave();
  lock.enter();
  EXPECT_EQ(orderWithAnother(lock), (std::vector<std::string>{"owner", "another"}));
}

TEST(RecursiveLock, CountsAgainAfterALeaveTooMany) {
  RecursiveLock lock;
  lock.leave();
  lock.enter();
  lock.enter();
  lock.leave();
  EXPECT_EQ(orderWithAnother(lock), (std::vector<std::string>{"owner", "another"}));
}

TEST(RecursiveLock, LetsOneThreadAtATimeChangeWhatItGuards) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 5000;
  RecursiveLock lock;
  int guarded = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < kRounds; ++round) {
        const ScopedLock outer(lock);
        ++guarded;
        const ScopedLock inner(lock);
        ++guarded;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(guarded, 2 * kThreads * kRounds);
}

TEST(ScopedLock, LeavesAtTheEndOfItsScope) {
  RecursiveLock lock;
  { const ScopedLock scope(lock); }
  bool entered = false;
  std::thread([&] {
    const ScopedLock scope(lock);
    entered = true;
  }).join();
  EXPECT_TRUE(entered);
}

}  // namespace
}  // namespace tolvex
