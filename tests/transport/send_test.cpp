#include "transport/fake_network.h"
#include "transport/transport_test.h"

namespace tolvex {
namespace {

using test::Lines;
using test::network;

class Send : public test::TransportTest {
 protected:
  static std::string failed(int result) {
    return "[W] L:052 M:Socket [CTcpClient::Send] Send fail, ret:" + std::to_string(result);
  }
  // Connects, and forgets the calls of that.
  void connect() {
    ASSERT_TRUE(client_.Open());
    network.calls.clear();
  }
  int sendHello() { return send(client_, "hello"); }

  const Lines reopened_ = {
      "shutDown 1",        "shutDown 1",       "release 1",        "cleanUp",
      "startUp",           "create 2",         "nonBlocking 2 on", "connect 2 127.0.0.1:9000",
      "wait 2 1000 write", "nonBlocking 2 off"};
  Lines reopenedBetween(const std::string& first, const std::string& last) const {
    Lines calls = {first};
    calls.insert(calls.end(), reopened_.begin(), reopened_.end());
    calls.push_back(last);
    return calls;
  }

  CTcpClient client_{"127.0.0.1", 9000};
};

TEST_F(Send, ReturnsWhatWasTaken) {
  connect();
  EXPECT_EQ(sendHello(), 5);
  EXPECT_EQ(network.calls, (Lines{"send 1 hello"}));
  EXPECT_EQ(logged(), Lines());
}

TEST_F(Send, ConnectsOnDemand) {
  EXPECT_EQ(sendHello(), 5);
  EXPECT_EQ(network.calls,
            (Lines{"startUp", "create 1", "nonBlocking 1 on", "connect 1 127.0.0.1:9000",
                   "wait 1 1000 write", "nonBlocking 1 off", "send 1 hello"}));
}

TEST_F(Send, FailsWhenThereIsNoConnection) {
  network.connects = {{-1, 10061}};
  EXPECT_EQ(sendHello(), -1);
  EXPECT_EQ(test::countOf("create 2"), 0);
  EXPECT_EQ(logged(),
            (Lines{error(10061), "[W] L:044 M:Socket [CTcpClient::Send] Open conn fail"}));
}

TEST_F(Send, TriesToConnectAgainNextTime) {
  network.connects = {{-1, 10061}};
  sendHello();
  EXPECT_EQ(sendHello(), 5);
}

TEST_F(Send, ReturnsAPartAndLeavesTheRest) {
  connect();
  network.sends = {{2}};
  EXPECT_EQ(sendHello(), 2);
  EXPECT_EQ(network.calls, (Lines{"send 1 hello"}));
}

TEST_F(Send, IsRepeatedWhileItWouldBlock) {
  connect();
  network.sends = {{-1, 10035}, {-1, 10035}, {3}};
  EXPECT_EQ(sendHello(), 3);
  EXPECT_EQ(network.calls, (Lines{"send 1 hello", "send 1 hello", "send 1 hello"}));
  EXPECT_EQ(logged(), (Lines{error(10035), error(10035)}));
}

TEST_F(Send, ReconnectsOnceAndSendsAgainAfterAFailure) {
  connect();
  network.sends = {{-1, 10054}};
  EXPECT_EQ(sendHello(), 5);
  EXPECT_EQ(network.calls, reopenedBetween("send 1 hello", "send 2 hello"));
  EXPECT_EQ(logged(), (Lines{error(10054), failed(-1)}));
}

TEST_F(Send, ReconnectsAfterAFailureThatFollowsWouldBlock) {
  connect();
  network.sends = {{-1, 10035}, {-1, 10053}};
  EXPECT_EQ(sendHello(), 5);
  EXPECT_EQ(logged(), (Lines{error(10035), error(10053), failed(-1)}));
}

TEST_F(Send, ReconnectsWhenNothingWasTaken) {
  connect();
  network.sends = {{0}};
  EXPECT_EQ(sendHello(), 5);
  EXPECT_EQ(network.calls, reopenedBetween("send 1 hello", "send 2 hello"));
  EXPECT_EQ(logged(), (Lines{failed(0)}));
}

TEST_F(Send, ReconnectsAfterAFailureWithoutAnError) {
  connect();
  network.sends = {{-1, 0}};
  EXPECT_EQ(sendHello(), 5);
  EXPECT_EQ(logged(), (Lines{failed(-1)}));
}

TEST_F(Send, ReturnsTheFirstResultWhenTheReconnectFails) {
  connect();
  network.sends = {{-1, 10054}};
  network.connects = {{-1, 10061}};
  EXPECT_EQ(sendHello(), -1);
  EXPECT_EQ(test::countOf("send 2 hello"), 0);
  EXPECT_EQ(logged(), (Lines{error(10054), failed(-1), error(10061)}));
}

TEST_F(Send, ReturnsZeroWhenNothingWasTakenAndTheReconnectFails) {
  connect();
  network.sends = {{0}};
  network.waits = {{test::kTimeOut}};
  EXPECT_EQ(sendHello(), 0);
  EXPECT_EQ(logged(), (Lines{failed(0)}));
}

TEST_F(Send, IsClosedAfterAFailedReconnect) {
  connect();
  network.sends = {{0}};
  network.waits = {{test::kTimeOut}};
  sendHello();
  network.calls.clear();
  client_.Close();
  EXPECT_EQ(network.calls, Lines());
}

TEST_F(Send, ReturnsTheSecondFailureWithoutLoggingItsResult) {
  connect();
  network.sends = {{-1, 10054}, {-1, 10053}};
  EXPECT_EQ(sendHello(), -1);
  EXPECT_EQ(test::countOf("create 3"), 0);
  EXPECT_EQ(logged(), (Lines{error(10054), failed(-1), error(10053)}));
}

TEST_F(Send, ReturnsZeroWhenTheSecondAttemptTakesNothing) {
  connect();
  network.sends = {{-1, 10054}, {0}};
  EXPECT_EQ(sendHello(), 0);
  EXPECT_EQ(logged(), (Lines{error(10054), failed(-1)}));
}

TEST_F(Send, ReturnsAPartOfTheSecondAttempt) {
  connect();
  network.sends = {{-1, 10054}, {4}};
  EXPECT_EQ(sendHello(), 4);
}

TEST_F(Send, KeepsTheConnectionOfAFailedSecondAttempt) {
  connect();
  network.sends = {{-1, 10054}, {-1, 10054}};
  sendHello();
  network.calls.clear();
  EXPECT_EQ(sendHello(), 5);
  EXPECT_EQ(network.calls, (Lines{"send 2 hello"}));
}

TEST_F(Send, GoesThroughTheVirtualOperations) {
  struct Watched : CTcpClient {
    using CTcpClient::CTcpClient;
    bool Open() override {
      ++opens;
      return CTcpClient::Open();
    }
    void Close() override {
      ++closes;
      CTcpClient::Close();
    }
    int opens = 0;
    int closes = 0;
  } watched("127.0.0.1", 9000);
  network.sends = {{-1, 10054}};
  EXPECT_EQ(send(watched, "hello"), 5);
  EXPECT_EQ(watched.opens, 2);
  EXPECT_EQ(watched.closes, 1);
}

}  // namespace
}  // namespace tolvex
