#include "test_client.h"

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <chrono>
#include <limits>
#include <stdexcept>
#include <utility>

namespace tolvex::sim {

namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;

constexpr std::chrono::seconds kPatience{30};

}  // namespace

struct TestClient::Impl {
  asio::io_context context;
  tcp::socket socket{context};
  std::array<char, 2048> buffer{};
  std::string outgoing;

  // What a single receive gives.
  error_code receive(std::size_t& received) {
    bool done = false;
    error_code result;
    socket.async_read_some(asio::buffer(buffer), [&](error_code error, std::size_t n) {
      result = error;
      received = n;
      done = true;
    });
    await(done, "receiving");
    return result;
  }

  // Runs the context until `done`.
  void await(const bool& done, const char* what) {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    context.restart();
    while (!done && context.run_one_until(deadline) > 0) {
    }
    if (!done) throw std::runtime_error(std::string("test client: no end of ") + what);
  }

  static void check(const error_code& error, const char* what) {
    if (error)
      throw std::runtime_error(std::string("test client: ") + what + ": " + error.message());
  }
};

TestClient::TestClient() : impl_(std::make_unique<Impl>()) { impl_->socket.open(tcp::v4()); }

TestClient::TestClient(std::uint16_t port) : TestClient() { connect(port); }

void TestClient::connect(std::uint16_t port) {
  error_code error;
  impl_->socket.connect({asio::ip::address_v4::loopback(), port}, error);
  Impl::check(error, "connect");
}

TestClient::~TestClient() = default;
TestClient::TestClient(TestClient&&) noexcept = default;

void TestClient::send(std::string_view bytes) {
  bool done = false;
  error_code result;
  asio::async_write(impl_->socket, asio::buffer(bytes), [&](error_code error, std::size_t) {
    result = error;
    done = true;
  });
  impl_->await(done, "sending");
  Impl::check(result, "send");
}

void TestClient::sendInBackground(std::string bytes) {
  impl_->outgoing = std::move(bytes);
  asio::async_write(impl_->socket, asio::buffer(impl_->outgoing),
                    [](error_code error, std::size_t) { Impl::check(error, "send"); });
}

std::string TestClient::receive() {
  std::size_t received = 0;
  const error_code result = impl_->receive(received);
  if (result != asio::error::eof) Impl::check(result, "receive");
  return {impl_->buffer.data(), received};
}

std::string TestClient::receive(std::size_t count) {
  std::string all;
  while (all.size() < count) {
    const std::string part = receive();
    if (part.empty()) break;
    all += part;
  }
  return all;
}

std::string TestClient::receiveAll() { return receive(std::numeric_limits<std::size_t>::max()); }

bool TestClient::endsWith(End end) {
  std::size_t received = 0;
  const error_code result = impl_->receive(received);
#ifdef _WIN32  // Wine may call the reset an orderly end
  if (result == asio::error::eof) return true;
#else
  if (result == asio::error::eof) return end == End::Closed;
#endif
  if (result == asio::error::connection_reset || result == asio::error::connection_aborted) {
    return end == End::Reset;
  }
  Impl::check(result, "await the end");
  throw std::runtime_error("test client: bytes instead of the end of the connection");
}

bool TestClient::isRefused(std::uint16_t port) {
  const TestClient client;
  error_code error;
  client.impl_->socket.connect({asio::ip::address_v4::loopback(), port}, error);
  if (error == asio::error::connection_refused) return true;
  Impl::check(error, "connect");
  return false;
}

std::string TestClient::ask(std::string_view request) {
  send(request);
  return receive();
}

void TestClient::endSending() { impl_->socket.shutdown(tcp::socket::shutdown_send); }

void TestClient::vanish() {
  impl_->socket.set_option(asio::socket_base::linger(true, 0));
  impl_->socket.close();
}

}  // namespace tolvex::sim
