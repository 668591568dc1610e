#include "live_client.h"

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket.hpp>
#include <chrono>
#include <stdexcept>

namespace tolvex::sim {

namespace {

namespace asio = boost::asio;
namespace http = boost::beast::http;
namespace websocket = boost::beast::websocket;
using asio::ip::tcp;
using boost::system::error_code;

constexpr std::chrono::seconds kLivePatience{30};

}  // namespace

struct LiveClient::Impl {
  asio::io_context context;
  websocket::stream<tcp::socket> stream{context};

  // Starts an operation, which is handed a function to call with its result, and waits for it.
  template <typename Start>
  error_code await(const Start& start) {
    error_code result = asio::error::would_block;
    bool done = false;
    start([&](error_code error, auto&&...) {
      result = error;
      done = true;
    });
    const auto deadline = std::chrono::steady_clock::now() + kLivePatience;
    context.restart();
    while (!done && context.run_one_until(deadline) > 0) {
    }
    if (!done) throw std::runtime_error("live client: no end in sight");
    return result;
  }

  static void check(const error_code& error) {
    if (error) throw std::runtime_error("live client: " + error.message());
  }
};

LiveClient::LiveClient(std::uint16_t port, const std::string& target, const std::string& origin)
    : impl_(std::make_unique<Impl>()) {
  impl_->stream.next_layer().connect({asio::ip::address_v4::loopback(), port});
  impl_->stream.set_option(
      websocket::stream_base::decorator([&origin](websocket::request_type& request) {
        if (!origin.empty()) request.set(http::field::origin, origin);
      }));
  websocket::response_type response;
  const error_code error = impl_->await([&](auto done) {
    impl_->stream.async_handshake(response, "127.0.0.1:" + std::to_string(port), target, done);
  });
  if (error == websocket::error::upgrade_declined) {
    throw std::runtime_error(std::to_string(response.result_int()) + " " +
                             std::string(response.reason()) + ": " + response.body());
  }
  Impl::check(error);
}

LiveClient::~LiveClient() = default;
LiveClient::LiveClient(LiveClient&&) noexcept = default;

std::string LiveClient::receive() {
  boost::beast::flat_buffer buffer;
  const error_code error = impl_->await([&](auto done) { impl_->stream.async_read(buffer, done); });
  if (error == websocket::error::closed) {
    return "closed " + std::to_string(impl_->stream.reason().code);
  }
  if (error) return "cut";
  return boost::beast::buffers_to_string(buffer.data());
}

void LiveClient::send(const std::string& message) {
  Impl::check(
      impl_->await([&](auto done) { impl_->stream.async_write(asio::buffer(message), done); }));
}

void LiveClient::close() {
  Impl::check(impl_->await(
      [&](auto done) { impl_->stream.async_close(websocket::close_code::normal, done); }));
}

}  // namespace tolvex::sim
