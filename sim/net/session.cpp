#include "net/session.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>
#include <string>
#include <utility>

#include "platform/platform.h"

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

bool isNothing(const Delivery& delivery) {
  return delivery.delay.count() == 0 && delivery.reply.empty() && delivery.after == After::Keep;
}

}  // namespace

Session::Session(tcp::socket socket, ServedPort& port)
    : socket_(std::move(socket)), timer_(socket_.get_executor()), port_(port) {
  port_.sessions.insert(this);
}

Session::~Session() {
  port_.sessions.erase(this);
  if (isCounted_) port_.exchanger.traffic().disconnected(port_.half);
}

void Session::start() {
  error_code error;
  const tcp::endpoint remote = socket_.remote_endpoint(error);
  if (error) return;
  caller_ = {port_.half, 0, describe(remote)};
  caller_.connection = port_.exchanger.traffic().connected(port_.half, caller_.client);
  isCounted_ = true;
  // Replies go out at once, each as a segment of its own: a client reads its reply with a single
  // receive. Keep-alive finds the clients that vanished without a word. All of this is mere advice
  // to the system, so errors do not matter.
  socket_.set_option(tcp::no_delay(true), error);
  socket_.set_option(asio::socket_base::keep_alive(true), error);
  socket_.set_option(asio::socket_base::send_buffer_size(kSendBufferBytes), error);
  read();
}

// The pending operation ends with an error then, and the session with it. An orderly end would leave
// connections behind that wait for their clients, and keep Windows from opening the port again.
void Session::drop() {
  reset();
  timer_.cancel();
}

void Session::dropIfWaiting() {
  if (isWaiting_) drop();
}

void Session::read() {
  socket_.async_read_some(asio::buffer(received_),
                          [self = shared_from_this()](error_code error, std::size_t count) {
                            if (error) return;  // the client left, in one way or another
                            self->splitter_.feed({self->received_.data(), count});
                            self->answerNext();
                          });
}

void Session::answerNext() {
  const auto piece = splitter_.next();
  if (!piece) return read();
  delivery_ =
      port_.exchanger.exchange(caller_, *piece, Clock::now(), std::chrono::system_clock::now());
  if (!isNothing(delivery_)) return wait(delivery_.delay, &Session::send);
  port_.exchanger.delivered(delivery_, Clock::now());
  yield();
}

// Nothing is sent, so nothing has to be waited for. Still, whatever the request brings about comes
// before the next one, as it does where a reply is written.
void Session::yield() {
  asio::post(socket_.get_executor(), [self = shared_from_this()] {
    if (self->socket_.is_open()) self->answerNext();
  });
}

void Session::wait(std::chrono::milliseconds time, Step next) {
  if (time.count() == 0) return (this->*next)();
  isWaiting_ = true;
  watch();
  timer_.expires_after(time);
  timer_.async_wait([self = shared_from_this(), next](error_code error) {
    self->isWaiting_ = false;
    if (error) return self->lose();
    (*self.*next)();
  });
}

// A reset by the client ends the waiting, where the system tells. A client that only ended its side
// looks like one that still wants its reply.
void Session::watch() {
  if (isWatched_ || !platform::tellsOfResets()) return;
  isWatched_ = true;
  socket_.async_wait(tcp::socket::wait_error, [weak = weak_from_this()](error_code error) {
    const auto self = weak.lock();
    if (!self) return;
    self->isWatched_ = false;
    if (!error) self->dropIfWaiting();
  });
}

void Session::send() {
  if (delivery_.reply.empty()) return conclude();
  if (delivery_.firstPiece == 0) return write(0, delivery_.reply.size(), &Session::conclude);
  write(0, delivery_.firstPiece, &Session::pauseBetweenPieces);
}

void Session::pauseBetweenPieces() { wait(delivery_.pause, &Session::sendRest); }

void Session::sendRest() {
  write(delivery_.firstPiece, delivery_.reply.size(), &Session::conclude);
}

void Session::write(std::size_t from, std::size_t to, Step next) {
  asio::async_write(socket_, asio::buffer(delivery_.reply.data() + from, to - from),
                    [self = shared_from_this(), next](error_code error, std::size_t) {
                      if (error) return self->lose();
                      (*self.*next)();
                    });
}

void Session::conclude() {
  port_.exchanger.delivered(delivery_, Clock::now());
  const bool isAnswered = !delivery_.reply.empty();
  delivery_.reply = {};
  switch (delivery_.after) {
    case After::Keep:
      return answerNext();
    case After::Close:
      return isAnswered ? finish() : close();
    case After::Reset:
      return reset();
  }
}

void Session::lose() { port_.exchanger.lost(delivery_, Clock::now()); }

// With no reply on its way, the end can be at once, as when a service is stopped: whoever sends again
// learns it. What the client has sent already would make a reset of it.
void Session::close() {
  error_code ignored;
  if (socket_.available(ignored) != 0) return finish();
  socket_.close(ignored);
}

// Closing a socket with unread bytes resets the connection, and the reset may overtake the last
// reply. So the rest of what the client sends is read away first, for a limited time.
void Session::finish() {
  error_code error;
  socket_.shutdown(tcp::socket::shutdown_send, error);
  timer_.expires_after(kFarewell);
  timer_.async_wait([self = shared_from_this()](error_code timerError) {
    error_code ignored;
    if (!timerError) self->socket_.close(ignored);
  });
  drain();
}

void Session::drain() {
  socket_.async_read_some(asio::buffer(received_),
                          [self = shared_from_this()](error_code error, std::size_t) {
                            if (!error) return self->drain();
                            self->timer_.cancel();
                          });
}

// A socket that does not linger throws away what is unsent and tells the client so.
void Session::reset() {
  error_code ignored;
  socket_.set_option(asio::socket_base::linger(true, 0), ignored);
  socket_.close(ignored);
}

}  // namespace tolvex::sim
