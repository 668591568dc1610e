// One listening port. Includes Asio; for the files of this folder only.
#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <cstdint>
#include <string>

#include "net/server.h"

namespace tolvex::sim {

/// Accepts clients and starts a session for each. When the system can not give it one more
/// connection (too many open files, say) it says so once, and tries again after a pause for as
/// long as it takes.
class Listener {
 public:
  /// Opens the port; throws ListenError. The references must outlive the listener.
  Listener(boost::asio::io_context& context, Service& service, Half half,
           const ServerEvents& events, const std::string& address, std::uint16_t port);

  std::uint16_t port() const { return port_; }

  /// Starts accepting. The listener must stay where it is until the context has stopped.
  void accept();

 private:
  void recover(const std::string& cause);

  boost::asio::ip::tcp::acceptor acceptor_;
  boost::asio::steady_timer pause_;
  Service& service_;
  Half half_;
  const ServerEvents& events_;
  std::uint16_t port_ = 0;
  bool inTrouble_ = false;
};

}  // namespace tolvex::sim
