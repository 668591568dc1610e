// errno and signals, and what the system's own tables say of a socket.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "platform/socket.h"
#include "support/loopback.h"

namespace tolvex::platform::net {
namespace {

class PosixSocket : public testing::Test {
 protected:
  PosixSocket() : socket_(createTcp()) {}
  ~PosixSocket() override { release(socket_); }
  void connect() const { ASSERT_EQ(connectTo(socket_, test::kLoopback, port_.number()), 0); }

  const test::Listener port_;
  const Socket socket_;
  char byte_ = 'x';
};

TEST_F(PosixSocket, IsClosedInChildPrograms) {
  EXPECT_NE(fcntl(static_cast<int>(socket_), F_GETFD) & FD_CLOEXEC, 0);
}

TEST_F(PosixSocket, RaisesNoSignalWhenTheConnectionIsGone) {
  signal(SIGPIPE, SIG_DFL);  // would end the process
  connect();
  shutDown(socket_);
  EXPECT_EQ(send(socket_, &byte_, 1), -1);
  EXPECT_EQ(lastError(), 10054);
}

TEST_F(PosixSocket, SignalsDoNotLengthenASendThatWaits) {
  const Socket other = createTcp(300);
  ASSERT_EQ(connectTo(other, test::kLoopback, port_.number()), 0);
  struct sigaction action = {};
  action.sa_handler = [](int) {};
  sigaction(SIGALRM, &action, nullptr);
  itimerval often = {};
  often.it_interval.tv_usec = often.it_value.tv_usec = 10000;
  setitimer(ITIMER_REAL, &often, nullptr);
  const std::string block(1 << 20, 'x');
  const auto start = std::chrono::steady_clock::now();
  int sent = 0;
  while (sent >= 0) sent = send(other, block.data(), static_cast<unsigned>(block.size()));
  EXPECT_EQ(lastError(), 10060);
  setitimer(ITIMER_REAL, nullptr, nullptr);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  release(other);
}

// Neither are they its end, nor do they begin it anew.
TEST_F(PosixSocket, SignalsLeaveAWaitItsTime) {
  connect();
  struct sigaction action = {};
  action.sa_handler = [](int) {};
  sigaction(SIGALRM, &action, nullptr);
  itimerval often = {};
  often.it_interval.tv_usec = often.it_value.tv_usec = 3000;
  setitimer(ITIMER_REAL, &often, nullptr);
  constexpr std::chrono::milliseconds kWait(300);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(wait(socket_, static_cast<std::uint32_t>(kWait.count()), false).count, 0);
  const auto took = std::chrono::steady_clock::now() - start;
  setitimer(ITIMER_REAL, nullptr, nullptr);
  EXPECT_GE(took, kWait);
  EXPECT_LT(took, std::chrono::seconds(20));
}

TEST_F(PosixSocket, TranslatesABadDescriptor) {
  EXPECT_EQ(send(kInvalidSocket, &byte_, 1), -1);
  EXPECT_EQ(lastError(), 10009);
}

TEST_F(PosixSocket, TranslatesADescriptorOfSomethingElse) {
  const int file = open("/dev/null", O_RDWR);
  EXPECT_EQ(receive(static_cast<Socket>(file), &byte_, 1), -1);
  EXPECT_EQ(lastError(), 10038);
  close(file);
}

TEST_F(PosixSocket, TranslatesABadAddress) {
  connect();
  EXPECT_EQ(send(socket_, nullptr, 1), -1);
  EXPECT_EQ(lastError(), 10014);
}

TEST_F(PosixSocket, TranslatesAnErrorThatHasNoNumber) {
  connect();
  EXPECT_EQ(connectTo(socket_, test::kLoopback, port_.number()), -1);  // connected already
  EXPECT_EQ(lastError(), 10045);
}

TEST_F(PosixSocket, TranslatesAnUnreachableNetwork) {
  EXPECT_EQ(connectTo(socket_, 0x7FFFFFFF, 9), -1);  // the broadcast address of the loopback net
  EXPECT_EQ(lastError(), 10051);
}

TEST_F(PosixSocket, TranslatesTooManyOpenFiles) {
  rlimit limit = {};
  getrlimit(RLIMIT_NOFILE, &limit);
  const rlimit none = {0, limit.rlim_max};
  setrlimit(RLIMIT_NOFILE, &none);
  EXPECT_EQ(createTcp(), kInvalidSocket);
  EXPECT_EQ(lastError(), 10024);
  setrlimit(RLIMIT_NOFILE, &limit);
}

TEST_F(PosixSocket, WaitsOnADescriptorBeyond1024) {
  rlimit limit = {};
  getrlimit(RLIMIT_NOFILE, &limit);
  ASSERT_GT(limit.rlim_max, 1100u);
  limit.rlim_cur = limit.rlim_max;
  setrlimit(RLIMIT_NOFILE, &limit);
  connect();
  const int high = fcntl(static_cast<int>(socket_), F_DUPFD, 1050);
  ASSERT_GE(high, 1050);
  EXPECT_EQ(wait(static_cast<Socket>(high), 10000, true).count, 1);
  EXPECT_EQ(wait(static_cast<Socket>(high), 10, false).count, 0);
  close(high);
}

TEST_F(PosixSocket, ClearsTheErrorWithTheNextCallThatSucceeds) {
  EXPECT_EQ(receive(socket_, &byte_, 1), -1);
  EXPECT_NE(lastError(), 0);
  ASSERT_TRUE(setNonBlocking(socket_, true));
  EXPECT_EQ(lastError(), 0);
}

TEST_F(PosixSocket, KeepsTheErrorOfEachThread) {
  EXPECT_EQ(receive(socket_, &byte_, 1), -1);
  int otherThreads = -1;
  std::thread([&] { otherThreads = lastError(); }).join();
  EXPECT_EQ(otherThreads, 0);
  EXPECT_EQ(lastError(), 10057);
}

std::atomic<int> alarms{0};

// A timer interrupts whatever call this thread is in, every few milliseconds.
class InterruptedSocket : public PosixSocket {
 protected:
  InterruptedSocket() {
    struct sigaction action = {};
    action.sa_handler = [](int) { ++alarms; };
    sigaction(SIGALRM, &action, nullptr);  // without SA_RESTART
  }
  ~InterruptedSocket() override { every(0); }

