// A listener without room for another connection stands in for a host that does not answer.
#include <chrono>

#include "support/loopback.h"
#include "transport/transport_test.h"

namespace tolvex {
namespace {

namespace net = platform::net;

class ConnectTimeOut : public test::TransportTest {
 protected:
  ConnectTimeOut() {
    port_.listen(0);
    for (net::Socket& socket : waiting_) {
      socket = net::createTcp();
      net::setNonBlocking(socket, true);
      net::connectTo(socket, test::kLoopback, port_.number());
    }
  }
  ~ConnectTimeOut() override {
    for (const net::Socket socket : waiting_) net::release(socket);
  }

  const test::Port port_;
  net::Socket waiting_[4];
};

TEST_F(ConnectTimeOut, MakesOpenFailAfterASecond) {
  CTcpClient client("127.0.0.1", port_.number());
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(client.Open());
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1000));
  EXPECT_EQ(logged(), test::Lines());
}

TEST_F(ConnectTimeOut, LeavesTheClientClosed) {
  CTcpClient client("127.0.0.1", port_.number());
  EXPECT_EQ(send(client, "hello"), -1);
  char byte;
  EXPECT_EQ(client.RecvTimeout(&byte, 1, 60000), -1);
  EXPECT_EQ(logged(), (test::Lines{"[W] L:044 M:Socket [CTcpClient::Send] Open conn fail"}));
}

}  // namespace
}  // namespace tolvex
