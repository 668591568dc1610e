#include "support/loopback.h"
#include "support/os_support.h"
#include "transport/transport_test.h"

namespace tolvex {
namespace {

constexpr int kExchanges = 1000;

// A till whose service breaks down all day.
class Handles : public test::TransportTest {
 protected:
  Handles() { NLog::GetInstance()->SetModuleLevel("Socket", 0); }

  // How many more handles there are after the exchanges than after a first one.
  template <typename Exchange>
  static long grownBy(Exchange exchange) {
    exchange();
    const std::size_t before = test::handleCount();
    for (int i = 0; i < kExchanges; ++i) exchange();
    return static_cast<long>(test::handleCount()) - static_cast<long>(before);
  }
};

TEST_F(Handles, DoNotGrowWhenTheServiceHangsUp) {
  const test::Listener port;
  CTcpClient client("127.0.0.1", port.number());
  int received = 0;
  const long grown = grownBy([&] {
    client.Open();
    port.accept().reset();
    char byte;
    received += client.RecvTimeout(&byte, 1, 10000);
  });
  EXPECT_EQ(received, -(kExchanges + 1));
  EXPECT_EQ(grown, 0);
}

TEST_F(Handles, DoNotGrowWhenTheServiceDoesNotListen) {
  const test::Port port;
  CTcpClient client("127.0.0.1", port.number());
  int sent = 0;
  const long grown = grownBy([&] { sent += send(client, "hello"); });
  EXPECT_EQ(sent, -(kExchanges + 1));
  EXPECT_EQ(grown, 0);
}

}  // namespace
}  // namespace tolvex
