#include "net/live_session.h"

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/bind_handler.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/role.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/websocket.hpp>
#include <chrono>
#include <exception>
#include <utility>

#include "net/http_refusal.h"

namespace tolvex::sim {

namespace {

namespace asio = boost::asio;
namespace http = boost::beast::http;
namespace websocket = boost::beast::websocket;
using asio::ip::tcp;
using boost::system::error_code;

constexpr std::size_t kMaxReceivedBytes = 4096;
// A viewer is pinged when nothing has come from it for half of this, and dropped after all of it.
constexpr std::chrono::seconds kSilence{60};
// For the handshakes at the beginning and at the end.
constexpr std::chrono::seconds kHandshakeTime{5};

// The request whose head has been checked, as the WebSocket needs it for its answer.
http::request<http::empty_body> handshake(const LiveStart& start) {
  http::request<http::empty_body> request{http::verb::get, kLivePath, 11};
  request.set(http::field::host, start.host);
  request.set(http::field::connection, "upgrade");
  request.set(http::field::upgrade, "websocket");
  request.set(http::field::sec_websocket_key, start.key);
  request.set(http::field::sec_websocket_version, "13");
  return request;
}

// Beast ends a WebSocket by closing its socket as soon as it has read something more. That resets the
// connection, and the reset may overtake the reason for the end. This one leaves the rest to us.
class LiveSocket : public tcp::socket {
 public:
  explicit LiveSocket(tcp::socket socket) : tcp::socket(std::move(socket)) {}
};

template <typename Handler>
void async_teardown(boost::beast::role_type, LiveSocket& socket, Handler&& handler) {
  error_code error;
  socket.shutdown(tcp::socket::shutdown_send, error);
  asio::post(socket.get_executor(),
             boost::beast::bind_front_handler(std::forward<Handler>(handler), error_code()));
}

class LiveSession : public Viewer, public std::enable_shared_from_this<LiveSession> {
 public:
  LiveSession(tcp::socket socket, std::shared_ptr<WebHost> host, LiveStart start)
      : stream_(LiveSocket(std::move(socket))),
        deadline_(stream_.get_executor()),
        host_(std::move(host)),
        start_(std::move(start)) {}

  void accept();
  void pull() override;

 private:
  void read();
  void leave();
  void finish();
  void drain();
  void close();

  websocket::stream<LiveSocket> stream_;
  asio::steady_timer deadline_;
  std::shared_ptr<WebHost> host_;
  LiveStart start_;
  boost::beast::flat_buffer received_;
  std::array<char, 2048> rest_{};
  std::string message_;
  bool open_ = false;
  bool writing_ = false;
};

void LiveSession::accept() {
  websocket::stream_base::timeout times{};
  times.handshake_timeout = kHandshakeTime;
  times.idle_timeout = kSilence;
  times.keep_alive_pings = true;
  stream_.set_option(times);
  stream_.read_message_max(kMaxReceivedBytes);
  stream_.auto_fragment(false);
  stream_.text(true);
  stream_.async_accept(handshake(start_), [self = shared_from_this()](error_code error) {
    if (error) return;
    self->open_ = true;
    self->host_->addViewer(self);
    self->read();
    self->pull();
  });
}

// Without a read pending, pings would not be answered and the end not be seen.
void LiveSession::read() {
  stream_.async_read(received_, [self = shared_from_this()](error_code error, std::size_t) {
    if (error) return self->finish();
    self->received_.clear();
    self->read();
  });
}

void LiveSession::pull() {
  if (!open_ || writing_) return;
  try {
    message_ = start_.feed->next();
  } catch (const std::exception&) {
    return close();
  }
  if (message_.empty()) return;
  writing_ = true;
  deadline_.expires_after(host_->times.message);
  deadline_.async_wait([self = shared_from_this()](error_code error) {
    if (!error && self->writing_) self->close();
  });
  stream_.async_write(asio::buffer(message_),
                      [self = shared_from_this()](error_code error, std::size_t) {
                        self->writing_ = false;
                        if (!self->open_) return;
                        self->deadline_.cancel();
                        if (error) return self->close();
                        self->pull();
                      });
}

// Gives the place to another viewer.
void LiveSession::leave() {
  open_ = false;
  start_.feed.reset();
  start_.viewer = Place();
}

// The channel has ended; what the viewer still sends is read away, for a limited time.
void LiveSession::finish() {
  leave();
  deadline_.expires_after(host_->times.farewell);
  deadline_.async_wait([self = shared_from_this()](error_code error) {
    if (!error) self->close();
  });
  drain();
}

void LiveSession::drain() {
  stream_.next_layer().async_read_some(asio::buffer(rest_),
                                       [self = shared_from_this()](error_code error, std::size_t) {
                                         if (error) return self->close();
                                         self->drain();
                                       });
}

void LiveSession::close() {
  leave();
  deadline_.cancel();
  error_code ignored;
  stream_.next_layer().close(ignored);
}

}  // namespace

void startLiveSession(tcp::socket socket, const std::shared_ptr<WebHost>& host, LiveStart start) {
  std::make_shared<LiveSession>(std::move(socket), host, std::move(start))->accept();
}

}  // namespace tolvex::sim
