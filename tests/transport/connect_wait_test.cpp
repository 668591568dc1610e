#include "transport/fake_network.h"
#include "transport/tcp_socket.h"
#include "transport/transport_test.h"

namespace tolvex {
namespace {

using test::Lines;
using test::network;

// How a connect ends whose wait tells more than "writable" or "time-out".
class ConnectWait : public test::TransportTest {
 protected:
  ConnectWait() { network.connects = {{-1, 10035}}; }
  bool connect() { return socket_.Connect("127.0.0.1", 9000, 250); }

  CTcpSocket socket_;
};

TEST_F(ConnectWait, TakesTheTimeItIsGiven) {
  EXPECT_TRUE(connect());
  EXPECT_EQ(test::countOf("wait 1 250 write"), 1);
}

TEST_F(ConnectWait, KeepsNoErrorAfterSuccess) {
  connect();
  EXPECT_EQ(socket_.lastError(), kSocketOk);
  EXPECT_TRUE(socket_.isBlocking());
}

TEST_F(ConnectWait, ThatFailsCountsAsConnected) {
  network.waits = {{test::kWaitFailed, 10004}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(socket_.lastError(), kSocketInterrupted);
  EXPECT_TRUE(socket_.isBlocking());
  EXPECT_EQ(logged(), (Lines{error(10004)}));
}

TEST_F(ConnectWait, IsRepeatedWhileItWouldBlock) {
  network.waits = {{test::kWaitFailed, 10035}, {test::kWaitFailed, 10035}, {test::kReady}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(test::countOf("wait 1 250 write"), 3);
  EXPECT_EQ(logged(), (Lines{error(10035), error(10035)}));
}

TEST_F(ConnectWait, MayTimeOutAfterItWouldBlock) {
  network.waits = {{test::kWaitFailed, 10035}, {test::kTimeOut}};
  EXPECT_FALSE(connect());
  EXPECT_EQ(logged(), (Lines{error(10035)}));
}

TEST_F(ConnectWait, MayFailAfterItWouldBlock) {
  network.waits = {{test::kWaitFailed, 10035}, {test::kWaitFailed, 10038}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(socket_.lastError(), kSocketRefusedByLocal);
  EXPECT_EQ(logged(), (Lines{error(10035), error(10038)}));
}

TEST_F(ConnectWait, ThatFailsWithoutAnErrorCountsAsConnected) {
  network.waits = {{test::kWaitFailed, 0}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(test::countOf("wait 1 250 write"), 1);
  EXPECT_EQ(socket_.lastError(), kSocketOk);
  EXPECT_EQ(logged(), Lines());
}

TEST_F(ConnectWait, ThatEndsExceptionalCountsAsConnected) {
  network.waits = {{test::kExceptional}};
  network.pendingErrors = {{0, 0}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(network.calls,
            (Lines{"startUp", "create 1", "nonBlocking 1 on", "connect 1 127.0.0.1:9000",
                   "wait 1 250 write", "pendingError 1", "nonBlocking 1 off"}));
  EXPECT_EQ(socket_.lastError(), kSocketOk);
  EXPECT_EQ(logged(), Lines());
}

TEST_F(ConnectWait, ThatEndsExceptionalTranslatesTheThreadsErrorNotTheSockets) {
  network.waits = {{test::kExceptional, 10048}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(socket_.lastError(), kSocketAddressInUse);
  EXPECT_EQ(logged(), (Lines{error(10048)}));
}

TEST_F(ConnectWait, ThatEndsExceptionalIsNotRepeatedForWouldBlock) {
  network.waits = {{test::kExceptional, 10035}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(test::countOf("wait 1 250 write"), 1);
  EXPECT_EQ(socket_.lastError(), kSocketWouldBlock);
  EXPECT_EQ(logged(), (Lines{error(10035)}));
}

TEST_F(ConnectWait, ThatEndsExceptionalKeepsNoErrorWhereNoneCanBeRead) {
  network.waits = {{test::kExceptional}};
  network.pendingErrors = {{-1, 10022}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(socket_.lastError(), kSocketOk);
  EXPECT_EQ(logged(), Lines());
}

TEST_F(ConnectWait, ThatEndsReadyAndExceptionalIsReady) {
  network.waits = {{{2, true, true}}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(test::countOf("pendingError 1"), 0);
}

TEST_F(ConnectWait, ThatEndsNeitherReadyNorExceptionalCountsAsConnected) {
  network.waits = {{{1, false, false}}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(test::countOf("pendingError 1"), 0);
}

TEST_F(ConnectWait, ThatTimesOutLeavesTheSocketNonBlocking) {
  network.waits = {{test::kTimeOut}};
  EXPECT_FALSE(connect());
  EXPECT_FALSE(socket_.isBlocking());
}

class ConnectFailure : public ConnectWait {};

TEST_F(ConnectFailure, AtOnceIsKept) {
  network.connects = {{-1, 10061}};
  EXPECT_FALSE(connect());
  EXPECT_EQ(socket_.lastError(), kSocketConnectionRefused);
}

TEST_F(ConnectFailure, ToLeaveBlockingModeIsKept) {
  network.nonBlocking = {{-1, 10022}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(socket_.lastError(), kSocketRefusedByLocal);
  EXPECT_TRUE(socket_.isBlocking());
}

TEST_F(ConnectFailure, ToReturnToBlockingModeIsKept) {
  network.nonBlocking = {{0}, {-1, 10038}};
  EXPECT_TRUE(connect());
  EXPECT_EQ(socket_.lastError(), kSocketRefusedByLocal);
  EXPECT_FALSE(socket_.isBlocking());
}

TEST_F(ConnectFailure, OfASocketThatStaysNonBlockingAsksForNoChangeBack) {
  network.waits = {{test::kTimeOut}};
  connect();
  EXPECT_TRUE(connect());
  EXPECT_EQ(test::countOf("nonBlocking 1 off"), 0);
}

}  // namespace
}  // namespace tolvex
