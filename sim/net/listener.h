// One listening port. Includes Asio; for the files of this folder only.
#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <cstdint>
#include <functional>
#include <string>

#include "net/listen_error.h"

namespace tolvex::sim {

/// Accepts clients and hands each over. When the system can not give it one more connection (too
/// many open files, say) it says so once, and tries again after a pause for as long as it takes.
class Listener {
 public:
  /// Takes over a client's connection and starts to serve it.
  using Begin = std::function<void(boost::asio::ip::tcp::socket)>;
  /// Told what went wrong, one line of text; may be empty.
  using Troubled = std::function<void(const std::string&)>;

  /// Opens the port; throws ListenError. `name` says what the port serves, as ListenError does. The
  /// context must outlive the listener.
  Listener(boost::asio::io_context& context, std::string name, const std::string& address,
           std::uint16_t port, Begin begin, Troubled troubled);

  std::uint16_t port() const { return endpoint_.port(); }

  /// Starts accepting. The listener must stay where it is until the context has stopped.
  void accept();

  /// Closes the port: the system refuses clients from now on. Those who are there are not touched.
  void close();
  /// Opens it again and goes on accepting; while something is in the way, tries again and again.
  void reopen();

 private:
  boost::system::error_code open();
  void openAgain();
  void recover(const std::string& trouble, void (Listener::*retry)());

  boost::asio::ip::tcp::acceptor acceptor_;
  boost::asio::steady_timer pause_;
  std::string name_;
  Begin begin_;
  Troubled troubled_;
  boost::asio::ip::tcp::endpoint endpoint_;
  // How often the port was closed: what was waiting before that has nothing to say any more.
  int closings_ = 0;
  bool isClosed_ = false;
  bool inTrouble_ = false;
};

}  // namespace tolvex::sim
