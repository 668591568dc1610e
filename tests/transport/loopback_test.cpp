#include "support/loopback.h"

#include <set>

#include "support/os_support.h"
#include "transport/transport_test.h"

namespace tolvex {
namespace {

using test::Lines;

class Loopback : public test::TransportTest {
 protected:
  static CTcpClient clientOf(const test::Port& port) { return {"127.0.0.1", port.number()}; }
  std::string received(CTcpClient& client, unsigned most = 100) {
    std::string data(most, '#');
    const int count = client.RecvTimeout(data.data(), most, 10000);
    return count > 0 ? data.substr(0, static_cast<std::size_t>(count)) : std::to_string(count);
  }
  static std::string sendFailed() {
    return "[W] L:052 M:Socket [CTcpClient::Send] Send fail, ret:-1";
  }
};

TEST_F(Loopback, CarriesARequestAndItsReply) {
  const test::Listener port;
  CTcpClient client = clientOf(port);
  EXPECT_EQ(send(client, "{\"cmd\":\"getweight\"}"), 19);
  const test::Peer peer = port.accept();
  EXPECT_EQ(peer.receive(19), "{\"cmd\":\"getweight\"}");
  peer.send("{\"result\":\"0\"}");
  EXPECT_EQ(received(client), "{\"result\":\"0\"}");
  EXPECT_EQ(logged(), Lines());
}

TEST_F(Loopback, BringsWhatIsThereInPiecesOfTheBuffer) {
  const test::Listener port;
  CTcpClient client = clientOf(port);
  ASSERT_TRUE(client.Open());
  port.accept().send("abcdef");
  EXPECT_EQ(received(client, 4), "abcd");
  EXPECT_EQ(received(client, 4), "ef");
}

TEST_F(Loopback, BringsEveryByteValue) {
  const test::Listener port;
  CTcpClient client = clientOf(port);
  ASSERT_TRUE(client.Open());
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  port.accept().send(bytes);
  EXPECT_EQ(received(client, 1000), bytes);
}

TEST_F(Loopback, FindsAHostByItsName) {
  const test::Listener port;
  CTcpClient client("localhost", port.number());
  EXPECT_TRUE(client.Open());
}

TEST_F(Loopback, ServerThatDoesNotListenFailsTheSendAfterOneReconnect) {
  const test::Port port;
  CTcpClient client = clientOf(port);
  EXPECT_TRUE(client.Open());
  EXPECT_EQ(logged(), Lines());
  EXPECT_EQ(send(client, "hello"), -1);
  EXPECT_EQ(logged(), (Lines{error(10054), sendFailed(), error(10054)}));
}

TEST_F(Loopback, ServerThatListensAgainGetsTheSecondAttempt) {
  const test::Port port;
  CTcpClient client = clientOf(port);
  EXPECT_TRUE(client.Open());
  port.listen();
  EXPECT_EQ(send(client, "hello"), 5);
  EXPECT_EQ(port.accept().receive(5), "hello");
  EXPECT_EQ(logged(), (Lines{error(10054), sendFailed()}));
}

TEST_F(Loopback, OrderlyEndIsMinusOneFromRecvTimeout) {
  const test::Listener port;
  CTcpClient client = clientOf(port);
  ASSERT_TRUE(client.Open());
  port.accept().close();
  EXPECT_EQ(received(client), "-1");
  EXPECT_EQ(logged(), Lines());
}

TEST_F(Loopback, OrderlyEndIsZeroFromRecv) {
  const test::Listener port;
  CTcpClient client = clientOf(port);
  ASSERT_TRUE(client.Open());
  port.accept().close();
  char byte;
  EXPECT_EQ(client.Recv(&byte, 1), 0);
  EXPECT_EQ(logged(), Lines());
}

TEST_F(Loopback, DataBeforeAnOrderlyEndStillArrives) {
  const test::Listener port;
  CTcpClient client = clientOf(port);
  ASSERT_TRUE(client.Open());
  {
    const test::Peer peer = port.accept();
    peer.send("bye");
  }
  EXPECT_EQ(received(client), "bye");
  EXPECT_EQ(received(client), "-1");
}

TEST_F(Loopback, ResetIsMinusOneFromRecvTimeout) {
  const test::Listener port;
  CTcpClient client = clientOf(port);
  ASSERT_TRUE(client.Open());
  port.accept().reset();
  EXPECT_EQ(received(client), "-1");
}

TEST_F(Loopback, SilenceIsZeroFromRecvTimeout) {
  const test::Listener port;
  CTcpClient client = clientOf(port);
  ASSERT_TRUE(client.Open());
  char byte;
  EXPECT_EQ(client.RecvTimeout(&byte, 1, 50), 0);
  EXPECT_EQ(client.RecvTimeout(&byte, 1, 0), 0);
  EXPECT_EQ(logged(), Lines());
}

TEST_F(Loopback, DataIsReceivedWithoutAnyWait) {
  const test::Listener port;
  CTcpClient client = clientOf(port);
  ASSERT_TRUE(client.Open());
  const test::Peer peer = port.accept();
  peer.send("x");
  char byte = '#';
  EXPECT_EQ(client.RecvTimeout(&byte, 1, 10000), 1);
  peer.send("y");
  EXPECT_EQ(client.Recv(&byte, 1), 1);
  EXPECT_EQ(byte, 'y');
}

TEST_F(Loopback, AddressOfAllOnesIsInvalidWhateverHappenedBefore) {
  const test::Port port;
  CTcpClient refused = clientOf(port);
  send(refused, "hello");  // leaves errors behind
  const std::size_t before = logged().size();
  CTcpClient client("255.255.255.255", 9000);
  EXPECT_FALSE(client.Open());
  Lines lines = logged();
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(before));
  EXPECT_EQ(lines, (Lines{"[W] L:138 M:Socket [Connect] Invalid IP:255.255.255.255"}));
}

TEST_F(Loopback, NameThatCannotExistIsInvalid) {
  const std::string name(300, 'x');
  CTcpClient client(name.c_str(), 9000);
  EXPECT_FALSE(client.Open());
  const Lines lines = logged();
  ASSERT_EQ(lines.size(), 2u);
  // Which of the look-up errors it is depends on the resolver.
  const std::set<std::string> possible = {error(11001), error(11002), error(11003), error(11004)};
  EXPECT_EQ(possible.count(lines[0]), 1u) << lines[0];
  EXPECT_EQ(lines[1], "[W] L:138 M:Socket [Connect] Invalid IP:" + name);
}

}  // namespace
}  // namespace tolvex
