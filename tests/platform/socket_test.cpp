#include "platform/socket.h"

#include <gtest/gtest.h>

#include <string>

#include "support/loopback.h"
#include "support/os_support.h"

namespace tolvex::platform::net {
namespace {

using test::kLoopback;

// One socket, and the use of the socket library around it.
class SocketTest : public testing::Test {
 protected:
  SocketTest() {
    startUp();
    socket_ = createTcp();
    EXPECT_NE(socket_, kInvalidSocket);
  }
  ~SocketTest() override {
    release(socket_);
    cleanUp();
  }
  void connect(const test::Port& port) const {
    EXPECT_EQ(connectTo(socket_, kLoopback, port.number()), 0);
  }
  std::string received(unsigned most) const {
    std::string data(most, '#');
    const int count = receive(socket_, data.data(), most);
    EXPECT_GE(count, 0);
    return data.substr(0, static_cast<std::size_t>(count));
  }
  int sendText(const std::string& text) const {
    return send(socket_, text.data(), static_cast<unsigned>(text.size()));
  }
  Socket socket_;
};

TEST_F(SocketTest, ConnectsAndSends) {
  const test::Listener port;
  connect(port);
  EXPECT_EQ(sendText("hello"), 5);
  EXPECT_EQ(port.accept().receive(5), "hello");
}

TEST_F(SocketTest, ReceivesWhatIsThere) {
  const test::Listener port;
  connect(port);
  const test::Peer peer = port.accept();
  peer.send("hello");
  EXPECT_EQ(received(2), "he");
  EXPECT_EQ(received(100), "llo");
}

TEST_F(SocketTest, ReceivesNothingAfterAnOrderlyEnd) {
  const test::Listener port;
  connect(port);
  port.accept().close();
  EXPECT_EQ(received(1), "");
}

TEST_F(SocketTest, IsReleased) {
  release(createTcp());
  const std::size_t handles = test::handleCount();
  const Socket other = createTcp();
  EXPECT_EQ(test::handleCount(), handles + 1);
  release(other);
  EXPECT_EQ(test::handleCount(), handles);
}

TEST_F(SocketTest, TellsThePeerOfItsShutdownBeforeItIsReleased) {
  const test::Listener port;
  connect(port);
  const test::Peer peer = port.accept();
  shutDown(socket_);
  EXPECT_EQ(peer.receive(1), "");
}

TEST_F(SocketTest, EndsItsOwnReceivingByTheShutdown) {
  const test::Listener port;
  connect(port);
  const test::Peer peer = port.accept();
  shutDown(socket_);
  char byte;
#ifdef _WIN32  // Windows calls receiving after the shutdown an error, others an orderly end
  EXPECT_EQ(receive(socket_, &byte, 1), -1);
  EXPECT_EQ(lastError(), 10058);
#else
  EXPECT_EQ(receive(socket_, &byte, 1), 0);
#endif
}

TEST_F(SocketTest, SendsPartOfWhatTheSystemDoesNotTakeWhole) {
  const test::Listener port;
  release(socket_);
  socket_ = createTcp(200);
  connect(port);
  ASSERT_TRUE(setNonBlocking(socket_, true));
  const std::string much(64 << 20, 'x');
  const int sent = sendText(much);
  EXPECT_GT(sent, 0);
#ifndef _WIN32  // Windows takes whatever one call brings
  EXPECT_LT(sent, 64 << 20);
#endif
}

TEST_F(SocketTest, IsNeitherReadyNorBrokenAfterATimeOut) {
  const test::Listener port;
  connect(port);
  const Readiness readiness = wait(socket_, 50, false);
  EXPECT_EQ(readiness.count, 0);
  EXPECT_FALSE(readiness.ready);
  EXPECT_FALSE(readiness.exceptional);
}

TEST_F(SocketTest, IsReadableWhenDataIsThere) {
  const test::Listener port;
  connect(port);
  const test::Peer peer = port.accept();
  peer.send("x");
  const Readiness readiness = wait(socket_, 10000, false);
  EXPECT_EQ(readiness.count, 1);
  EXPECT_TRUE(readiness.ready);
  EXPECT_FALSE(readiness.exceptional);
}

TEST_F(SocketTest, IsReadableAtTheEndOfTheConnection) {
  const test::Listener port;
  connect(port);
  port.accept().close();
  const Readiness readiness = wait(socket_, 10000, false);
  EXPECT_EQ(readiness.count, 1);
  EXPECT_TRUE(readiness.ready);
}

TEST_F(SocketTest, IsReadableAfterAReset) {
  const test::Listener port;
  connect(port);
  port.accept().reset();
  const Readiness readiness = wait(socket_, 10000, false);
  EXPECT_EQ(readiness.count, 1);
  EXPECT_TRUE(readiness.ready);
}

TEST_F(SocketTest, IsWritableOnceConnected) {
  const test::Listener port;
  connect(port);
  const Readiness readiness = wait(socket_, 10000, true);
  EXPECT_EQ(readiness.count, 1);
  EXPECT_TRUE(readiness.ready);
  EXPECT_FALSE(readiness.exceptional);
}

TEST_F(SocketTest, IsWritableAfterANonBlockingConnect) {
  const test::Listener port;
  ASSERT_TRUE(setNonBlocking(socket_, true));
  if (connectTo(socket_, kLoopback, port.number()) < 0) {
    EXPECT_EQ(lastError(), 10035);
  }
  const Readiness readiness = wait(socket_, 10000, true);
  EXPECT_EQ(readiness.count, 1);
  EXPECT_TRUE(readiness.ready);
  ASSERT_TRUE(setNonBlocking(socket_, false));
  EXPECT_EQ(sendText("hello"), 5);
}

TEST_F(SocketTest, IsExceptionalAfterARefusedConnect) {
  const test::Port port;
  ASSERT_TRUE(setNonBlocking(socket_, true));
  EXPECT_EQ(connectTo(socket_, kLoopback, port.number()), -1);
  EXPECT_EQ(lastError(), 10035);
  const Readiness readiness = wait(socket_, 10000, true);
  EXPECT_EQ(readiness.count, 1);
  EXPECT_FALSE(readiness.ready);
  EXPECT_TRUE(readiness.exceptional);
}

TEST_F(SocketTest, FailsToSendAfterARefusedConnect) {
  const test::Port port;
  ASSERT_TRUE(setNonBlocking(socket_, true));
  connectTo(socket_, kLoopback, port.number());
  wait(socket_, 10000, true);
  int error = -1;
  EXPECT_TRUE(pendingError(socket_, error));
  EXPECT_EQ(sendText("hello"), -1);
  EXPECT_EQ(lastError(), 10054);
}

TEST_F(SocketTest, HasNoPendingErrorAtFirst) {
  int error = -1;
  EXPECT_TRUE(pendingError(socket_, error));
  EXPECT_EQ(error, 0);
}

TEST_F(SocketTest, ReceivesNoDataAfterAReset) {
  const test::Listener port;
  connect(port);
  port.accept().reset();
  char byte;
  const int count = receive(socket_, &byte, 1);
#ifdef _WIN32  // Wine may call the reset an orderly end
  EXPECT_LT(count, 1);
#else
  EXPECT_EQ(count, -1);
  EXPECT_EQ(lastError(), 10054);
#endif
}

}  // namespace
}  // namespace tolvex::platform::net
