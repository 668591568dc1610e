#include "transport/fake_network.h"
#include "transport/transport_test.h"

namespace tolvex {
namespace {

using test::Lines;
using test::network;

class Receive : public test::TransportTest {
 protected:
  void connect() {
    ASSERT_TRUE(client_.Open());
    network.calls.clear();
  }
  std::string buffer() const { return std::string(buffer_, sizeof(buffer_)); }

  CTcpClient client_{"127.0.0.1", 9000};
  char buffer_[8] = {'#', '#', '#', '#', '#', '#', '#', '#'};
};

class Recv : public Receive {
 protected:
  int receive() { return client_.Recv(buffer_, sizeof(buffer_)); }
};

TEST_F(Recv, ReturnsWhatCameWithoutATerminator) {
  connect();
  EXPECT_EQ(receive(), 5);
  EXPECT_EQ(buffer(), "reply###");
  EXPECT_EQ(network.calls, (Lines{"receive 1 8"}));
}

TEST_F(Recv, ReturnsZeroAtAnOrderlyEnd) {
  connect();
  network.receives = {{0}};
  EXPECT_EQ(receive(), 0);
  EXPECT_EQ(logged(), Lines());
}

TEST_F(Recv, ReturnsFailures) {
  connect();
  network.receives = {{-1, 10054}};
  EXPECT_EQ(receive(), -1);
  EXPECT_EQ(network.calls, (Lines{"receive 1 8"}));
  EXPECT_EQ(logged(), (Lines{error(10054)}));
}

TEST_F(Recv, IsNotRepeatedWhenItWouldBlock) {
  connect();
  network.receives = {{-1, 10035}};
  EXPECT_EQ(receive(), -1);
  EXPECT_EQ(network.calls, (Lines{"receive 1 8"}));
}

TEST_F(Recv, ConnectsOnDemand) {
  EXPECT_EQ(receive(), 5);
  EXPECT_EQ(network.calls,
            (Lines{"startUp", "create 1", "nonBlocking 1 on", "connect 1 127.0.0.1:9000",
                   "wait 1 1000 write", "nonBlocking 1 off", "receive 1 8"}));
}

TEST_F(Recv, FailsWhenThereIsNoConnection) {
  network.connects = {{-1, 10061}};
  EXPECT_EQ(receive(), -1);
  EXPECT_EQ(logged(),
            (Lines{error(10061), "[W] L:068 M:Socket [CTcpClient::Recv] Open conn fail"}));
}

TEST_F(Recv, KeepsTheConnectionAfterAFailure) {
  connect();
  network.receives = {{-1, 10054}};
  receive();
  EXPECT_EQ(receive(), 5);
  EXPECT_EQ(network.calls, (Lines{"receive 1 8", "receive 1 8"}));
}

class RecvTimeout : public Receive {
 protected:
  int receive(unsigned length = 8) { return client_.RecvTimeout(buffer_, length, 40000); }
};

TEST_F(RecvTimeout, ReturnsWhatCameWithoutATerminator) {
  connect();
  EXPECT_EQ(receive(), 5);
  EXPECT_EQ(buffer(), "reply###");
  EXPECT_EQ(network.calls, (Lines{"wait 1 40000 read", "receive 1 8"}));
}

TEST_F(RecvTimeout, ReturnsNoMoreThanTheBufferTakes) {
  connect();
  EXPECT_EQ(receive(2), 2);
  EXPECT_EQ(buffer(), "re######");
}

TEST_F(RecvTimeout, NeverConnects) {
  EXPECT_EQ(receive(), -1);
  EXPECT_EQ(network.calls, Lines());
  EXPECT_EQ(logged(), Lines());
}

TEST_F(RecvTimeout, NeverConnectsForLengthZeroEither) {
  EXPECT_EQ(receive(0), -1);
  EXPECT_EQ(network.calls, Lines());
}

TEST_F(RecvTimeout, DoesNotConnectAgainAfterClose) {
  connect();
  client_.Close();
  network.calls.clear();
  EXPECT_EQ(receive(), -1);
  EXPECT_EQ(network.calls, Lines());
}

TEST_F(RecvTimeout, ReturnsZeroForLengthZeroWithoutWaiting) {
  connect();
  EXPECT_EQ(receive(0), 0);
  EXPECT_EQ(network.calls, Lines());
}

TEST_F(RecvTimeout, ReturnsZeroAfterATimeOut) {
  connect();
  network.waits = {{test::kTimeOut}};
  EXPECT_EQ(receive(), 0);
  EXPECT_EQ(network.calls, (Lines{"wait 1 40000 read"}));
  EXPECT_EQ(logged(), Lines());
}

TEST_F(RecvTimeout, CallsAnOrderlyEndAFailure) {
  connect();
  network.receives = {{0}};
  EXPECT_EQ(receive(), -1);
  EXPECT_EQ(logged(), Lines());
}

TEST_F(RecvTimeout, FailsWhenTheWaitFails) {
  connect();
  network.waits = {{test::kWaitFailed, 10038}};
  EXPECT_EQ(receive(), -1);
  EXPECT_EQ(network.calls, (Lines{"wait 1 40000 read"}));
  EXPECT_EQ(logged(), (Lines{error(10038)}));
}

TEST_F(RecvTimeout, WaitsAgainWhileTheWaitWouldBlock) {
  connect();
  network.waits = {{test::kWaitFailed, 10035}, {test::kReady}};
  EXPECT_EQ(receive(), 5);
  EXPECT_EQ(network.calls, (Lines{"wait 1 40000 read", "wait 1 40000 read", "receive 1 8"}));
  EXPECT_EQ(logged(), (Lines{error(10035)}));
}

TEST_F(RecvTimeout, FailsOnAnExceptionalSocket) {
  connect();
  network.waits = {{test::kExceptional}};
  network.pendingErrors = {{0, 10054}};
  EXPECT_EQ(receive(), -1);
  EXPECT_EQ(network.calls, (Lines{"wait 1 40000 read", "pendingError 1"}));
  EXPECT_EQ(logged(), (Lines{error(10054)}));
}

TEST_F(RecvTimeout, FailsOnAnExceptionalSocketWhoseErrorCannotBeRead) {
  connect();
  network.waits = {{test::kExceptional}};
  network.pendingErrors = {{-1, 10038}};
  EXPECT_EQ(receive(), -1);
  EXPECT_EQ(logged(), Lines());
}

TEST_F(RecvTimeout, ReceivesWhenTheWaitTellsNeither) {
  connect();
  network.waits = {{{1, false, false}}};
  EXPECT_EQ(receive(), 5);
}

TEST_F(RecvTimeout, FailsWhenTheReceiveFails) {
  connect();
  network.receives = {{-1, 10054}};
  EXPECT_EQ(receive(), -1);
  EXPECT_EQ(logged(), (Lines{error(10054)}));
}

TEST_F(RecvTimeout, KeepsTheConnectionAfterAFailure) {
  connect();
  network.receives = {{0}};
  receive();
  EXPECT_EQ(receive(), 5);
  EXPECT_EQ(test::countOf("create 2"), 0);
}

TEST_F(RecvTimeout, OfASocketThatCouldNotBeMadeFails) {
  network.creates = {{-1, 10024}};
  CTcpSocket socket;
  EXPECT_EQ(socket.ReceiveWait(buffer_, 8, 100), -1);
  EXPECT_EQ(socket.ReceiveWait(buffer_, 0, 100), -1);
  EXPECT_EQ(network.calls, (Lines{"startUp", "create fails"}));
}

TEST_F(RecvTimeout, KeepsTheErrorOfAFailedReceive) {
  CTcpSocket socket;
  network.receives = {{-1, 10060}};
  EXPECT_EQ(socket.ReceiveWait(buffer_, 8, 100), -1);
  EXPECT_EQ(socket.lastError(), kSocketTimedOut);
}

class Unread : public Receive {};

TEST_F(Unread, IsNothingWithoutAConnection) {
  EXPECT_FALSE(client_.HasUnread());
  EXPECT_EQ(network.calls, Lines());
}

TEST_F(Unread, IsAskedForWithoutWaitingOrReceiving) {
  connect();
  EXPECT_TRUE(client_.HasUnread());
  EXPECT_EQ(network.calls, (Lines{"wait 1 0 read"}));
}

TEST_F(Unread, IsNothingWhenNothingWaits) {
  connect();
  network.waits = {{test::kTimeOut}};
  EXPECT_FALSE(client_.HasUnread());
}

TEST_F(Unread, IsAlsoAFailure) {
  connect();
  network.waits = {{test::kWaitFailed, 10038}};
  EXPECT_TRUE(client_.HasUnread());
  EXPECT_EQ(logged(), (Lines{error(10038)}));
}

}  // namespace
}  // namespace tolvex
