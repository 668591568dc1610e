#include "net/listener.h"

#include <boost/asio/ip/address_v4.hpp>
#include <chrono>
#include <memory>
#include <utility>

#include "base/ipv4.h"
#include "net/session.h"
#include "platform/platform.h"

namespace tolvex::sim {

namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;

constexpr std::chrono::milliseconds kPauseAfterFailure{100};

struct Failure {
  ListenFailure kind;
  std::string cause;
};

// The common causes in words of our own: those of the systems differ, and some end in a line break.
Failure explain(const error_code& error) {
  if (error == asio::error::address_in_use) {
    return {ListenFailure::InUse, "another program has this port"};
  }
  if (error == asio::error::access_denied) {
    return {ListenFailure::Denied, "the system does not give the port away"};
  }
  if (error == boost::system::errc::address_not_available) {
    return {ListenFailure::NoSuchAddress, "this machine has no such address"};
  }
  return {ListenFailure::Other, "system error " + std::to_string(error.value())};
}

}  // namespace

Listener::Listener(asio::io_context& context, Service& service, Half half,
                   const ServerEvents& events, const std::string& address, std::uint16_t port)
    : acceptor_(context), pause_(context), service_(service), half_(half), events_(events) {
  if (!isIpv4Address(address)) {
    throw ListenError(half, address, port, ListenFailure::NoSuchAddress, "that is no IPv4 address");
  }
  error_code error;
  const auto check = [&] {
    if (!error) return;
    const Failure failure = explain(error);
    throw ListenError(half, address, port, failure.kind, failure.cause);
  };
  const auto ip = asio::ip::make_address_v4(address, error);
  check();
  acceptor_.open(tcp::v4(), error);
  check();
  platform::prepareToListen(static_cast<std::uintptr_t>(acceptor_.native_handle()));
  acceptor_.bind({ip, port}, error);
  check();
  acceptor_.listen(asio::socket_base::max_listen_connections, error);
  check();
  port_ = acceptor_.local_endpoint(error).port();
  check();
}

void Listener::accept() {
  acceptor_.async_accept([this](error_code error, tcp::socket socket) {
    if (error == asio::error::operation_aborted) return;
    if (error) return recover(error.message());
    inTrouble_ = false;
    std::make_shared<Session>(std::move(socket), service_, half_, events_)->start();
    accept();
  });
}

void Listener::recover(const std::string& cause) {
  if (!inTrouble_ && events_.troubled) {
    events_.troubled(std::string("cannot accept clients on the ") + name(half_) +
                     " port: " + cause + "; trying again");
  }
  inTrouble_ = true;
  pause_.expires_after(kPauseAfterFailure);
  pause_.async_wait([this](error_code error) {
    if (!error) accept();
  });
}

}  // namespace tolvex::sim
