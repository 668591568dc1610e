#include <gtest/gtest.h>

#include <string>

#include "platform/socket.h"
#include "support/loopback.h"

namespace tolvex::platform::net {
namespace {

class SocketError : public testing::Test {
 protected:
  SocketError() {
    startUp();
    socket_ = createTcp();
  }
  ~SocketError() override {
    release(socket_);
    cleanUp();
  }

  Socket socket_;
  char byte_ = 'x';
};

TEST_F(SocketError, IsWouldBlockWhenThereIsNothingToReceive) {
  const test::Listener port;
  ASSERT_EQ(connectTo(socket_, test::kLoopback, port.number()), 0);
  ASSERT_TRUE(setNonBlocking(socket_, true));
  EXPECT_EQ(receive(socket_, &byte_, 1), -1);
  EXPECT_EQ(lastError(), 10035);
}

TEST_F(SocketError, IsNotConnectedWhenReceivingWithoutAConnection) {
  EXPECT_EQ(receive(socket_, &byte_, 1), -1);
  EXPECT_EQ(lastError(), 10057);
}

TEST_F(SocketError, IsRefusedOrUnderWayAfterABlockingConnectToNobody) {
  const test::Port port;
  EXPECT_EQ(connectTo(socket_, test::kLoopback, port.number()), -1);
#ifdef _WIN32
  EXPECT_EQ(lastError(), 10061);
#else
  EXPECT_EQ(lastError(), 10035);  // the wait that follows tells of the refusal
#endif
}

TEST_F(SocketError, OfAHandleThatIsNoSocketFailsEveryCall) {
  EXPECT_EQ(send(kInvalidSocket, &byte_, 1), -1);
  EXPECT_NE(lastError(), 0);
  EXPECT_EQ(receive(kInvalidSocket, &byte_, 1), -1);
  EXPECT_NE(lastError(), 0);
  EXPECT_EQ(connectTo(kInvalidSocket, test::kLoopback, 1), -1);
  EXPECT_NE(lastError(), 0);
  EXPECT_FALSE(setNonBlocking(kInvalidSocket, true));
  EXPECT_NE(lastError(), 0);
  int error = 0;
  EXPECT_FALSE(pendingError(kInvalidSocket, error));
  EXPECT_NE(lastError(), 0);
}

TEST_F(SocketError, OfAShutdownSocketIsTheConnectionsEnd) {
  const test::Listener port;
  ASSERT_EQ(connectTo(socket_, test::kLoopback, port.number()), 0);
  shutDown(socket_);
  EXPECT_EQ(send(socket_, &byte_, 1), -1);
#ifdef _WIN32
  EXPECT_EQ(lastError(), 10058);  // "shut down"; one code of the transport's covers both
#else
  EXPECT_EQ(lastError(), 10054);
#endif
}

TEST(Address, IsReadInHostByteOrder) { EXPECT_EQ(parseAddress("10.1.2.3"), 0x0A010203u); }

TEST(Address, OfAllOnesIsNone) { EXPECT_EQ(parseAddress("255.255.255.255"), kNoAddress); }

TEST(Address, ThatIsANameIsNone) { EXPECT_EQ(parseAddress("localhost"), kNoAddress); }

TEST(Address, OfTheFormsOfTheSystemIsRead) { EXPECT_EQ(parseAddress("127.1"), 0x7F000001u); }

class HostName : public testing::Test {
 protected:
  HostName() { startUp(); }
  ~HostName() override { cleanUp(); }
};

TEST_F(HostName, IsLookedUp) { EXPECT_EQ(lookUpHost("localhost"), test::kLoopback); }

TEST_F(HostName, MayBeAnAddress) { EXPECT_EQ(lookUpHost("127.0.0.2"), 0x7F000002u); }

TEST_F(HostName, ThatCannotExistHasAnError) {
  const std::string longerThanAnyName(300, 'x');
  EXPECT_EQ(lookUpHost(longerThanAnyName.c_str()), kNoAddress);
  EXPECT_EQ(lastError(), 11001);
}

TEST_F(HostName, ThatIsFoundLeavesNoError) {
  const Socket socket = createTcp();
  char byte;
  ASSERT_EQ(receive(socket, &byte, 1), -1);
  ASSERT_NE(lastError(), 0);
  EXPECT_EQ(lookUpHost("255.255.255.255"), kNoAddress);  // found, and still no address
  EXPECT_EQ(lastError(), 0);
  release(socket);
}

}  // namespace
}  // namespace tolvex::platform::net
