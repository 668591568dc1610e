// A viewer for the tests.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tolvex::sim {

/// A blocking WebSocket client on 127.0.0.1. Whatever takes longer than 30 seconds throws
/// std::runtime_error, which fails the test.
class LiveClient {
 public:
  /// Opens the channel; throws with the server's answer, "403 Forbidden: BODY", when it refuses.
  explicit LiveClient(std::uint16_t port, const std::string& target = "/api/live",
                      const std::string& origin = "");
  ~LiveClient();
  LiveClient(LiveClient&&) noexcept;

  /// The next message; after the channel's end "closed CODE", or "cut" when it ended without a word.
  std::string receive();
  void send(const std::string& message);
  /// Closes in order, and waits until the server has done so, too.
  void close();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tolvex::sim
