#include "net/session.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/write.hpp>
#include <chrono>
#include <string_view>
#include <utility>

namespace tolvex::sim {

namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;

// How long a connection that is being closed waits for its client to stop sending.
constexpr std::chrono::seconds kFarewell{2};

// What the system keeps of replies that a client does not read; it would grow to megabytes by
// itself. Room for a hundred replies and more.
constexpr int kSendBufferBytes = 64 * 1024;

std::string describe(const tcp::endpoint& endpoint) {
  return endpoint.address().to_string() + ":" + std::to_string(endpoint.port());
}

}  // namespace

Session::Session(tcp::socket socket, Service& service, Half half, const ServerEvents& events)
    : socket_(std::move(socket)),
      deadline_(socket_.get_executor()),
      conversation_(service, half),
      half_(half),
      events_(events) {}

void Session::start() {
  error_code error;
  const tcp::endpoint remote = socket_.remote_endpoint(error);
  if (error) return;
  client_ = describe(remote);
  // Replies go out at once, each as a segment of its own: a client reads its reply with a single
  // receive. Keep-alive finds the clients that vanished without a word. All of this is mere advice
  // to the system, so errors do not matter.
  socket_.set_option(tcp::no_delay(true), error);
  socket_.set_option(asio::socket_base::keep_alive(true), error);
  socket_.set_option(asio::socket_base::send_buffer_size(kSendBufferBytes), error);
  read();
}

void Session::read() {
  socket_.async_read_some(asio::buffer(received_),
                          [self = shared_from_this()](error_code error, std::size_t count) {
                            if (error) return;  // the client left, in one way or another
                            self->conversation_.receive({self->received_.data(), count});
                            self->answerNext();
                          });
}

void Session::answerNext() {
  auto exchange = conversation_.next(Clock::now());
  if (!exchange) return read();
  if (events_.exchanged) events_.exchanged(half_, client_, *exchange);
  reply_ = std::move(exchange->reply);
  write(exchange->last);
}

void Session::write(bool last) {
  asio::async_write(socket_, asio::buffer(reply_),
                    [self = shared_from_this(), last](error_code error, std::size_t) {
                      if (error) return;
                      if (last) return self->finish();
                      self->answerNext();
                    });
}

// Closing a socket with unread bytes resets the connection, and the reset may overtake the last
// reply. So the rest of what the client sends is read away first, for a limited time.
void Session::finish() {
  error_code error;
  socket_.shutdown(tcp::socket::shutdown_send, error);
  deadline_.expires_after(kFarewell);
  deadline_.async_wait([self = shared_from_this()](error_code timerError) {
    error_code ignored;
    if (!timerError) self->socket_.close(ignored);
  });
  drain();
}

void Session::drain() {
  socket_.async_read_some(asio::buffer(received_),
                          [self = shared_from_this()](error_code error, std::size_t) {
                            if (!error) return self->drain();
                            self->deadline_.cancel();
                          });
}

}  // namespace tolvex::sim
