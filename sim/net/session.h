// One client connection. Includes Asio; for the files of this folder only.
#pragma once

#include <array>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <cstddef>
#include <memory>
#include <string>

#include "net/server.h"

namespace tolvex::sim {

/// Reads requests and writes replies, one at a time. It keeps itself alive through its pending
/// operation and ends when the client does. The service and the events must outlive it.
class Session : public std::enable_shared_from_this<Session> {
 public:
  Session(boost::asio::ip::tcp::socket socket, Service& service, Half half,
          const ServerEvents& events);

  void start();

 private:
  void read();
  void answerNext();
  void write(bool last);
  void finish();
  void drain();

  boost::asio::ip::tcp::socket socket_;
  boost::asio::steady_timer deadline_;
  Conversation conversation_;
  Half half_;
  const ServerEvents& events_;
  std::string client_;
  std::array<char, 4096> received_{};
  std::string reply_;
};

}  // namespace tolvex::sim
