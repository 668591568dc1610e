#include <gtest/gtest.h>

#include <chrono>

#include "platform/socket.h"
#include "support/loopback.h"

namespace tolvex::platform::net {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

// A connection on which nothing happens.
class SocketWait : public testing::Test {
 protected:
  SocketWait() {
    startUp();
    socket_ = createTcp();
    EXPECT_EQ(connectTo(socket_, test::kLoopback, port_.number()), 0);
  }
  ~SocketWait() override {
    release(socket_);
    cleanUp();
  }
  // How long a wait that times out takes.
  Milliseconds timeOut(std::uint32_t timeoutMs) const {
    const auto start = Clock::now();
    EXPECT_EQ(wait(socket_, timeoutMs, false).count, 0);
    return std::chrono::duration_cast<Milliseconds>(Clock::now() - start);
  }

  const test::Listener port_;
  Socket socket_;
};

// The clock of the wait and that of the test may tick differently by some milliseconds.
constexpr Milliseconds kTick(16);
constexpr Milliseconds kLong(5000);

TEST_F(SocketWait, OfZeroReturnsAtOnce) { EXPECT_LT(timeOut(0), kLong); }

TEST_F(SocketWait, LastsItsTime) {
  const Milliseconds taken = timeOut(200);
  EXPECT_GE(taken, Milliseconds(200) - kTick);
  EXPECT_LT(taken, Milliseconds(200) + kLong);
}

TEST_F(SocketWait, LastsSecondsAndMilliseconds) {
  const Milliseconds taken = timeOut(1100);
  EXPECT_GE(taken, Milliseconds(1100) - kTick);
  EXPECT_LT(taken, Milliseconds(1100) + kLong);
}

TEST_F(SocketWait, EndsEarlyWhenDataIsThere) {
  port_.accept().send("x");
  const auto start = Clock::now();
  EXPECT_EQ(wait(socket_, 60000, false).count, 1);
  EXPECT_LT(Clock::now() - start, Milliseconds(30000));
}

TEST_F(SocketWait, TakesTheLongestTimeOut) {
  port_.accept().send("x");
  EXPECT_EQ(wait(socket_, 4294967295, false).count, 1);
}

TEST_F(SocketWait, OnAReleasedSocketFails) {
  const Socket other = createTcp();
  release(other);
  const Readiness readiness = wait(other, 10000, false);
  EXPECT_EQ(lastError(), 10038);
  EXPECT_EQ(readiness.count, -1);
  EXPECT_FALSE(readiness.ready);
  EXPECT_FALSE(readiness.exceptional);
}

TEST_F(SocketWait, OnAnInvalidSocketIsNeverReady) {
  const Readiness readiness = wait(kInvalidSocket, 50, true);
  EXPECT_LT(readiness.count, 1);
  EXPECT_FALSE(readiness.ready);
}

}  // namespace
}  // namespace tolvex::platform::net
