#include "transport/fake_network.h"
#include "transport/transport_test.h"

namespace tolvex {
namespace {

using test::Lines;
using test::network;

class Open : public test::TransportTest {
 protected:
  CTcpClient client_{"127.0.0.1", 9000};
};

TEST_F(Open, IsNotDoneByTheConstructor) { EXPECT_EQ(network.calls, Lines()); }

TEST_F(Open, ConnectsWithinASecondAndBlocksAgain) {
  EXPECT_TRUE(client_.Open());
  EXPECT_EQ(network.calls,
            (Lines{"startUp", "create 1", "nonBlocking 1 on", "connect 1 127.0.0.1:9000",
                   "wait 1 1000 write", "nonBlocking 1 off"}));
  EXPECT_EQ(logged(), Lines());
}

TEST_F(Open, UsesTheLow16BitsOfThePort) {
  CTcpClient client("10.1.2.3", 0xABCD0000u + 9001);
  EXPECT_TRUE(client.Open());
  EXPECT_EQ(test::countOf("connect 1 10.1.2.3:9001"), 1);
}

TEST_F(Open, CopiesTheHost) {
  char host[] = "10.1.2.3";
  CTcpClient client(host, 9000);
  host[0] = '9';
  client.Open();
  EXPECT_EQ(test::countOf("connect 1 10.1.2.3:9000"), 1);
}

TEST_F(Open, ClosesTheConnectionThatExists) {
  client_.Open();
  network.calls.clear();
  EXPECT_TRUE(client_.Open());
  EXPECT_EQ(network.calls, (Lines{"shutDown 1", "shutDown 1", "release 1", "cleanUp", "startUp",
                                  "create 2", "nonBlocking 2 on", "connect 2 127.0.0.1:9000",
                                  "wait 2 1000 write", "nonBlocking 2 off"}));
}

TEST_F(Open, FailsWithoutASocket) {
  network.creates = {{-1, 10024}};
  EXPECT_FALSE(client_.Open());
  EXPECT_EQ(network.calls,
            (Lines{"startUp", "create fails", "shutDown invalid", "shutDown invalid", "cleanUp"}));
  EXPECT_EQ(logged(), (Lines{"[W] L:021 M:Socket [CTcpSocket] Create Socket Fail!",
                             "[W] L:128 M:Socket [Connect] Socket is Invalid!"}));
}

TEST_F(Open, FailsWhenTheConnectFailsAtOnce) {
  network.connects = {{-1, 10061}};
  EXPECT_FALSE(client_.Open());
  EXPECT_EQ(network.calls,
            (Lines{"startUp", "create 1", "nonBlocking 1 on", "connect 1 127.0.0.1:9000",
                   "shutDown 1", "shutDown 1", "release 1", "cleanUp"}));
  EXPECT_EQ(logged(), (Lines{error(10061)}));
}

TEST_F(Open, FailsWhenAConnectIsUnderWayAlready) {
  network.connects = {{-1, 10036}};
  EXPECT_FALSE(client_.Open());
  EXPECT_EQ(logged(), (Lines{error(10036)}));
}

TEST_F(Open, WaitsForAConnectThatIsUnderWay) {
  network.connects = {{-1, 10035}};
  EXPECT_TRUE(client_.Open());
  EXPECT_EQ(test::countOf("wait 1 1000 write"), 1);
  EXPECT_EQ(logged(), Lines());
}

TEST_F(Open, FailsAfterATimeOut) {
  network.connects = {{-1, 10035}};
  network.waits = {{test::kTimeOut}};
  EXPECT_FALSE(client_.Open());
  EXPECT_EQ(network.calls,
            (Lines{"startUp", "create 1", "nonBlocking 1 on", "connect 1 127.0.0.1:9000",
                   "wait 1 1000 write", "shutDown 1", "shutDown 1", "release 1", "cleanUp"}));
  EXPECT_EQ(logged(), Lines());
}

TEST_F(Open, LeavesTheClientClosedWhenItFails) {
  network.waits = {{test::kTimeOut}};
  client_.Open();
  char byte;
  EXPECT_EQ(client_.RecvTimeout(&byte, 1, 10), -1);
  EXPECT_EQ(test::countOf("receive 1 1"), 0);
}

TEST_F(Open, GoesOnWhenTheSocketStaysBlocking) {
  network.nonBlocking = {{-1, 10022}};
  EXPECT_TRUE(client_.Open());
  EXPECT_EQ(network.calls,
            (Lines{"startUp", "create 1", "nonBlocking 1 on", "connect 1 127.0.0.1:9000",
                   "wait 1 1000 write", "nonBlocking 1 off"}));
  EXPECT_EQ(logged(), (Lines{error(10022)}));
}

TEST_F(Open, SucceedsWhenTheSocketStaysNonBlocking) {
  network.nonBlocking = {{0}, {-1, 10022}};
  EXPECT_TRUE(client_.Open());
  EXPECT_EQ(logged(), (Lines{error(10022)}));
}

TEST_F(Open, ResolvesADottedAddressWithoutALookUp) {
  client_.Open();
  EXPECT_EQ(test::countOf("lookUp 127.0.0.1"), 0);
}

TEST_F(Open, LooksANameUp) {
  CTcpClient client("scale", 9000);
  EXPECT_TRUE(client.Open());
  EXPECT_EQ(network.calls,
            (Lines{"startUp", "create 1", "lookUp scale", "nonBlocking 1 on",
                   "connect 1 10.0.0.1:9000", "wait 1 1000 write", "nonBlocking 1 off"}));
}

TEST_F(Open, FailsForANameThatIsNotFound) {
  network.lookedUp = platform::net::kNoAddress;
  network.lookUpError = 11001;
  CTcpClient client("scale", 9000);
  EXPECT_FALSE(client.Open());
  EXPECT_EQ(network.calls, (Lines{"startUp", "create 1", "lookUp scale", "shutDown 1", "shutDown 1",
                                  "release 1", "cleanUp"}));
  EXPECT_EQ(logged(), (Lines{error(11001), "[W] L:138 M:Socket [Connect] Invalid IP:scale"}));
}

TEST_F(Open, LogsNoErrorForALookUpThatLeftNone) {
  network.lookedUp = platform::net::kNoAddress;
  CTcpClient client("scale", 9000);
  EXPECT_FALSE(client.Open());
  EXPECT_EQ(logged(), (Lines{"[W] L:138 M:Socket [Connect] Invalid IP:scale"}));
}

TEST_F(Open, FailsForTheAddressOfAllOnes) {
  network.lookedUp = platform::net::kNoAddress;  // what a look-up of it finds
  CTcpClient client("255.255.255.255", 9000);
  EXPECT_FALSE(client.Open());
  EXPECT_EQ(logged(), (Lines{"[W] L:138 M:Socket [Connect] Invalid IP:255.255.255.255"}));
}

TEST_F(Open, FailsForAnEmptyHost) {
  network.lookedUp = platform::net::kNoAddress;
  network.lookUpError = 11004;
  CTcpClient client("", 9000);
  EXPECT_FALSE(client.Open());
  EXPECT_EQ(logged(), (Lines{error(11004), "[W] L:138 M:Socket [Connect] Invalid IP:"}));
}

TEST_F(Open, CanBeTriedAgain) {
  network.connects = {{-1, 10061}};
  EXPECT_FALSE(client_.Open());
  EXPECT_TRUE(client_.Open());
}

class Close : public Open {};

TEST_F(Close, ShutsDownTwiceAndReleases) {
  client_.Open();
  network.calls.clear();
  client_.Close();
  EXPECT_EQ(network.calls, (Lines{"shutDown 1", "shutDown 1", "release 1", "cleanUp"}));
}

TEST_F(Close, DoesNothingWithoutAConnection) {
  client_.Close();
  EXPECT_EQ(network.calls, Lines());
}

TEST_F(Close, DoesNothingTheSecondTime) {
  client_.Open();
  client_.Close();
  network.calls.clear();
  client_.Close();
  EXPECT_EQ(network.calls, Lines());
}

}  // namespace
}  // namespace tolvex
