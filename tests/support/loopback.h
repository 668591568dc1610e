// The other end of a connection: plain sockets on 127.0.0.1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tolvex::test {

constexpr std::uint32_t kLoopback = 0x7F000001;  // 127.0.0.1 in host byte order

// One accepted connection. Failures of its own fail the test.
class Peer {
 public:
  explicit Peer(std::uintptr_t socket) : socket_(socket) {}
  Peer(Peer&& other) noexcept;
  Peer& operator=(Peer&&) = delete;
  ~Peer() { close(); }

  void send(const std::string& data) const;
  // The same where the other end may have gone: whether it is still there, as far as known.
  bool trySend(const std::string& data) const;
  // Waits for exactly so many bytes; fewer come back when the connection ends before.
  std::string receive(std::size_t length) const;

  void close();  // in order
  void reset();  // so that the other end sees an error

 private:
  std::uintptr_t socket_;
};

// A port of this machine that belongs to the test.
class Port {
 public:
  // A port that refuses connections until listen() is called.
  Port();
  ~Port();
  Port(const Port&) = delete;
  Port& operator=(const Port&) = delete;

  std::uint16_t number() const { return number_; }
  void listen(int backlog = 16) const;
  // Waits for a connection. One that the client has made is there already.
  Peer accept() const;

 private:
  std::uintptr_t socket_;
  std::uint16_t number_;
};

// A port that listens.
class Listener : public Port {
 public:
  Listener() { listen(); }
};

}  // namespace tolvex::test
