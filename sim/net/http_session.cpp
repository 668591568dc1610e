#include "net/http_session.h"

#include <algorithm>
#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <chrono>
#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "net/http_error.h"
#include "net/http_refusal.h"
#include "net/http_response_head.h"
#include "net/live_session.h"

namespace tolvex::sim {

namespace {

namespace asio = boost::asio;
namespace http = boost::beast::http;
using asio::ip::tcp;
using boost::system::error_code;

constexpr std::size_t kMaxHeaderBytes = 16384;
constexpr std::size_t kMaxBodyBytes = 1048576;
// Far more than any site takes; until then the connection lives as long as its client.
constexpr std::chrono::hours kAnswerTime{24};

constexpr char kContinue[] = "HTTP/1.1 100 Continue\r\n\r\n";

HttpHead headOf(const http::request<http::string_body>& request) {
  HttpHead head;
  head.method = std::string(request.method_string());
  head.target = std::string(request.target());
  head.version = request.version();
  for (const auto& field : request) {
    head.fields.emplace_back(std::string(field.name_string()), std::string(field.value()));
  }
  return head;
}

class HttpSession : public std::enable_shared_from_this<HttpSession> {
 public:
  HttpSession(tcp::socket socket, std::shared_ptr<WebHost> host, Place place)
      : socket_(std::move(socket)),
        deadline_(socket_.get_executor()),
        host_(std::move(host)),
        place_(std::move(place)) {}

  void start();
  // For a client for whom there is no place: tells it so and ends.
  void refuse(const HttpResponse& response);

 private:
  enum class State {
    Reading,  // a request
    Waiting,  // for the site's answer
    Writing,  // the response
    Closing,  // what the client still sends is read away
  };
  using Parser = http::request_parser<http::string_body>;

  void limit(WebTimes::Time time);
  void expire();
  void read();
  void take(error_code error, std::size_t count);
  void beginRequest();
  void parse();
  bool checkHead();
  void failParsing(error_code error);
  void carryOut();
  void answer();
  HttpRequest takeRequest();
  bool hasLeft();
  void openLiveChannel(const HttpRequest& request);
  void askSite(const HttpRequest& request);
  void respond(const HttpResponse& response);
  void finish();
  void close();

