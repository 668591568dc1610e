// A client for the tests of the server.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tolvex::sim {

/// A blocking TCP client on 127.0.0.1. Whatever takes longer than 30 seconds, and every error,
/// throws std::runtime_error, which fails the test.
class TestClient {
 public:
  /// Has all it needs of the system, but is not connected yet.
  TestClient();
  /// Connects at once.
  explicit TestClient(std::uint16_t port);
  ~TestClient();
  TestClient(TestClient&&) noexcept;

  void connect(std::uint16_t port);

  /// Sends all bytes.
  void send(std::string_view bytes);

  /// Starts sending; receive() carries it on while it waits.
  void sendInBackground(std::string bytes);

  /// What a single receive gives, at most 2048 bytes; empty when the server has closed.
  std::string receive();

  /// Receives until there are `count` bytes, or fewer if the server closes.
  std::string receive(std::size_t count);

  /// Receives until the server closes.
  std::string receiveAll();

  /// Waits for the end of the connection and says whether it is this one. Bytes that come instead
  /// throw.
  enum class End { Closed, Reset };
  bool endsWith(End end);

  /// Whether the system refuses connections to this port.
  static bool isRefused(std::uint16_t port);

  /// send() and then receive().
  std::string ask(std::string_view request);

  /// Tells the server that nothing more will be sent.
  void endSending();

  /// Closes the connection the hard way: the server's next operation on it fails.
  void vanish();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tolvex::sim
