#include "net/listener.h"

#include <boost/asio/ip/address_v4.hpp>
#include <chrono>
#include <utility>

#include "base/ipv4.h"
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

Listener::Listener(asio::io_context& context, std::string name, const std::string& address,
                   std::uint16_t port, Begin begin, Troubled troubled)
    : acceptor_(context),
      pause_(context),
      name_(std::move(name)),
      begin_(std::move(begin)),
      troubled_(std::move(troubled)) {
  if (!isIpv4Address(address)) {
    throw ListenError(name_, address, port, ListenFailure::NoSuchAddress,
                      "that is no IPv4 address");
  }
  error_code error;
  const auto check = [&] {
    if (!error) return;
    const Failure failure = explain(error);
    throw ListenError(name_, address, port, failure.kind, failure.cause);
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
    begin_(std::move(socket));
    accept();
  });
}

void Listener::recover(const std::string& cause) {
  if (!inTrouble_ && troubled_) {
    troubled_("cannot accept clients on the " + name_ + " port: " + cause + "; trying again");
  }
  inTrouble_ = true;
  pause_.expires_after(kPauseAfterFailure);
  pause_.async_wait([this](error_code error) {
    if (!error) accept();
  });
}

}  // namespace tolvex::sim
