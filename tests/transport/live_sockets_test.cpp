#include <thread>
#include <vector>

#include "transport/fake_network.h"
#include "transport/tcp_socket.h"
#include "transport/transport_test.h"

namespace tolvex {
namespace {

using test::countOf;
using test::Lines;
using test::network;

class SocketLibrary : public test::TransportTest {};

TEST_F(SocketLibrary, IsStartedByTheFirstSocketAndEndedByTheLast) {
  {
    const CTcpSocket first;
    const CTcpSocket second;
    EXPECT_EQ(network.calls, (Lines{"startUp", "create 1", "create 2"}));
    network.calls.clear();
  }
  EXPECT_EQ(network.calls,
            (Lines{"shutDown 2", "release 2", "shutDown 1", "release 1", "cleanUp"}));
}

TEST_F(SocketLibrary, IsStartedAgainByALaterSocket) {
  { const CTcpSocket first; }
  { const CTcpSocket second; }
  EXPECT_EQ(countOf("startUp"), 2);
  EXPECT_EQ(countOf("cleanUp"), 2);
}

TEST_F(SocketLibrary, IsUsedTwiceByTwoConnectionsThatAreMadeTwice) {
  CTcpClient weighing("127.0.0.1", 9000);
  CTcpClient printing("127.0.0.1", 9001);
  for (int round = 0; round < 2; ++round) {
    EXPECT_TRUE(weighing.Open());
    EXPECT_TRUE(printing.Open());
    weighing.Close();
    printing.Close();
  }
  EXPECT_EQ(countOf("startUp"), 2);
  EXPECT_EQ(countOf("cleanUp"), 2);
}

TEST_F(SocketLibrary, IsNotEndedWhileAnotherConnectionReopens) {
  CTcpClient weighing("127.0.0.1", 9000);
  CTcpClient printing("127.0.0.1", 9001);
  weighing.Open();
  printing.Open();
  printing.Open();
  EXPECT_EQ(countOf("startUp"), 1);
  EXPECT_EQ(countOf("cleanUp"), 0);
}

TEST_F(SocketLibrary, CountsASocketThatCouldNotBeMade) {
  network.creates = {{-1, 10024}};
  { const CTcpSocket socket; }
  EXPECT_EQ(network.calls, (Lines{"startUp", "create fails", "shutDown invalid", "cleanUp"}));
}

TEST_F(SocketLibrary, IsNotUsedByAClientWithoutAConnection) {
  { CTcpClient client("127.0.0.1", 9000); }
  EXPECT_EQ(network.calls, Lines());
}

// Every socket is made and ended between a start and the end that belongs to it.
TEST_F(SocketLibrary, IsInUseWheneverASocketIsWhateverTheThreadsDo) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 500;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([] {
      for (int round = 0; round < kRounds; ++round) const CTcpSocket socket;
    });
  }
  for (std::thread& thread : threads) thread.join();
  bool started = false;
  int outOfUse = 0;
  int created = 0;
  for (const std::string& call : network.calls) {
    if (call == "startUp" || call == "cleanUp") {
      if (started == (call == "startUp")) ++outOfUse;
      started = call == "startUp";
    } else {
      if (!started) ++outOfUse;
      if (call.compare(0, 6, "create") == 0) ++created;
    }
  }
  EXPECT_EQ(outOfUse, 0);
  EXPECT_FALSE(started);
  EXPECT_EQ(created, kThreads * kRounds);
}

}  // namespace
}  // namespace tolvex
