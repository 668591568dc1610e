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
  const auto ip = asio::ip::make_address_v4(address, error);
  endpoint_ = {ip, port};
  if (!error) error = open();
  if (!error) endpoint_ = acceptor_.local_endpoint(error);
  if (!error) return;
  const Failure failure = explain(error);
  throw ListenError(name_, address, port, failure.kind, failure.cause);
}

void Listener::accept() {
  acceptor_.async_accept([this, closings = closings_](error_code error, tcp::socket socket) {
    if (error == asio::error::operation_aborted || closings != closings_) return;
    if (error) {
      return recover("cannot accept clients on the " + name_ + " port: " + error.message(),
                     &Listener::accept);
    }
    inTrouble_ = false;
    begin_(std::move(socket));
    accept();
  });
}

void Listener::close() {
  if (isClosed_) return;
  isClosed_ = true;
  inTrouble_ = false;
  ++closings_;
  error_code ignored;
  acceptor_.close(ignored);
  pause_.cancel();
}

void Listener::reopen() {
  if (!isClosed_) return;
  isClosed_ = false;
  openAgain();
}

// Leaves the acceptor closed if it fails.
error_code Listener::open() {
  error_code error;
  acceptor_.open(tcp::v4(), error);
  if (error) return error;
  platform::prepareToListen(static_cast<std::uintptr_t>(acceptor_.native_handle()));
  acceptor_.bind(endpoint_, error);
  if (!error) acceptor_.listen(asio::socket_base::max_listen_connections, error);
  error_code ignored;
  if (error) acceptor_.close(ignored);
  return error;
}

void Listener::openAgain() {
  if (const error_code error = open()) {
    return recover("cannot open the " + name_ + " port again: " + explain(error).cause,
                   &Listener::openAgain);
  }
  inTrouble_ = false;
  accept();
}

void Listener::recover(const std::string& trouble, void (Listener::*retry)()) {
  if (!inTrouble_ && troubled_) troubled_(trouble + "; trying again");
  inTrouble_ = true;
  pause_.expires_after(kPauseAfterFailure);
  pause_.async_wait([this, retry, closings = closings_](error_code error) {
    if (!error && closings == closings_) (this->*retry)();
  });
}

}  // namespace tolvex::sim