  tcp::socket socket_;
  asio::steady_timer deadline_;
  std::shared_ptr<WebHost> host_;
  Place place_;
  State state_ = State::Reading;
  std::array<char, 8192> received_{};
  bool reading_ = false;
  bool ended_ = false;  // nothing more comes from the client
  std::string unread_;  // received, but not yet parsed
  std::optional<Parser> parser_;
  bool begun_ = false;           // something of the request has come
  std::size_t headerBytes_ = 0;  // what the parser took until the end of the header
  bool headChecked_ = false;
  HttpHead head_;
  std::optional<HttpTarget> target_;
  bool keepAlive_ = false;
  std::uint64_t answering_ = 0;  // counts requests, so that an answer fits its own only
  std::string responseHead_;
  std::string responseBody_;
};

void HttpSession::start() {
  error_code error;  // mere advice to the system
  socket_.set_option(tcp::no_delay(true), error);
  socket_.set_option(asio::socket_base::keep_alive(true), error);
  beginRequest();
}

void HttpSession::refuse(const HttpResponse& response) {
  keepAlive_ = false;
  respond(response);
}

void HttpSession::limit(WebTimes::Time time) {
  deadline_.expires_after(time);
  deadline_.async_wait([self = shared_from_this()](error_code error) {
    // A limit that was set anew while this one was on its way has not passed.
    if (error || self->deadline_.expiry() > asio::steady_timer::clock_type::now()) return;
    self->expire();
  });
}

void HttpSession::expire() {
  if (state_ != State::Reading || !begun_) return close();
  keepAlive_ = false;
  respond(httpError(408,
                    "the request did not arrive as a whole within " +
                        std::to_string(host_->times.request.count()) + " ms",
                    "Send it again, all at once."));
}

void HttpSession::read() {
  if (reading_) return;
  if (ended_) return close();
  reading_ = true;
  socket_.async_read_some(
      asio::buffer(received_),
      [self = shared_from_this()](error_code error, std::size_t n) { self->take(error, n); });
}

void HttpSession::take(error_code error, std::size_t count) {
  reading_ = false;
  if (error) {
    // The client has finished sending, but may still want what is on its way to it.
    ended_ = true;
    if (state_ == State::Writing && error == asio::error::eof) return;
    return close();
  }
  switch (state_) {
    case State::Reading:
      unread_.append(received_.data(), count);
      return parse();
    case State::Waiting:
      unread_.append(received_.data(), count);
      // Requests that are sent ahead wait here; no more is read than one request may have.
      if (unread_.size() + received_.size() <= kMaxHeaderBytes) read();
      return;
    case State::Writing:
      unread_.append(received_.data(), count);
      return;
    case State::Closing:
      return read();
  }
}

void HttpSession::beginRequest() {
  state_ = State::Reading;
  head_ = {};
  parser_.emplace();
  parser_->header_limit(kMaxHeaderBytes);
  parser_->body_limit(kMaxBodyBytes);
  parser_->eager(true);
  begun_ = false;
  headerBytes_ = 0;
  headChecked_ = false;
  limit(host_->times.idle);
  parse();
}

void HttpSession::parse() {
  if (!begun_) {
    // Some clients send an empty line after a body.
    unread_.erase(0, std::min(unread_.find_first_not_of("\r\n"), unread_.size()));
    if (!unread_.empty()) {
      begun_ = true;
      limit(host_->times.request);
    }
  }
  error_code error = http::error::need_more;
  const std::size_t room =
      parser_->is_header_done() ? unread_.size() : kMaxHeaderBytes - headerBytes_;
  const bool fits = unread_.size() <= room;
  if (!unread_.empty()) {
    const std::size_t taken =
        parser_->put(asio::buffer(unread_.data(), std::min(unread_.size(), room)), error);
    headerBytes_ += taken;
    unread_.erase(0, taken);
    if (!error && !parser_->is_done()) error = http::error::need_more;
  }
  if (parser_->is_header_done() && !headChecked_ && !checkHead()) return;
  if (!error) return carryOut();
  if (error != http::error::need_more) return failParsing(error);
  if (!fits) return parser_->is_header_done() ? parse() : failParsing(http::error::header_limit);
  // The head of a chunk, which has no limit of its own.
  if (unread_.size() >= kMaxHeaderBytes) return failParsing(http::error::bad_chunk);
  read();
}

// Foreign requests are refused before their body is read.
bool HttpSession::checkHead() {
  headChecked_ = true;
  head_ = headOf(parser_->get());
  target_ = parseTarget(head_.target == "*" && head_.method == "OPTIONS" ? "/" : head_.target);
  keepAlive_ = parser_->keep_alive();
  if (const auto refusal = refuseHead(head_, target_, host_->where)) {
    keepAlive_ = false;
    respond(*refusal);
    return false;
  }
  if (!parser_->is_done() && equalIgnoringCase(head_.first("Expect"), "100-continue")) {
    // A few bytes into a buffer that is empty; should they not fit, the client goes on by itself.
    error_code ignored;
    socket_.non_blocking(true, ignored);
    socket_.write_some(asio::buffer(kContinue, sizeof kContinue - 1), ignored);
  }
  return true;
}

void HttpSession::failParsing(error_code error) {
  keepAlive_ = false;
  if (error == http::error::body_limit || error == http::error::buffer_overflow) {
    return respond(
        httpError(413, "the body is longer than 1 MiB (1048576 bytes)", "Send less at a time."));
  }
  if (error == http::error::header_limit && parser_->get().target().empty()) {
    return respond(
        httpError(414, "the address is longer than 16 KiB", "Send a shorter path and query."));
  }
  if (error == http::error::header_limit) {
    return respond(
        httpError(431, "the headers are longer than 16 KiB", "Send fewer or shorter ones."));
  }
  respond(
      httpError(400, "the request is not HTTP (" + error.message() + ")",
                "Send a request such as \"GET /api/state HTTP/1.1\"; clients of the scale and the "
                "printers use the other two ports."));
}

HttpRequest HttpSession::takeRequest() {
  HttpRequest request;
  request.method = head_.method == "HEAD" ? "GET" : head_.method;
  request.path = target_->path;
  request.query = target_->query;
  request.contentType = contentTypeOf(head_);
  request.body = std::move(parser_->get().body());
  request.clientLeft = [weak = weak_from_this(), turn = answering_] {
    const auto self = weak.lock();
    return !self || self->answering_ != turn || self->hasLeft();
  };
  return request;
}

// While nothing is being read, only a look at the socket tells that the client's side is closed.
bool HttpSession::hasLeft() {
  if (!socket_.is_open()) return true;
  if (reading_ || !unread_.empty()) return false;
  error_code error;
  socket_.non_blocking(true, error);
  char next = 0;
  if (!error) socket_.receive(asio::buffer(&next, 1), tcp::socket::message_peek, error);
  return error && error != asio::error::would_block && error != asio::error::try_again;
}

void HttpSession::carryOut() {
  ++answering_;
  try {
    answer();
  } catch (const std::exception& error) {
    if (state_ != State::Reading && state_ != State::Waiting) return;
    respond(httpError(500, std::string("the simulator failed: ") + error.what(),
                      "Please report this, with the request."));
  }
}

void HttpSession::answer() {
  const bool read = head_.method == "GET" || head_.method == "HEAD";
  if (wantsWebSocket(head_) || (read && target_->path == kLivePath)) {
    return openLiveChannel(takeRequest());
  }
  if (head_.method == "OPTIONS") {
    HttpResponse response;
    response.status = 204;
    response.headers.emplace_back("Allow", kAllowedMethods);
    return respond(response);
  }
  askSite(takeRequest());
}

void HttpSession::openLiveChannel(const HttpRequest& request) {
  if (const auto refusal = refuseHandshake(head_, *target_)) return respond(*refusal);
  if (reading_ || !unread_.empty()) {
    return respond(httpError(400, "something follows the request for the live channel",
                             "Wait for the answer before you send more."));
  }
  LiveStart start;
  start.viewer = host_->takeViewer();
  if (!start.viewer) {
    return respond(httpError(503, "64 viewers are watching, as many as can be",
                             "Close a page of the simulator and try again."));
  }
  start.feed = host_->site().openFeed(request);
  if (!start.feed) {
    return respond(httpError(404, "there is nothing to watch", "Read GET /api instead."));
  }
  start.key = std::string(head_.first("Sec-WebSocket-Key"));
  start.host = std::string(head_.first("Host"));
  start.connection = std::move(place_);
  state_ = State::Closing;
  deadline_.cancel();
  startLiveSession(std::move(socket_), host_, std::move(start));
}

void HttpSession::askSite(const HttpRequest& request) {
  state_ = State::Waiting;
  limit(kAnswerTime);
  auto answer = [weak = weak_from_this(), turn = answering_](const HttpResponse& response) {
    const auto self = weak.lock();
    if (self && self->state_ == State::Waiting && self->answering_ == turn) self->respond(response);
  };
  host_->site().answer(request, std::move(answer));
  // While the answer is not there yet, this tells that the client leaves.
  if (state_ == State::Waiting && unread_.size() + received_.size() <= kMaxHeaderBytes) read();
}

void HttpSession::respond(const HttpResponse& response) {
  state_ = State::Writing;
  responseHead_ = responseHead(response, keepAlive_);
  responseBody_ = head_.method == "HEAD" ? "" : response.body;
  limit(host_->times.response);
  const std::array<asio::const_buffer, 2> parts{asio::buffer(responseHead_),
                                                asio::buffer(responseBody_)};
  asio::async_write(socket_, parts, [self = shared_from_this()](error_code error, std::size_t) {
    if (error) return self->close();
    if (!self->keepAlive_) return self->finish();
    self->beginRequest();
  });
}

// Closing a socket with unread bytes resets the connection, and the reset may overtake the response.
// So the rest of what the client sends is read away first, for a limited time.
void HttpSession::finish() {
  state_ = State::Closing;
  error_code error;
  socket_.shutdown(tcp::socket::shutdown_send, error);
  limit(host_->times.farewell);
  read();
}

void HttpSession::close() {
  deadline_.cancel();
  error_code ignored;
  socket_.close(ignored);
}

}  // namespace

void startHttpSession(tcp::socket socket, const std::shared_ptr<WebHost>& host) {
  if (Place place = host->takeConnection()) {
    return std::make_shared<HttpSession>(std::move(socket), host, std::move(place))->start();
  }
  if (Place place = host->takeRefusal()) {
    std::make_shared<HttpSession>(std::move(socket), host, std::move(place))
        ->refuse(httpError(503, "256 connections are open, as many as can be",
                           "Close pages or programs that use the simulator, and try again."));
  }
}

}  // namespace tolvex::sim
