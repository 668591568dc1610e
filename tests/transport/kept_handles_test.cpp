#include "transport/fake_network.h"
#include "transport/transport_test.h"

namespace tolvex {
namespace {

using test::Lines;
using test::network;

class KeptHandles : public test::TransportTest {};

TEST_F(KeptHandles, AreShutDownAndNotReleased) {
  CTcpClient client("127.0.0.1", 9000);
  client.Open();
  network.calls.clear();
  client.Close();
  EXPECT_EQ(network.calls, (Lines{"shutDown 1", "shutDown 1", "cleanUp"}));
}

TEST_F(KeptHandles, AreNotReleasedByAReconnect) {
  CTcpClient client("127.0.0.1", 9000);
  network.sends = {{-1, 10054}};
  EXPECT_EQ(send(client, "hello"), 5);
  EXPECT_EQ(test::countOf("release 1"), 0);
}

}  // namespace
}  // namespace tolvex