  static void every(int milliseconds) {
    const itimerval timer = {{0, milliseconds * 1000}, {0, milliseconds * 1000}};
    setitimer(ITIMER_REAL, &timer, nullptr);
  }
  // For threads that are not to be interrupted themselves.
  static void refuseAlarms() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGALRM);
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
  }
};

TEST_F(InterruptedSocket, WaitsItsWholeTime) {
  connect();
  every(20);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(wait(socket_, 300, false).count, 0);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(300));
  EXPECT_GE(alarms, 2);
}

TEST_F(InterruptedSocket, StillSeesWhatItWaitsFor) {
  connect();
  const test::Peer peer = port_.accept();
  std::thread sender([&] {
    refuseAlarms();
    while (alarms < 3) std::this_thread::yield();
    peer.send("x");
  });
  every(10);
  const Readiness readiness = wait(socket_, 60000, false);
  sender.join();
  EXPECT_EQ(readiness.count, 1);
  EXPECT_TRUE(readiness.ready);
}

TEST_F(InterruptedSocket, GoesOnReceiving) {
  connect();
  const test::Peer peer = port_.accept();
  std::thread sender([&] {
    refuseAlarms();
    while (alarms < 3) std::this_thread::yield();
    peer.send("x");
  });
  every(10);
  char byte = '#';
  const int count = receive(socket_, &byte, 1);
  sender.join();
  EXPECT_EQ(count, 1);
  EXPECT_EQ(byte, 'x');
}

}  // namespace
}  // namespace tolvex::platform::net
