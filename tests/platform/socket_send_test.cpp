// Sends that find no room: the peer does not read, or reads late.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "platform/socket.h"
#include "support/loopback.h"

namespace tolvex::platform::net {
namespace {

constexpr unsigned kMegabyte = 1 << 20;
constexpr int kNoRoom = 10060;
constexpr std::uint32_t kShortMs = 200;

class SocketSend : public testing::Test {
 protected:
  SocketSend() { startUp(); }
  ~SocketSend() override {
    release(socket_);
    cleanUp();
  }
  void connect(std::uint32_t sendTimeoutMs) {
    socket_ = createTcp(sendTimeoutMs);
    EXPECT_EQ(connectTo(socket_, test::kLoopback, port_.number()), 0);
  }
  int sendAll(const std::string& text) const {
    return send(socket_, text.data(), static_cast<unsigned>(text.size()));
  }
  // Sends until a send fails; returns what was taken before.
  std::size_t fill() const {
    const std::string block(kMegabyte, 'x');
    std::size_t taken = 0;
    for (;;) {
      const int sent = sendAll(block);
      if (sent < 0) return taken;
      taken += static_cast<unsigned>(sent);
      if (taken > std::size_t{1} << 30) ADD_FAILURE() << "there is room for a gigabyte";
      if (HasFailure()) return taken;
    }
  }

  const test::Listener port_;
  Socket socket_ = kInvalidSocket;
};

TEST_F(SocketSend, FailsAsTimedOutWhenThePeerDoesNotRead) {
  connect(kShortMs);
  const test::Peer peer = port_.accept();
  EXPECT_GT(fill(), 0U);
  EXPECT_EQ(lastError(), kNoRoom);
  EXPECT_EQ(sendAll("x"), -1);
  EXPECT_EQ(lastError(), kNoRoom);
}

TEST_F(SocketSend, FailsLikewiseWhenTheSocketIsNotBlocking) {
  connect(kShortMs);
  const test::Peer peer = port_.accept();
  ASSERT_TRUE(setNonBlocking(socket_, true));
  EXPECT_GT(fill(), 0U);
  EXPECT_EQ(lastError(), kNoRoom);
}

TEST_F(SocketSend, WaitsItsTimeForAPeerThatReadsLate) {
  connect(kSendTimeoutMs);
  const std::string text(32 * kMegabyte, 'y');
  std::thread reader([this, &text] {
    const test::Peer peer = port_.accept();
    EXPECT_EQ(peer.receive(text.size()), text);
  });
  EXPECT_EQ(sendAll(text), static_cast<int>(text.size()));
  EXPECT_EQ(lastError(), 0);
  reader.join();
}

TEST_F(SocketSend, EndsWhenThePeerGoesWhileItWaits) {
  connect(kSendTimeoutMs);
  test::Peer peer = port_.accept();
  std::thread end([&peer] {
    std::this_thread::sleep_for(std::chrono::milliseconds(kShortMs));
    peer.reset();
  });
  fill();
  EXPECT_NE(lastError(), kNoRoom);
  end.join();
}

}  // namespace
}  // namespace tolvex::platform::net
