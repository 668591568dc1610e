#include "net/live_session.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/flat_buffer.hpp>
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
// A viewer that does not take a message for so long is dropped.
constexpr std::chrono::seconds kMessageTime{30};
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

class LiveSession : public Viewer, public std::enable_shared_from_this<LiveSession> {
 public:
  LiveSession(tcp::socket socket, LiveStart start)
      : stream_(std::move(socket)), deadline_(stream_.get_executor()), start_(std::move(start)) {}

  void accept(const std::shared_ptr<WebHost>& host);
  void pull() override;

 private:
  void read();
  void close();

  websocket::stream<tcp::socket> stream_;
  asio::steady_timer deadline_;
  LiveStart start_;
  boost::beast::flat_buffer received_{kMaxReceivedBytes};
  std::string message_;
  bool open_ = false;
  bool writing_ = false;
};

void LiveSession::accept(const std::shared_ptr<WebHost>& host) {
  websocket::stream_base::timeout times{};
  times.handshake_timeout = kHandshakeTime;
  times.idle_timeout = kSilence;
  times.keep_alive_pings = true;
  stream_.set_option(times);
  stream_.read_message_max(kMaxReceivedBytes);
  stream_.auto_fragment(false);
  stream_.text(true);
  stream_.async_accept(handshake(start_), [self = shared_from_this(), host](error_code error) {
    if (error) return;
    self->open_ = true;
    host->addViewer(self);
    self->read();
    self->pull();
  });
}

// Without a read pending, pings would not be answered and the end not be seen.
void LiveSession::read() {
  stream_.async_read(received_, [self = shared_from_this()](error_code error, std::size_t) {
    if (error) return self->close();
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
  deadline_.expires_after(kMessageTime);
  deadline_.async_wait([self = shared_from_this()](error_code error) {
    if (!error && self->writing_) self->close();
  });
  stream_.async_write(asio::buffer(message_),
                      [self = shared_from_this()](error_code error, std::size_t) {
                        self->writing_ = false;
                        self->deadline_.cancel();
                        if (error) return self->close();
                        self->pull();
                      });
}

void LiveSession::close() {
  open_ = false;
  deadline_.cancel();
  error_code ignored;
  stream_.next_layer().close(ignored);
}

}  // namespace

void startLiveSession(tcp::socket socket, const std::shared_ptr<WebHost>& host, LiveStart start) {
  std::make_shared<LiveSession>(std::move(socket), std::move(start))->accept(host);
}

}  // namespace tolvex::sim
