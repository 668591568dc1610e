// Opening ports.
#include <gtest/gtest.h>

#include <optional>
#include <thread>

#include "devices/devices.h"
#include "exchange/exchanger.h"
#include "exchange/service_answerer.h"
#include "net/server.h"
#include "protocol/service.h"
#include "test_client.h"
#include "wire_samples.h"

namespace tolvex::sim {
namespace {

class ListenTest : public ::testing::Test {
 protected:
  ListenError refusalOf(const std::string& address, std::uint16_t port) {
    Server server(exchanger_, {});
    try {
      server.listen(Half::Printing, address, port);
    } catch (const ListenError& error) {
      return error;
    }
    throw std::logic_error("the port was opened");
  }

  Devices devices_;
  Service service_{devices_};
  ServiceAnswerer answerer_{service_};
  FaultBoard faults_;
  TrafficLog traffic_;
  Exchanger exchanger_{answerer_, faults_, traffic_, devices_.printers.jobs()};
};

TEST_F(ListenTest, APortOfAnotherServerIsRefused) {
  Server first(exchanger_, {});
  const std::uint16_t port = first.listen(Half::Weighing, "127.0.0.1", 0);
  const ListenError error = refusalOf("127.0.0.1", port);
  EXPECT_EQ(error.failure(), ListenFailure::InUse);
  EXPECT_EQ(error.portName(), "printing");
  EXPECT_EQ(error.what(), "cannot listen on 127.0.0.1:" + std::to_string(port) +
                              " (printing): another program has this port");
}

TEST_F(ListenTest, ThePortOfAServerOnAllAddressesIsRefused) {
  Server first(exchanger_, {});
  const std::uint16_t port = first.listen(Half::Weighing, "0.0.0.0", 0);
  EXPECT_NE(refusalOf("127.0.0.1", port).failure(), ListenFailure::NoSuchAddress);
}

TEST_F(ListenTest, TheSamePortOnAnotherAddressIsFree) {
  Server first(exchanger_, {});
  const std::uint16_t port = first.listen(Half::Weighing, "127.0.0.1", 0);
  EXPECT_EQ(first.listen(Half::Printing, "127.0.0.2", port), port);
}

TEST_F(ListenTest, AnAddressOfAnotherMachineIsRefused) {
  // 192.0.2.0/24 is reserved for documentation; no machine has an address of it.
  const ListenError error = refusalOf("192.0.2.1", 0);
  EXPECT_EQ(error.failure(), ListenFailure::NoSuchAddress);
  EXPECT_STREQ(error.what(),
               "cannot listen on 192.0.2.1:0 (printing): this machine has no such address");
}

TEST_F(ListenTest, ATextThatIsNoAddressIsRefused) {
  const ListenError error = refusalOf("localhost", 0);
  EXPECT_EQ(error.failure(), ListenFailure::NoSuchAddress);
  EXPECT_STREQ(error.what(), "cannot listen on localhost:0 (printing): that is no IPv4 address");
}

// The connection of the first server is left behind in the system's wait for late segments.
TEST_F(ListenTest, APortIsFreeAgainRightAfterAServerWithClients) {
  std::optional<Server> server(std::in_place, exchanger_, ServerEvents());
  const std::uint16_t port = server->listen(Half::Weighing, "127.0.0.1", 0);
  std::thread thread([&server] { server->run(); });
  TestClient client(port);
  EXPECT_EQ(client.ask(kCheck), R"({"result":"0"})");
  server->stop();
  thread.join();
  server.reset();
  EXPECT_EQ(client.receiveAll(), "");
  server.emplace(exchanger_, ServerEvents());
  EXPECT_EQ(server->listen(Half::Weighing, "127.0.0.1", port), port);
}

}  // namespace
}  // namespace tolvex::sim
