// One client connection. Includes Asio; for the files of this folder only.
#pragma once

#include <array>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <cstddef>
#include <memory>

#include "exchange/exchanger.h"
#include "net/served_port.h"
#include "protocol/json_splitter.h"

namespace tolvex::sim {

/// Reads requests and delivers replies, one at a time. It keeps itself alive through its pending
/// operation and ends when the client does, or a fault wants it. The port must outlive it.
class Session : public std::enable_shared_from_this<Session> {
 public:
  Session(boost::asio::ip::tcp::socket socket, ServedPort& port);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  void start();

  /// Resets the connection at once, whatever is under way.
  void drop();
  /// The same, if a reply or a part of it waits for its time.
  void dropIfWaiting();

 private:
  using Step = void (Session::*)();

  void read();
  void answerNext();
  void yield();
  void wait(std::chrono::milliseconds time, Step next);
  void watch();
  void send();
  void pauseBetweenPieces();
  void sendRest();
  void write(std::size_t from, std::size_t to, Step next);
  void conclude();
  void lose();
  void close();
  void finish();
  void drain();
  void reset();

  boost::asio::ip::tcp::socket socket_;
  boost::asio::steady_timer timer_;
  ServedPort& port_;
  Caller caller_;
  bool isCounted_ = false;
  bool isWaiting_ = false;
  bool isWatched_ = false;
  JsonSplitter splitter_;
  std::array<char, 4096> received_{};
  Delivery delivery_;
};

}  // namespace tolvex::sim
