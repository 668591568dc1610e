#include "support/loopback.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <winsock2.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace tolvex::test {
namespace {

#ifdef _WIN32

using Native = SOCKET;
using Length = int;

constexpr int kWithoutSignal = 0;

// Winsock is in use from the first socket of a test to the end of the process.
Native createSocket() {
  static const int started = [] {
    WSADATA details;
    return WSAStartup(MAKEWORD(2, 2), &details);
  }();
  EXPECT_EQ(started, 0);
  return ::socket(AF_INET, SOCK_STREAM, 0);
}

void closeSocket(Native socket) { ::closesocket(socket); }

int asLength(std::size_t length) { return static_cast<int>(length); }

bool wasInterrupted() { return false; }

void acknowledge(Native) {}

#else

using Native = int;
using Length = socklen_t;

constexpr int kWithoutSignal = MSG_NOSIGNAL;

Native createSocket() { return ::socket(AF_INET, SOCK_STREAM, 0); }

void closeSocket(Native socket) { ::close(socket); }

std::size_t asLength(std::size_t length) { return length; }

bool wasInterrupted() { return errno == EINTR; }

// What was received, at once: a system that waits for an answer to send it with keeps a client that
// asks again without one waiting for 40 ms.
void acknowledge(Native socket) {
#ifdef TCP_QUICKACK
  const int on = 1;
  ::setsockopt(socket, IPPROTO_TCP, TCP_QUICKACK, &on, sizeof(on));
#else
  static_cast<void>(socket);
#endif
}

#endif

constexpr std::uintptr_t kNone = ~static_cast<std::uintptr_t>(0);

Native native(std::uintptr_t socket) { return static_cast<Native>(socket); }

}  // namespace

Peer::Peer(Peer&& other) noexcept : socket_(other.socket_) { other.socket_ = kNone; }

void Peer::send(const std::string& data) const {
  EXPECT_EQ(
      static_cast<std::size_t>(::send(native(socket_), data.data(), asLength(data.size()), 0)),
      data.size());
}

bool Peer::trySend(const std::string& data) const {
  return ::send(native(socket_), data.data(), asLength(data.size()), kWithoutSignal) > 0;
}

std::string Peer::receive(std::size_t length) const {
  std::string data;
  char block[4096];
  while (data.size() < length) {
    const std::size_t wanted = std::min(sizeof(block), length - data.size());
    const auto count = ::recv(native(socket_), block, asLength(wanted), 0);
    if (count < 0 && wasInterrupted()) continue;
    if (count <= 0) break;
    data.append(block, static_cast<std::size_t>(count));
  }
  acknowledge(native(socket_));
  return data;
}

void Peer::close() {
  if (socket_ != kNone) closeSocket(native(socket_));
  socket_ = kNone;
}

void Peer::reset() {
  const linger atOnce = {1, 0};
  EXPECT_EQ(::setsockopt(native(socket_), SOL_SOCKET, SO_LINGER,
                         reinterpret_cast<const char*>(&atOnce), sizeof(atOnce)),
            0);
  close();
}

Port::Port() : socket_(static_cast<std::uintptr_t>(createSocket())), number_(0) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(kLoopback);
  Length length = sizeof(address);
  EXPECT_EQ(::bind(native(socket_), reinterpret_cast<const sockaddr*>(&address), length), 0);
  EXPECT_EQ(::getsockname(native(socket_), reinterpret_cast<sockaddr*>(&address), &length), 0);
  number_ = ntohs(address.sin_port);
}

Port::~Port() { closeSocket(native(socket_)); }

void Port::listen(int backlog) const { EXPECT_EQ(::listen(native(socket_), backlog), 0); }

Peer Port::accept() const {
  Native socket = ::accept(native(socket_), nullptr, nullptr);
  while (static_cast<std::uintptr_t>(socket) == kNone && wasInterrupted()) {
    socket = ::accept(native(socket_), nullptr, nullptr);
  }
  EXPECT_NE(static_cast<std::uintptr_t>(socket), kNone);
  return Peer(static_cast<std::uintptr_t>(socket));
}

}  // namespace tolvex::test
